#pragma once

#include "list/ObjectTextureRow.h"
#include "list/RecordBuilder.h"
#include "list/tables/TextureEntry.h"
#include "list/SubPixelConvention.h"
#include "list/TextureGeometry.h"

#include <QPoint>
#include <QString>

#include <array>
#include <optional>

// The texture of the edition frame turned into what the complete list
// stores: the tile, the four corners within the tile and their sub-pixel
// bytes. A rectangle is built from its Lo and Hi corners; free corners (any
// triangle, any quad that is no rectangle) are taken as they stand. Either
// way the texture lies in one tile: a corner typed outside the tile of the
// others (of a rectangle, outside the Lo corner's tile) is refused, never
// moved. The texture moves into the tile its top lies in when that is below
// the first tile (a top at exactly 256 stays in the tile the frame names).
//
// Sub-pixel bytes: a corner whose coordinate is what the row held keeps the
// row's byte, so Edit then Accept with no change writes the row back as it
// was; a changed coordinate takes the convention's byte for its edge.
class EditedTexture
{
public:
    struct Frame
    {
        int tile = 0;
        int sides = 4;
        bool freeCorners = false;
        int loRow = -1; // rows marked Lo and Hi, -1 for none
        int hiRow = -1;
        std::array<QPoint, 4> boxes{}; // each row's X and whole-bitmap Y
        // The flips shown: a refusal names a corner by the label its row shows.
        TextureGeometry::Flips flips{};
    };

    struct Stored
    {
        bool ok = false;
        QString why;     // when nothing can be stored: what and why, one line
        int badRow = -1; // the row whose boxes are at fault, -1 for none
        int tile = 0;
        std::array<QPoint, 4> corners{};
        std::array<QPoint, 4> bytes{};
        // The top stayed at Y 256 of the tile the frame named, not moved down
        // into the next tile.
        bool keptBelowTileTop = false;
    };

    // original is the row being edited, nothing for a new one.
    static Stored Build(const Frame& frame, const std::optional<ObjectTextureRow>& original,
                        const SubPixelConvention& convention);

    // The row stored: the rectangle or corners, their bytes, the tile and
    // the attribute; a triangle's fourth corner all zeros. A corner value
    // the row cannot hold is refused by the builder, naming its column.
    static RecordBuilder<TextureEntry> Record(const Stored& stored, int attribute, int sides);

private:
    static Stored PlaceRectangle(const Frame& frame);
    static Stored PlaceFreeCorners(const Frame& frame);
    // The whole-bitmap tile of a Y; -1 above the bitmap.
    static int TileOf(int bitmapY);
    static QString OutsideTile(const QString& corner, int bitmapY, int tile, const QString& whose);
    static QString RectangleTileFault(const Frame& frame, int* badRow);
    static QString FreeCornerTileFault(const Frame& frame, int* badRow);
    static QString ShapeFault(const Stored& stored, int used, bool rectangle, const QStringList& labels,
                              int* badRow);
    static void TakeBytes(Stored& stored, const std::array<bool, 8>& highEdges, int used,
                          const std::optional<ObjectTextureRow>& original, const SubPixelConvention& convention);
};
