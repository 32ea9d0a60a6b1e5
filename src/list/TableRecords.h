#pragma once

#include "BinaryReader.h"
#include "TablePosition.h"

#include <QList>

// The records of a table: the count is read at the table's offset, and only
// records lying wholly inside the file are taken, so a count that claims more
// than the file holds yields what is there and allocates nothing beyond it.
// An offset or number of 0 means the table was never found: no records.
template <class Record>
QList<Record> ReadTableRecords(BinaryReader& file, const TablePosition& table)
{
    if (table.offset == 0 || table.number == 0)
        return {};
    const qint64 count = qMin<qint64>(file.u32(table.offset), file.available(table.offset + 4) / Record::Size);
    if (count <= 0)
        return {};
    const QByteArray bytes = file.bytes(table.offset + 4, count * Record::Size);
    QList<Record> records;
    records.reserve(count);
    for (qint64 i = 0; i < count; ++i)
        records.append(Record::fromBytes(bytes.constData() + i * Record::Size));
    return records;
}
