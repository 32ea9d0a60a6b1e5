#pragma once

#include <QStringList>
#include <QtGlobal>

#include <array>
#include <utility>

// One object texture record: 20 bytes, copied byte for byte between a level,
// a list file and a rebuilt level.
//
//   0  Attribute (2)   2  Tile (2)
//   4  X1Hi X1 Y1Hi Y1   8  X2Hi X2 Y2Hi Y2   12  corner 3   16  corner 4
//
// Each corner coordinate is a little-endian 16-bit value whose first byte the
// list views show as the "Hi" column and whose second byte is the pixel.
struct ObjectTexture
{
    static constexpr int Size = 20;
    static constexpr int ColumnCount = 18; // the list columns after "No"

    // The list columns by name, "Tile#" first; corner is 0 to 3.
    static constexpr int TileColumn = 1;
    static constexpr int TransColumn = 2;
    static constexpr int XColumn(int corner) { return 3 + 2 * corner; }
    static constexpr int YColumn(int corner) { return 4 + 2 * corner; }
    static constexpr int XHiColumn(int corner) { return 11 + 2 * corner; }
    static constexpr int YHiColumn(int corner) { return 12 + 2 * corner; }

    std::array<quint8, Size> bytes{};

    static ObjectTexture fromBytes(const char* data);
    void toBytes(char* data) const;

    quint16 attribute() const;
    quint16 tile() const;

    // Value of list column 1 ("Tile#") to 18 ("Y4Hi").
    int column(int listColumn) const;
    void setColumn(int listColumn, int value);
    // The values a column's field can hold: 0 to 65535 for the two words,
    // 0 to 255 for the corner bytes.
    static std::pair<int, int> columnRange(int listColumn);

    // "No", "Tile#", "Trans", "X1", "Y1", ... "Y4", "X1Hi", ... "Y4Hi".
    static const QStringList& headers();

    friend bool operator==(const ObjectTexture&, const ObjectTexture&) = default;
};
