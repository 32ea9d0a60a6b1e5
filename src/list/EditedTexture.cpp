#include "list/EditedTexture.h"

#include "list/TextureGeometry.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

using Stored = EditedTexture::Stored;

QString Tr(const char* text)
{
    return QCoreApplication::translate("EditedTexture", text);
}

// Twice the signed area of the triangle a, b, c: 0 when they lie on a line.
qint64 Cross(QPoint a, QPoint b, QPoint c)
{
    return qint64(b.x() - a.x()) * (c.y() - a.y()) - qint64(b.y() - a.y()) * (c.x() - a.x());
}

// Per corner and axis (X of corner i at 2 i, Y at 2 i + 1): does the value
// sit on the high edge of the shape, its right or its bottom?
std::array<bool, 8> HighEdgesByExtent(const std::array<QPoint, 4>& corners, int used)
{
    std::array<bool, 8> high{};
    for (int axis = 0; axis < 2; ++axis) {
        auto value = [&](int i) { return axis == 0 ? corners[size_t(i)].x() : corners[size_t(i)].y(); };
        int lowest = value(0), highest = value(0);
        for (int i = 1; i < used; ++i) {
            lowest = std::min(lowest, value(i));
            highest = std::max(highest, value(i));
        }
        for (int i = 0; i < used; ++i)
            high[size_t(2 * i + axis)] = highest > lowest && value(i) == highest;
    }
    return high;
}

} // namespace

Stored EditedTexture::Build(const Frame& frame, const std::optional<ObjectTextureRow>& original,
                            const SubPixelConvention& convention)
{
    // A triangle has no rectangle to follow: its corners are always free.
    const bool rectangle = !frame.freeCorners && frame.sides == 4;
    Stored stored = rectangle ? PlaceRectangle(frame) : PlaceFreeCorners(frame);
    if (!stored.why.isEmpty())
        return stored;
    stored.why = rectangle ? RectangleTileFault(frame, &stored.badRow) : FreeCornerTileFault(frame, &stored.badRow);
    if (!stored.why.isEmpty())
        return stored;
    const int used = frame.sides == 4 ? 4 : 3;
    stored.why = ShapeFault(stored, used, rectangle, TextureGeometry::CornerLabels(frame.flips), &stored.badRow);
    if (!stored.why.isEmpty())
        return stored;

    std::array<bool, 8> high{};
    if (rectangle) {
        // A rectangle's edges are told by where its Lo corner is, as always.
        const std::array<QPoint, 4> bytes = TextureGeometry::SubPixelBytes(frame.loRow);
        for (int i = 0; i < 4; ++i) {
            high[size_t(2 * i)] = bytes[size_t(i)].x() == TextureGeometry::HighEdge;
            high[size_t(2 * i + 1)] = bytes[size_t(i)].y() == TextureGeometry::HighEdge;
        }
    } else {
        high = HighEdgesByExtent(stored.corners, used);
    }
    TakeBytes(stored, high, used, original, convention);
    stored.ok = true;
    return stored;
}

Stored EditedTexture::PlaceRectangle(const Frame& frame)
{
    Stored stored;
    if (frame.loRow < 0 || frame.hiRow < 0) {
        stored.why = Tr("Nothing was stored: no corner is marked Lo and Hi. Tick Free corners to store the corners "
                        "as they stand.");
        return stored;
    }
    const QPoint lo = frame.boxes[size_t(frame.loRow)];
    const QPoint hi = frame.boxes[size_t(frame.hiRow)];
    const TextureGeometry::TilePlace place = TextureGeometry::HoldInOneTile(frame.tile, lo.y(), hi.y());
    stored.tile = place.tile;
    stored.corners = TextureGeometry::StoredCorners(frame.loRow, lo.x(), place.ylo, hi.x(), place.yhi);
    stored.keptBelowTileTop = place.ylo >= TextureGeometry::TileSize;
    return stored;
}

Stored EditedTexture::PlaceFreeCorners(const Frame& frame)
{
    Stored stored;
    const int used = frame.sides == 4 ? 4 : 3;
    int top = frame.boxes[0].y(), bottom = top;
    for (int i = 1; i < used; ++i) {
        top = std::min(top, frame.boxes[size_t(i)].y());
        bottom = std::max(bottom, frame.boxes[size_t(i)].y());
    }
    const TextureGeometry::TilePlace place = TextureGeometry::HoldInOneTile(frame.tile, top, bottom);
    const int shift = top - place.ylo;
    stored.tile = place.tile;
    for (int i = 0; i < used; ++i) {
        const QPoint box = frame.boxes[size_t(i)];
        stored.corners[size_t(i)] = QPoint(box.x(), std::min(box.y(), top + TextureGeometry::TileSize) - shift);
    }
    stored.keptBelowTileTop = place.ylo >= TextureGeometry::TileSize;
    return stored;
}

int EditedTexture::TileOf(int bitmapY)
{
    return bitmapY < 0 ? -1 : bitmapY / TextureGeometry::TileSize;
}

QString EditedTexture::OutsideTile(const QString& corner, int bitmapY, int tile, const QString& whose)
{
    return Tr("Nothing was stored: corner %1 (Y %2) lies outside tile %3 of %4, which holds Y %5 to %6.")
        .arg(corner)
        .arg(bitmapY)
        .arg(tile)
        .arg(whose)
        .arg(tile * TextureGeometry::TileSize)
        .arg(tile * TextureGeometry::TileSize + TextureGeometry::TileSize - 1);
}

