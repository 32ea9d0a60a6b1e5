#include "synthetic/SyntheticTextures.h"

#include "list/TextureGeometry.h"

#include <QPoint>

#include <algorithm>
#include <array>

namespace {

using Convention = SyntheticTextures::Convention;

void SetCorner(ObjectTexture& record, int corner, QPoint at, QPoint bytes)
{
    record.setColumn(ObjectTexture::XColumn(corner), at.x());
    record.setColumn(ObjectTexture::YColumn(corner), at.y());
    record.setColumn(ObjectTexture::XHiColumn(corner), bytes.x());
    record.setColumn(ObjectTexture::YHiColumn(corner), bytes.y());
}

} // namespace

std::pair<int, int> SyntheticTextures::EdgeBytes(Convention convention, int row, bool triangle, bool xAxis)
{
    switch (convention) {
    case Convention::Zero:
        return {0, 0};
    case Convention::Half:
        return triangle ? std::pair{0, 0} : std::pair{127, 127};
    case Convention::Mixed: {
        // Whole rows of 0 and of 1 / 255, and rows that mix them by axis.
        static constexpr std::array<std::pair<int, int>, 4> kinds{{{0, 0}, {1, 255}, {0, 255}, {1, 0}}};
        return kinds[size_t((row + (xAxis ? 0 : row / 4)) % 4)];
    }
    case Convention::LowHigh:
        break;
    }
    return {TextureGeometry::LowEdge, TextureGeometry::HighEdge};
}

QList<ObjectTexture> SyntheticTextures::Rows(Convention convention, int count, int tiles)
{
    QList<ObjectTexture> rows;
    rows.reserve(count);
    tiles = std::max(1, tiles);
    for (int row = 0; row < count; ++row) {
        // Every seventh row from the second starts at the top of its tile.
        const int xlo = (row * 37) % 200, ylo = row % 7 == 1 ? 0 : (row * 53) % 200;
        const int xhi = xlo + 8 + row % 48, yhi = ylo + 8 + (row * 7) % 48;
        const int first = row % 4;
        const std::array<QPoint, 4> rectangle = TextureGeometry::StoredCorners(first, xlo, ylo, xhi, yhi);
        const bool triangle = row % 5 == 4;

        ObjectTexture record;
        record.setColumn(ObjectTexture::TileColumn, row % tiles);
        record.setColumn(ObjectTexture::TransColumn, row % 3 == 0 ? 1 : 0);
        const auto [xLow, xHigh] = EdgeBytes(convention, row, triangle, true);
        const auto [yLow, yHigh] = EdgeBytes(convention, row, triangle, false);
        // A triangle is three corners of the rectangle, starting anywhere round it.
        const int used = triangle ? 3 : 4;
        const int start = triangle ? (row / 5) % 4 : 0;
        for (int i = 0; i < used; ++i) {
            const QPoint at = rectangle[size_t((start + i) % 4)];
            SetCorner(record, i, at, QPoint(at.x() == xhi ? xHigh : xLow, at.y() == yhi ? yHigh : yLow));
        }
        rows.append(record);
    }
    return rows;
}
