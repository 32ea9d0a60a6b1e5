#pragma once

#include "list/tables/RecordTable.h"
#include "list/tables/TextureEntry.h"

#include <QtGlobal>

#include <optional>

class ObjectTextureRow;

// The sub-pixel bytes a texture gives the coordinates on its low (left, top)
// and its high (right, bottom) edges. Tools that wrote levels differ: 1 and
// 255, all 0, all 127, and mixtures, row by row. A changed corner takes the
// bytes its row already uses, so a level keeps its own habits.
struct SubPixelConvention
{
    int xLow = 1;
    int xHigh = 255;
    int yLow = 1;
    int yHigh = 255;

    // The byte of a coordinate on the low or the high edge of one axis.
    int Byte(bool xAxis, bool highEdge) const;

    // What a row's corners use: the bytes of its first corner on each edge.
    // Nothing for a row that has no width or no height to tell the edges by.
    static std::optional<SubPixelConvention> Of(const ObjectTextureRow& row);
    // The convention most rows of the list use (the first met among equals);
    // 1 and 255 for a list with no row to tell.
    static SubPixelConvention MostUsed(const RecordTable<TextureEntry>& textures);

    friend bool operator==(const SubPixelConvention&, const SubPixelConvention&) = default;
};
