#pragma once

#include "list/OutlineColumns.h"

#include "level/SpriteTexture.h"
#include "list/tables/SpriteTextureEntry.h"

#include <QRect>
#include <QStringList>

// One row of the complete sprite list read as numbers, and the sprite's
// rectangle in whole-bitmap pixels. "Width" and "Height" hold the corner to
// corner span times 256 plus 255; spans of other values (only levels make
// them) are cut toward zero, so a size below 255 is a span of 0.
class SpriteTextureRow
{
public:
    static SpriteTextureRow Of(const SpriteTexture& record);
    static SpriteTextureRow Of(const SpriteTextureEntry& entry) { return Of(entry.record); }

    int tile = 0;
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    // The top-left corner (X1, Y1) and the opposite corner (X2, Y2).
    QPoint FirstCorner() const;
    QPoint SecondCorner() const;
    // The draw list's "NumSide" and corner columns: "4", X1, Y1, X2, Y2.
    OutlineColumns DrawColumns() const;

    static int SpanOf(int size) { return (size - 255) / 256; }
    static int SizeOf(int span) { return span * 256 + 255; }

    // Sub-item numbers of the complete sprite list.
    enum Column { TileColumn = 1, XColumn, YColumn, WidthColumn, HeightColumn, LeftColumn, TopColumn, RightColumn,
                  BottomColumn };
};
