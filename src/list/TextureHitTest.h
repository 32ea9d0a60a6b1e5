#pragma once

#include "list/tables/RecordTable.h"
#include "list/tables/SpriteTextureEntry.h"
#include "list/tables/TextureEntry.h"

#include <QList>
#include <QPoint>
#include <QPolygon>


// Which textures and sprites of the complete lists cover a bitmap pixel,
// and which of them a click chooses. Rows later in a list are drawn over the
// earlier ones, so the last covering row is the topmost.
class TextureHitTest
{
public:
    // Rows of the object texture (sprite) list covering pixel, in row order.
    // A quad covers the pixels of its bounds; a triangle those inside its
    // three corners, sides included.
    static QList<int> TexturesAt(const RecordTable<TextureEntry>& textures, QPoint pixel);
    static QList<int> SpritesAt(const RecordTable<SpriteTextureEntry>& sprites, QPoint pixel);

    // The row a click chooses among the covering rows: the topmost, or,
    // when the row already chosen is one of them, the next one under it, so
    // that clicking again on the same pixel walks down through the stack.
    // -1 when nothing covers the pixel.
    static int Choose(const QList<int>& covering, int chosen);

    // A row's outline in whole-bitmap pixels: a quad's or sprite's two
    // opposite corners, a triangle's three corners.
    static QPolygon TextureOutline(const RecordTable<TextureEntry>& textures, int row);
    static QPolygon SpriteOutline(const RecordTable<SpriteTextureEntry>& sprites, int row);
};
