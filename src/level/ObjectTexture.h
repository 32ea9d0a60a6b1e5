#pragma once

#include <QStringList>
#include <QtGlobal>

#include <array>

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

    std::array<quint8, Size> bytes{};

    static ObjectTexture fromBytes(const char* data);
    void toBytes(char* data) const;

    quint16 attribute() const;
    quint16 tile() const;

    // Value of list column 1 ("Tile#") to 18 ("Y4Hi").
    int column(int listColumn) const;
    void setColumn(int listColumn, int value);

    // "No", "Tile#", "Trans", "X1", "Y1", ... "Y4", "X1Hi", ... "Y4Hi".
    static const QStringList& headers();

    friend bool operator==(const ObjectTexture&, const ObjectTexture&) = default;
};