QString EditedTexture::RectangleTileFault(const Frame& frame, int* badRow)
{
    // The Hi corner decides the other two: it alone can leave the Lo corner's tile.
    const int tile = TileOf(frame.boxes[size_t(frame.loRow)].y());
    const int hiY = frame.boxes[size_t(frame.hiRow)].y();
    if (TileOf(hiY) == tile)
        return {};
    *badRow = frame.hiRow;
    return OutsideTile(TextureGeometry::CornerLabels(frame.flips).value(frame.hiRow), hiY, tile, Tr("the Lo corner"));
}

QString EditedTexture::FreeCornerTileFault(const Frame& frame, int* badRow)
{
    // The texture lies in the tile most of its corners lie in; on a tie, the
    // tile the frame names, else the first corner's. A corner typed away
    // from it is the one at fault, whichever way the others lie.
    const int used = frame.sides == 4 ? 4 : 3;
    std::array<int, 4> tiles{};
    for (int i = 0; i < used; ++i)
        tiles[size_t(i)] = TileOf(frame.boxes[size_t(i)].y());
    auto corners = [&](int tile) { return int(std::count(tiles.begin(), tiles.begin() + used, tile)); };
    int tile = tiles[0];
    for (int i = 1; i < used; ++i) {
        if (corners(tiles[size_t(i)]) > corners(tile))
            tile = tiles[size_t(i)];
    }
    if (corners(frame.tile) == corners(tile))
        tile = frame.tile;
    for (int i = 0; i < used; ++i) {
        if (tiles[size_t(i)] != tile) {
            *badRow = i;
            return OutsideTile(TextureGeometry::CornerLabels(frame.flips).value(i), frame.boxes[size_t(i)].y(), tile,
                               Tr("the texture's other corners"));
        }
    }
    return {};
}

QString EditedTexture::ShapeFault(const Stored& stored, int used, bool rectangle, const QStringList& labels,
                                  int* badRow)
{
    const auto& c = stored.corners;
    for (int i = 0; i < used; ++i) {
        const QPoint corner = c[size_t(i)];
        if (corner.x() < 0 || corner.x() >= TextureGeometry::TileSize || corner.y() < 0) {
            *badRow = i;
            return Tr("Nothing was stored: corner %1 (X %2, Y %3 in tile %4) lies outside its tile, which holds "
                      "X and Y from 0 to 255.")
                .arg(labels.value(i))
                .arg(corner.x())
                .arg(corner.y())
                .arg(stored.tile);
        }
    }
    if (used == 3) {
        for (auto [a, b] : {std::pair{0, 1}, std::pair{1, 2}, std::pair{0, 2}}) {
            if (c[size_t(a)] == c[size_t(b)]) {
                *badRow = b;
                return Tr("Nothing was stored: corners %1 and %2 of the triangle are the same point; a triangle "
                          "needs three.")
                    .arg(labels.value(a), labels.value(b));
            }
        }
        if (Cross(c[0], c[1], c[2]) == 0) {
            *badRow = 2;
            return Tr("Nothing was stored: the triangle's three corners lie on one line, so it covers no pixel.");
        }
        return {};
    }
    if (Cross(c[0], c[1], c[2]) == 0 && Cross(c[0], c[2], c[3]) == 0 && Cross(c[0], c[1], c[3]) == 0) {
        *badRow = 2;
        return rectangle ? Tr("Nothing was stored: the rectangle has no width or no height; give the Lo and Hi "
                              "corners different X and Y.")
                         : Tr("Nothing was stored: the four corners lie on one line, so the texture covers no "
                              "pixel.");
    }
    return {};
}

void EditedTexture::TakeBytes(Stored& stored, const std::array<bool, 8>& highEdges, int used,
                              const std::optional<ObjectTextureRow>& original,
                              const SubPixelConvention& convention)
{
    const int originalUsed = original ? (original->IsTriangle() ? 3 : 4) : 0;
    for (int i = 0; i < used; ++i) {
        const QPoint corner = stored.corners[size_t(i)];
        const bool kept = i < originalUsed;
        const QPoint was = kept ? original->corners[size_t(i)] : QPoint();
        const QPoint wasBytes = kept ? original->subPixels[size_t(i)] : QPoint();
        const int x = kept && was.x() == corner.x() ? wasBytes.x() : convention.Byte(true, highEdges[size_t(2 * i)]);
        const int y =
            kept && was.y() == corner.y() ? wasBytes.y() : convention.Byte(false, highEdges[size_t(2 * i + 1)]);
        stored.bytes[size_t(i)] = QPoint(x, y);
    }
}

RecordBuilder<TextureEntry> EditedTexture::Record(const Stored& stored, int attribute, int sides)
{
    RecordBuilder<TextureEntry> record;
    record.set({{ObjectTextureRow::TileColumn, stored.tile}, {ObjectTextureRow::TransColumn, attribute}});
    for (int i = 0; i < 4; ++i) {
        // A triangle has no fourth corner: zeros, whatever the boxes hold.
        const bool unused = i == 3 && sides != 4;
        const QPoint corner = unused ? QPoint() : stored.corners[size_t(i)];
        const QPoint byte = unused ? QPoint() : stored.bytes[size_t(i)];
        record.set({{ObjectTextureRow::XColumn(i), corner.x()},
                    {ObjectTextureRow::YColumn(i), corner.y()},
                    {ObjectTextureRow::XHiColumn(i), byte.x()},
                    {ObjectTextureRow::YHiColumn(i), byte.y()}});
    }
    return record;
}
