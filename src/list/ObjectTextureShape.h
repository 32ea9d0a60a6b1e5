#pragma once

#include "ObjectTexture.h"

#include <QPoint>
#include <QRect>

#include <optional>

class ListViewModel;

// Where one object texture lies on the texture bitmap, worked out from its
// row of lsvTextures: its corners in whole-bitmap pixels (the tile's offset,
// tile x 256, added to every Y, since the tiles are stacked downwards) and
// the rectangle it covers. The animation preview shows that rectangle; the
// outline drawing joins the corners.
class ObjectTextureShape
{
public:
    explicit ObjectTextureShape(const ObjectTexture& record);

    // The row of lsvTextures keyed "T" and number: nothing when there is none.
    static std::optional<ObjectTextureShape> ofTexture(const ListViewModel& lsvTextures, qint64 number);
    static ObjectTextureShape ofRow(const ListViewModel& lsvTextures, int row);

    // 3 when the fourth corner is all 0 (pixels and edge bytes), else 4.
    int Sides() const;
    bool IsTriad() const { return Sides() == 3; }

    // Corner 0 to 3 (the list's corners 1 to 4), in whole-bitmap pixels.
    QPoint Corner(int corner) const;

    // The pixels the texture covers. A coordinate whose edge byte is 128 or
    // more (255 on a high edge) stands for the far side of its pixel, so a
    // square from pixel 0 to pixel 63 covers 64 pixels. A triangle's unused
    // fourth corner plays no part.
    QRect Bounds() const;

private:
    static int EdgeOf(int pixel, int edgeByte);

    ObjectTexture m_record;
};
