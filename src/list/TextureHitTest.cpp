#include "list/TextureHitTest.h"

#include "list/rows/ListRows.h"
#include "list/ObjectTextureRow.h"
#include "list/SpriteTextureRow.h"

#include <QRect>

namespace {

qint64 Cross(QPoint a, QPoint b, QPoint p)
{
    return qint64(b.x() - a.x()) * (p.y() - a.y()) - qint64(b.y() - a.y()) * (p.x() - a.x());
}

// Inside or on the sides, whichever way round the corners run.
bool InTriangle(QPoint a, QPoint b, QPoint c, QPoint p)
{
    const qint64 ab = Cross(a, b, p), bc = Cross(b, c, p), ca = Cross(c, a, p);
    const bool anyNegative = ab < 0 || bc < 0 || ca < 0;
    const bool anyPositive = ab > 0 || bc > 0 || ca > 0;
    return !(anyNegative && anyPositive);
}

bool Covers(const ObjectTextureRow& texture, QPoint pixel)
{
    if (!texture.IsTriangle())
        return texture.Bounds().contains(pixel);
    return InTriangle(texture.BitmapCorner(0), texture.BitmapCorner(1), texture.BitmapCorner(2), pixel);
}

} // namespace

QList<int> TextureHitTest::TexturesAt(const RecordTable<TextureEntry>& textures, QPoint pixel)
{
    QList<int> rows;
    for (int row = 0; row < textures.count(); ++row) {
        if (Covers(ObjectTextureRow::Of(textures.at(row)), pixel))
            rows << row;
    }
    return rows;
}

QList<int> TextureHitTest::SpritesAt(const RecordTable<SpriteTextureEntry>& sprites, QPoint pixel)
{
    QList<int> rows;
    for (int row = 0; row < sprites.count(); ++row) {
        const SpriteTextureRow sprite = SpriteTextureRow::Of(sprites.at(row));
        if (QRect(sprite.FirstCorner(), sprite.SecondCorner()).normalized().contains(pixel))
            rows << row;
    }
    return rows;
}

int TextureHitTest::Choose(const QList<int>& covering, int chosen)
{
    if (covering.isEmpty())
        return -1;
    const qsizetype at = covering.indexOf(chosen);
    if (at < 0)
        return covering.last();
    return covering.at(at == 0 ? covering.size() - 1 : at - 1);
}

QPolygon TextureHitTest::TextureOutline(const RecordTable<TextureEntry>& textures, int row)
{
    const ObjectTextureRow texture = ObjectTextureRow::Of(textures.at(row));
    if (texture.IsTriangle())
        return QPolygon({texture.BitmapCorner(0), texture.BitmapCorner(1), texture.BitmapCorner(2)});
    return QPolygon({texture.BitmapCorner(0), texture.BitmapCorner(2)});
}

QPolygon TextureHitTest::SpriteOutline(const RecordTable<SpriteTextureEntry>& sprites, int row)
{
    const SpriteTextureRow sprite = SpriteTextureRow::Of(sprites.at(row));
    return QPolygon({sprite.FirstCorner(), sprite.SecondCorner()});
}
