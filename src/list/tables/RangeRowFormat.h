#pragma once

#include "list/tables/RangeEntry.h"
#include "list/tables/RecordTable.h"

#include <QString>

// Rows of animated texture ranges: key "A07", text "07", then "Number" and
// "First" as the range shows them.
struct RangeRowFormat
{
    using Entry = RangeEntry;

    static QString NumberText(qint64 number); // "07", "123"
    static QString Key(qint64 number) { return QLatin1Char('A') + NumberText(number); }
    static QString Key(const Entry& e) { return Key(e.number); }
    static qint64 Number(const Entry& e, int column);
    static QString Cell(const Entry& e, int column);
    // Whether the number asked for reaches range other as well as its own:
    // numbers are padded to two digits only, so 10 also reaches 100 to 109,
    // whose numbers begin with its digits. Edit and Delete act on all it reaches.
    static bool Reaches(qint64 asked, qint64 other);
    static int Find(const RecordTable<Entry>& table, const QString& key);
};
