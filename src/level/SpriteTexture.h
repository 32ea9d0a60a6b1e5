#pragma once

#include <QStringList>
#include <QtGlobal>

#include <utility>

// One sprite texture record, 16 bytes:
//   0 Tile (u16)  2 X (u8)  3 Y (u8)  4 Width (u16)  6 Height (u16)
//   8 Left  10 Top  12 Right  14 Bottom (all s16)
// The list columns follow the record order.
struct SpriteTexture
{
    static constexpr int Size = 16;
    static constexpr int ColumnCount = 9; // the list columns after "No"

    quint16 tile = 0;
    quint8 x = 0;
    quint8 y = 0;
    quint16 width = 0;
    quint16 height = 0;
    qint16 left = 0;
    qint16 top = 0;
    qint16 right = 0;
    qint16 bottom = 0;

    static SpriteTexture fromBytes(const char* data);
    void toBytes(char* data) const;

    // Value of list column 1 ("Tile#") to 9 ("Bottom").
    int column(int listColumn) const;
    void setColumn(int listColumn, int value);
    // The values a column's field can hold.
    static std::pair<int, int> columnRange(int listColumn);

    // "No", "Tile#", "X", "Y", "Width", "Height", "Left", "Top", "Right", "Bottom".
    static const QStringList& headers();

    friend bool operator==(const SpriteTexture&, const SpriteTexture&) = default;
};
