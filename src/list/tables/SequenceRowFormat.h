#pragma once

#include "list/tables/RecordTable.h"
#include "list/tables/SequenceEntry.h"

#include <QString>

// Rows of sprite sequences: key "S00003", text "00003", then "Number" (the
// length shown positive), "First" and "ObjectID".
struct SequenceRowFormat
{
    using Entry = SequenceEntry;

    static QString NumberText(qint64 number); // "00003"
    static QString Key(qint64 number) { return QLatin1Char('S') + NumberText(number); }
    static QString Key(const Entry& e) { return Key(e.number); }
    static qint64 Number(const Entry& e, int column);
    static QString Cell(const Entry& e, int column);
    static int Find(const RecordTable<Entry>& table, const QString& key);
};
