#pragma once

#include "common/NumberText.h"
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
        return column >= 1 && column <= decltype(e.record)::ColumnCount ? e.record.column(column) : 0;
    }
    static QString Cell(const Entry& e, int column)
    {
        if (column == 0)
            return NumberText::padded(e.number, e.width);
        return column <= decltype(e.record)::ColumnCount ? QString::number(Number(e, column)) : QString();
    }
    // The number a key names, or -1 for a key no entry of the table can have.
    static qint64 NumberOfKey(QStringView key)
    {
        if (key.size() < 2 || key.front() != QChar(Letter))
            return -1;
        bool ok = false;
        const qint64 number = key.mid(1).toLongLong(&ok);
        return ok && number >= 0 && key.mid(1) == QString::number(number) ? number : -1;
    }
    static int Find(const RecordTable<Entry>& table, const QString& key)
    {
        const qint64 number = NumberOfKey(key);
        return number < 0 || number > std::numeric_limits<qint32>::max() ? -1 : table.rowOfNumber(qint32(number));
    }
};
