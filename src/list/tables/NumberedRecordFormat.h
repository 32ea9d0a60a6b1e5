#pragma once

#include "common/NumberText.h"
#include "list/tables/KeyNumber.h"
#include "list/tables/RecordTable.h"

#include <QString>

// How a row of object or sprite textures reads: key the letter and the
// entry's number ("T12"), text the number zero-padded to the entry's width
// ("0012"), then the record's list columns.
template <class EntryType, char16_t Letter>
struct NumberedRecordFormat
{
    using Entry = EntryType;

    static QString Key(qint64 number) { return QChar(Letter) + QString::number(number); }
    static QString Key(const Entry& e) { return Key(e.number); }
    static qint64 Number(const Entry& e, int column)
    {
        if (column < 1 || column > decltype(e.record)::ColumnCount)
            return 0;
        // An entry that shows more than its record holds says so itself.
        if constexpr (requires { e.column(column); })
            return e.column(column);
        else
            return e.record.column(column);
    }
    static QString Cell(const Entry& e, int column)
    {
        if (column == 0)
            return NumberText::padded(e.number, e.width);
        return column <= decltype(e.record)::ColumnCount ? QString::number(Number(e, column)) : QString();
    }
    static int Find(const RecordTable<Entry>& table, const QString& key)
    {
        const qint32 number = KeyNumber(key, QChar(Letter), [](qint64 n) { return Key(n); });
        return number < 0 ? -1 : table.rowOfNumber(number);
    }
};
