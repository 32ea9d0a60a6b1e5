#include "list/TextureGeometry.h"

#include "level/LevelVersion.h"

#include <algorithm>

namespace {

const QString Opaque = QStringLiteral("Is Opaque");
const QString Transparent = QStringLiteral("Is Transparent");
const QString Equal = QStringLiteral("Is Equal");

bool CaptionIs(const QString& caption, const QString& expected)
{
    return caption.compare(expected, Qt::CaseInsensitive) == 0;
}

} // namespace

std::array<QPoint, 4> TextureGeometry::StoredCorners(int loRow, int xlo, int ylo, int xhi, int yhi)
{
    switch (loRow) {
    case 1:
        return {QPoint(xhi, ylo), QPoint(xlo, ylo), QPoint(xlo, yhi), QPoint(xhi, yhi)};
    case 2:
        return {QPoint(xhi, yhi), QPoint(xlo, yhi), QPoint(xlo, ylo), QPoint(xhi, ylo)};
    case 3:
        return {QPoint(xlo, yhi), QPoint(xhi, yhi), QPoint(xhi, ylo), QPoint(xlo, ylo)};
    default:
        return {QPoint(xlo, ylo), QPoint(xhi, ylo), QPoint(xhi, yhi), QPoint(xlo, yhi)};
    }
}

std::array<QPoint, 4> TextureGeometry::SubPixelBytes(int loRow)
{
    // X runs low-high-high-low with Lo on the left (rows 0 and 3), mirrored
    // otherwise; Y runs low-low-high-high with Lo on top (rows 0 and 1).
    const bool loLeft = loRow == 0 || loRow == 3;
    const bool loTop = loRow == 0 || loRow == 1;
    const int l = LowEdge, h = HighEdge;
    const std::array<int, 4> xs = loLeft ? std::array<int, 4>{l, h, h, l} : std::array<int, 4>{h, l, l, h};
    const std::array<int, 4> ys = loTop ? std::array<int, 4>{l, l, h, h} : std::array<int, 4>{h, h, l, l};
    return {QPoint(xs[0], ys[0]), QPoint(xs[1], ys[1]), QPoint(xs[2], ys[2]), QPoint(xs[3], ys[3])};
}

TextureGeometry::TilePlace TextureGeometry::HoldInOneTile(int tile, int ylo, int yhi)
{
    if (yhi - ylo > TileSize)
        yhi = ylo + TileSize;
    if (ylo > TileSize) {
        tile = ylo / TileSize;
        ylo -= tile * TileSize;
        yhi -= tile * TileSize;
    }
    return {tile, ylo, yhi};
}

TextureGeometry::Flips TextureGeometry::FlipState(int loRow)
{
    switch (loRow) {
    case 1: return {true, false};
    case 2: return {true, true};
    case 3: return {false, true};
    default: return {false, false};
    }
}

QStringList TextureGeometry::CornerLabels(Flips flips)
{
    if (flips.horizontal && flips.vertical)
        return {QStringLiteral("3"), QStringLiteral("4"), QStringLiteral("1"), QStringLiteral("2")};
    if (flips.horizontal)
        return {QStringLiteral("2"), QStringLiteral("1"), QStringLiteral("4"), QStringLiteral("3")};
    if (flips.vertical)
        return {QStringLiteral("4"), QStringLiteral("3"), QStringLiteral("2"), QStringLiteral("1")};
    return {QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3"), QStringLiteral("4")};
}

QString TextureGeometry::MarkerOf(int xByte, int yByte)
{
    if (xByte == HighEdge && yByte == HighEdge)
        return QStringLiteral("Hi");
    if (xByte == LowEdge && yByte == LowEdge)
        return QStringLiteral("Lo");
    return {};
}

std::optional<TextureGeometry::LoHi> TextureGeometry::RectangleLoHi(const std::array<QPoint, 4>& corners)
{
    int left = corners[0].x(), right = left, top = corners[0].y(), bottom = top;
    for (const QPoint& corner : corners) {
        left = std::min(left, corner.x());
        right = std::max(right, corner.x());
        top = std::min(top, corner.y());
        bottom = std::max(bottom, corner.y());
    }
    if (left == right || top == bottom)
        return std::nullopt;
    int lo = -1, hi = -1, seen = 0;
    for (int i = 0; i < 4; ++i) {
        const QPoint c = corners[size_t(i)];
        if ((c.x() != left && c.x() != right) || (c.y() != top && c.y() != bottom))
            return std::nullopt;
        const int bit = (c.x() == right ? 1 : 0) + (c.y() == bottom ? 2 : 0);
        seen |= 1 << bit;
        if (c == QPoint(left, top))
            lo = i;
        if (c == QPoint(right, bottom))
            hi = i;
    }
    // All four combinations, and Lo and Hi across a diagonal: the corners go
    // round the rectangle rather than across it.
    if (seen != 0xF || (lo + 2) % 4 != hi)
        return std::nullopt;
    return LoHi{lo, hi};
}

QString TextureGeometry::AttributeCaption(int value)
{
    switch (value) {
    case 1: return Transparent;
    case 2: return Equal;
    default: return Opaque;
    }
}

int TextureGeometry::KnownAttribute(int value)
{
    return value == 1 || value == 2 ? value : 0;
}

std::optional<int> TextureGeometry::NextAttribute(quint32 listVersion, const QString& caption)
{
    const bool tr3 = listVersion == LevelVersion::TR3;
    if (listVersion != LevelVersion::TR2 && !tr3)
        return std::nullopt;
    if (CaptionIs(caption, Opaque))
        return 1;
    // Only TR 3 knows the third value; TR 2 goes back to opaque.
    if (CaptionIs(caption, Transparent) && tr3)
        return 2;
    return 0;
}
