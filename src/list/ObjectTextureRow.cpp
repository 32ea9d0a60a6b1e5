#include "list/ObjectTextureRow.h"

#include "list/TextureGeometry.h"

#include <algorithm>
#include <climits>

namespace {

template <class Columns>
ObjectTextureRow ReadColumns(const Columns& record)
{
    using R = ObjectTextureRow;
    ObjectTextureRow read;
    read.tile = record.column(R::TileColumn);
    read.trans = record.column(R::TransColumn);
    read.firstX = record.column(R::XColumn(0));
    for (int i = 0; i < 4; ++i) {
        read.corners[size_t(i)] = QPoint(record.column(R::XColumn(i)), record.column(R::YColumn(i)));
        read.subPixels[size_t(i)] = QPoint(record.column(R::XHiColumn(i)), record.column(R::YHiColumn(i)));
    }
    return read;
}

} // namespace

ObjectTextureRow ObjectTextureRow::Of(const ObjectTexture& record)
{
    return ReadColumns(record);
}

ObjectTextureRow ObjectTextureRow::Of(const TextureEntry& entry)
{
    return ReadColumns(entry);
}

bool ObjectTextureRow::IsTriangle() const
{
    return corners[3].isNull() && subPixels[3].isNull();
}

QPoint ObjectTextureRow::BitmapCorner(int i) const
{
    return corners[size_t(i)] + QPoint(0, tile * TextureGeometry::TileSize);
}

QRect ObjectTextureRow::Bounds() const
{
    auto edge = [](int pixel, int subPixel) { return subPixel >= 128 ? pixel + 1 : pixel; };
    const int used = IsTriangle() ? 3 : 4;
    int left = INT_MAX, top = INT_MAX, right = INT_MIN, bottom = INT_MIN;
    for (int i = 0; i < used; ++i) {
        const int x = edge(corners[size_t(i)].x(), subPixels[size_t(i)].x());
        const int y = edge(corners[size_t(i)].y(), subPixels[size_t(i)].y());
        left = std::min(left, x);
        right = std::max(right, x);
        top = std::min(top, y);
        bottom = std::max(bottom, y);
    }
    return QRect(left, tile * TextureGeometry::TileSize + top, right - left, bottom - top);
}

OutlineColumns ObjectTextureRow::DrawColumns() const
{
    OutlineColumns columns(IsTriangle() ? 3 : 4);
    columns.append(BitmapCorner(0));
    if (IsTriangle())
        columns.append(BitmapCorner(1));
    columns.append(BitmapCorner(2));
    return columns;
}
