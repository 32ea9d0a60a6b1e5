#pragma once

#include <QString>

class ListViewModel;

// Numbers for the keys of new rows (a letter and a number: T7, S12). Rows
// are deleted without renumbering, so the row count a new row is numbered
// by can belong to a row still in the list; a keyed list would refuse the
// new row. The new row takes the first number from there on that is free.
class RowKeyNumber
{
public:
    static qint64 FirstFree(const ListViewModel& rows, QChar prefix, qint64 from);
    static QString Key(QChar prefix, qint64 number);
    // number padded with zeros to as many digits as count has, as the rows
    // read from a file are numbered.
    static QString RowText(qint64 number, qint64 count);
};
