#pragma once

#include "list/tables/RangeTextureEntry.h"
#include "list/tables/RecordTable.h"

#include <QString>

// Rows of the textures of ranges: key "A", the range's number and the place
// ("A0712"; none for an unkeyed row), text "07-12", then "Texture #".
struct RangeTextureFormat
{
    using Entry = RangeTextureEntry;

    static QString Key(qint64 range, qint64 place);
    // The digits of a key after its "A" as one number with their count, so
    // keys compare without being spelt: equal codes, equal keys.
    static quint64 KeyCode(qint64 range, qint64 place);
    static QString Key(const Entry& e) { return e.keyed ? Key(e.range, e.place) : QString(); }
    static qint64 Number(const Entry& e, int column) { return column == 1 ? e.texture : 0; }
    static QString Cell(const Entry& e, int column);
    static int Find(const RecordTable<Entry>& table, const QString& key);
};
