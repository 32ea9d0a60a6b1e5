#pragma once

#include "level/ObjectTexture.h"
#include "list/OutlineColumns.h"
#include "list/tables/TextureEntry.h"

#include <QPoint>
#include <QRect>
#include <QStringList>

#include <array>
#include <optional>

// An object texture's geometry read from its record: "Tile#", "Trans", the
// four corners (pixel within the tile) and their sub-pixel bytes; and its
// outline in whole-bitmap pixels for the draw list.
class ObjectTextureRow
{
public:
    static ObjectTextureRow Of(const ObjectTexture& record);
    // A row of the open list: a corner kept at a tile's far edge reads 256.
    static ObjectTextureRow Of(const TextureEntry& entry);

    int tile = 0;
    int trans = 0;
    // "X1": what a loaded row takes as its attribute.
    int firstX = 0;
    std::array<QPoint, 4> corners{};  // pixels within the tile
    std::array<QPoint, 4> subPixels{}; // X byte in x(), Y byte in y()

    // A fourth corner of nothing but zeros makes a triangle.
    bool IsTriangle() const;
    // Corner i with the tile's offset added to Y: whole-bitmap pixels.
    QPoint BitmapCorner(int i) const;
    // The whole-bitmap pixels the texture covers, what a preview shows. A
    // coordinate whose sub-pixel byte is 128 or more stands for the far side
    // of its pixel, so a square from pixel 0 to 63 covers 64. A triangle's
    // unused fourth corner plays no part.
    QRect Bounds() const;
    // The draw list's "NumSide" and corner columns: a quad's two opposite
    // corners (1 and 3), or a triangle's three corners.
    OutlineColumns DrawColumns() const;

    // Sub-item numbers of the complete texture list: the record's own.
    static constexpr int TileColumn = ObjectTexture::TileColumn;
    static constexpr int TransColumn = ObjectTexture::TransColumn;
    static constexpr int XColumn(int corner) { return ObjectTexture::XColumn(corner); }
    static constexpr int YColumn(int corner) { return ObjectTexture::YColumn(corner); }
    static constexpr int XHiColumn(int corner) { return ObjectTexture::XHiColumn(corner); }
    static constexpr int YHiColumn(int corner) { return ObjectTexture::YHiColumn(corner); }
    static constexpr int ColumnCount = ObjectTexture::ColumnCount;
};
