#pragma once

#include <QPoint>
#include <QString>
#include <QStringList>

#include <array>
#include <optional>

// What the corner rows of an object texture mean. A texture is an axis-aligned
// rectangle given by its Lo corner (smaller X and Y) and its Hi corner; the
// row the Lo corner sits on (0 to 3) says how the texture is oriented, and
// so which pixel and sub-pixel byte each of the four stored corners takes.
// The flips move the Lo corner: horizontal to row 1, vertical to row 3, both
// to row 2.
class TextureGeometry
{
public:
    static constexpr int TileSize = 256;
    static constexpr int LowEdge = 1;   // sub-pixel byte of a left or top edge
    static constexpr int HighEdge = 255; // of a right or bottom edge

    struct Flips
    {
        bool horizontal = false;
        bool vertical = false;
    };

    // A rectangle's place in the bitmap once held to one tile.
    struct TilePlace
    {
        int tile;
        int ylo;
        int yhi;
    };

    // The stored corners 1 to 4 of the rectangle (xlo, ylo)-(xhi, yhi).
    static std::array<QPoint, 4> StoredCorners(int loRow, int xlo, int ylo, int xhi, int yhi);
    // The sub-pixel bytes of corners 1 to 4: X in x(), Y in y().
    static std::array<QPoint, 4> SubPixelBytes(int loRow);

    // A texture is at most one tile high; a Lo corner below the first tile
    // (Y greater than 256, not equal) moves the rectangle into its own tile.
    static TilePlace HoldInOneTile(int tile, int ylo, int yhi);

    static Flips FlipState(int loRow);
    static QStringList CornerLabels(Flips flips);

    // "Hi" for two high-edge bytes, "Lo" for two low-edge bytes, else "".
    static QString MarkerOf(int xByte, int yByte);

    struct LoHi
    {
        int lo;
        int hi;
    };
    // The Lo and Hi rows of four corners that go round an axis-aligned
    // rectangle: two X and two Y values, each combination once, Lo on the
    // smaller X and Y and Hi on the opposite corner. Nothing for any other
    // shape, whatever the sub-pixel bytes say.
    static std::optional<LoHi> RectangleLoHi(const std::array<QPoint, 4>& corners);

    // Attribute values 0, 1, 2 and the captions of the attribute button.
    static QString AttributeCaption(int value);
    // The attribute a loaded row shows: 0, 1 or 2; anything else is opaque.
    static int KnownAttribute(int value);
    // The value after a press of the attribute button showing caption, on a
    // list of the given level version; nothing on a version without
    // attributes to choose (TR 1).
    static std::optional<int> NextAttribute(quint32 listVersion, const QString& caption);
};
