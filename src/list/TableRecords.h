#pragma once

#include "level/BinaryReader.h"
#include "common/ListCell.h"
#include "common/ListViewModel.h"
#include "common/NumberText.h"
#include "level/ReadTableRecords.h"
#include "level/TablePosition.h"
#include "common/m_Code.h"

#include <QList>

#include <vector>

// The row number text: index zero-padded to width digits, as m_Code::PadLeft
// pads it (and cuts an index wider than width).
inline ListCell RowNumberCell(qint64 index, int width)
{
    if (index >= 0 && ListCell::digitCount(quint64(index)) <= width)
        return ListCell::number(index, width);
    return ListCell(m_Code::PadLeft(NumberText::of(index), QStringLiteral("0"), width));
}

template <class Record>
constexpr int RecordCellsPerRow = 2 + Record::ColumnCount;

// Object and sprite texture rows: key the prefix and the index, text the
// index padded to width digits, sub-items the record's list columns 1 to
// Record::ColumnCount. Writes the row's cells from out on and returns where
// they end.
template <class Record>
ListCell* PutRecordCells(const Record& record, QChar keyPrefix, qint64 index, int width, ListCell* out)
{
    *out++ = ListCell::number(index, 0, keyPrefix);
    *out++ = RowNumberCell(index, width);
    for (int column = 1; column <= Record::ColumnCount; ++column)
        *out++ = ListCell::number(record.column(column));
    return out;
}

template <class Record>
ListViewModel::Row RowOfRecord(const Record& record, QChar keyPrefix, qint64 index, int width)
{
    std::vector<ListCell> cells(RecordCellsPerRow<Record>);
    PutRecordCells(record, keyPrefix, index, width, cells.data());
    return ListViewModel::rowOf(cells);
}

template <class Record>
Record RecordOfRow(const ListViewModel& view, int row)
{
    Record record;
    for (int column = 1; column <= Record::ColumnCount; ++column)
        record.setColumn(column, int(view.subItemNumber(row, column)));
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
    view.appendCellRows(records.size(), RecordCellsPerRow<Record>, [&](qsizetype i, ListCell* cells) {
        PutRecordCells(records[i], keyPrefix, i, width, cells);
    });
}
