#pragma once

#include "list/tables/RecordTable.h"

#include <QString>

// Numbers for new rows. Rows are deleted without renumbering, so the row
// count a new row is numbered by can belong to a row still in the list; the
// new row takes the first number from there on that is free.
class RowKeyNumber
{
public:
    template <class Entry>
    static qint64 FirstFree(const RecordTable<Entry>& table, qint64 from)
    {
        qint64 number = qMax<qint64>(0, from);
        while (number <= std::numeric_limits<qint32>::max() && table.rowOfNumber(qint32(number)) >= 0)
            ++number;
        return number;
    }
    // The digits a new row's text is padded to: as many as count has, as
    // the rows read from a file are numbered, or the number's own.
    static qint16 Width(qint64 number, qint64 count);
    // number padded with zeros to Width(number, count) digits.
    static QString RowText(qint64 number, qint64 count);
};
