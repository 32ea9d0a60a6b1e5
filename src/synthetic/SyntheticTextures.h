#pragma once

#include "level/ObjectTexture.h"

#include <QList>

// Object texture rows as the tools that wrote levels lay them out: axis-
// aligned rectangles with their first corner on each of the four corners in
// turn, and among them triangles in four orientations, spread over tiles.
// What differs from tool to tool is the sub-pixel byte of each coordinate.
class SyntheticTextures
{
public:
    enum class Convention {
        LowHigh, // 1 on a low (left, top) edge, 255 on a high edge
        Zero,    // every byte 0
        Half,    // 127 on every rectangle, 0 on every triangle
        Mixed,   // 0, 1 and 255, changing from row to row and within rows
    };

    // count rows over tiles tiles, row n in tile n mod tiles, every fifth a
    // triangle, every seventh from the second at the top of its tile; every
    // run makes the same rows.
    static QList<ObjectTexture> Rows(Convention convention, int count, int tiles);

    // The bytes of a low and a high edge in row number row.
    static std::pair<int, int> EdgeBytes(Convention convention, int row, bool triangle, bool xAxis);
};
