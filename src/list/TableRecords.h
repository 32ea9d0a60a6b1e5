#pragma once

#include "BinaryReader.h"
#include "ListViewModel.h"
#include "NumberText.h"
#include "TablePosition.h"
#include "m_Code.h"

#include <QList>

#include <vector>

// The records of a table: the count is read at the table's offset, and only
// records lying wholly inside the file are taken, so a count that claims more
// than the file holds yields what is there and allocates nothing beyond it.
// An offset or number of 0 means the table was never found, and a negative
// number (a level's signed count) holds nothing: no records.
template <class Record>
QList<Record> ReadTableRecords(BinaryReader& file, const TablePosition& table)
{
    if (table.offset == 0 || table.number <= 0)
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

// Object and sprite texture rows: text the record's index padded to width
// digits, key the prefix and the index, sub-items the record's list columns
// 1 to Record::ColumnCount.
template <class Record>
ListViewModel::Row RowOfRecord(const Record& record, QChar keyPrefix, qint64 index, int width)
{
    ListViewModel::Row row;
    row.text = m_Code::PadLeft(NumberText::of(index), QStringLiteral("0"), width);
    row.key = keyPrefix + NumberText::of(index);
    row.subItems.reserve(Record::ColumnCount);
    for (int column = 1; column <= Record::ColumnCount; ++column)
        row.subItems.append(NumberText::of(record.column(column)));
    return row;
}

template <class Record>
Record RecordOfRow(const ListViewModel& view, int row)
{
    Record record;
    const QStringList& cells = view.row(row).subItems;
    for (int column = 1; column <= Record::ColumnCount; ++column)
        record.setColumn(column, int(NumberText::valueOf(cells.value(column - 1))));
    return record;
}

// Empties view, then adds a row per record of the table, numbered to as many
// digits as the table's number has.
template <class Record>
void FillRecordRows(BinaryReader& file, const TablePosition& table, ListViewModel& view, QChar keyPrefix)
{
    view.clear();
    const QList<Record> records = ReadTableRecords<Record>(file, table);
    const int width = int(NumberText::of(table.number).size());
    std::vector<ListViewModel::Row> rows;
    rows.reserve(size_t(records.size()));
    for (qsizetype i = 0; i < records.size(); ++i)
        rows.push_back(RowOfRecord(records[i], keyPrefix, i, width));
    view.appendRows(std::move(rows));
}
