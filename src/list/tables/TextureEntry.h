#pragma once

#include "level/ObjectTexture.h"

#include <array>

// One object texture of an open list: its record, and the number its row
// is known by (key "T" and the number, text the number zero-padded to width
// digits). Rows keep their numbers when another row is deleted, so the
// number is the row's name, not its place; the place is what the list saves.
//
// A corner stored past its tile's edge (a top kept in its tile at Y 256
// reaches down to 512) is kept as stored until the list is saved: the
// record's pixel byte holds the low byte, which is all a list file can keep,
// and shownHigh the rest, so the row shows what was stored.
struct TextureEntry
{
    ObjectTexture record;
    qint32 number = 0;
    qint16 width = 0;
    std::array<quint8, 8> shownHigh{}; // per corner coordinate, X1 .. Y4

    // A list column as the row shows it.
    int column(int listColumn) const
    {
        return record.column(listColumn) + (isCorner(listColumn) ? 256 * shownHigh[cornerIndex(listColumn)] : 0);
    }
    // The values a column holds: 0 to 65535 for a corner's X and Y, the
    // field's own range otherwise.
    static std::pair<int, int> columnRange(int listColumn)
    {
        return isCorner(listColumn) ? std::pair{0, 0xFFFF} : ObjectTexture::columnRange(listColumn);
    }
    void setColumn(int listColumn, int value)
    {
        record.setColumn(listColumn, value);
        if (isCorner(listColumn))
            shownHigh[cornerIndex(listColumn)] = quint8(value >> 8);
    }
    static const QStringList& headers() { return ObjectTexture::headers(); }

    friend bool operator==(const TextureEntry&, const TextureEntry&) = default;

private:
    static bool isCorner(int listColumn)
    {
        return listColumn >= ObjectTexture::XColumn(0) && listColumn <= ObjectTexture::YColumn(3);
    }
    static size_t cornerIndex(int listColumn) { return size_t(listColumn - ObjectTexture::XColumn(0)); }
};
