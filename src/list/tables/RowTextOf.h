#pragma once

#include "list/tables/RecordTable.h"

#include <QString>

// The text of the row numbered number ("0012"), as commands and messages
// name it; "" when no row has the number.
template <class Format>
QString RowTextOf(const RecordTable<typename Format::Entry>& table, qint32 number)
{
    const int row = table.rowOfNumber(number);
    return row < 0 ? QString() : Format::Cell(table.at(row), 0);
}
