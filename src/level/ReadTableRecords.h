#pragma once

#include "level/BinaryReader.h"
#include "level/TablePosition.h"

#include <QList>

// How many records of a table lie wholly inside the file: the count read at
// the table's offset, cut to the records the bytes after it hold. 0 for a
// table never found (offset or number 0) and for a negative number (a
// level's signed count), which holds nothing.
inline qint64 PresentRecordCount(BinaryReader& file, const TablePosition& table, qint64 recordSize)
{
    if (table.offset == 0 || table.number <= 0)
        return 0;
    return qMax<qint64>(0, qMin<qint64>(file.u32(table.offset), file.available(table.offset + 4) / recordSize));
}

// The records of a table: only those lying wholly inside the file are taken,
// so a count that claims more than the file holds yields what is there and
// allocates nothing beyond it.
template <class Record>
QList<Record> ReadTableRecords(BinaryReader& file, const TablePosition& table)
{
    const qint64 count = PresentRecordCount(file, table, Record::Size);
    if (count <= 0)
        return {};
    const QByteArray bytes = file.bytes(table.offset + 4, count * Record::Size);
    QList<Record> records;
    records.reserve(count);
    for (qint64 i = 0; i < count; ++i)
        records.append(Record::fromBytes(bytes.constData() + i * Record::Size));
    return records;
}
