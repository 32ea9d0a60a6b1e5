#include "list/m_SpriteList.h"

#include "common/NumberText.h"
#include "list/TableRecords.h"

#include <vector>

namespace m_SpriteList {

ListViewModel::Row RowOfSprite(const SpriteTexture& record, qint64 index, int width)
{
    return RowOfRecord(record, QLatin1Char('S'), index, width);
}

SpriteTexture SpriteOfRow(const ListViewModel& lsvSprites, int row)
{
    return RecordOfRow<SpriteTexture>(lsvSprites, row);
}

void FillSprites(BinaryReader& file, const TablePosition& table, ListViewModel& lsvSprites)
{
    FillRecordRows<SpriteTexture>(file, table, lsvSprites, QLatin1Char('S'));
}

namespace {

constexpr int SequenceNumberWidth = 5;
constexpr int SequenceCellsPerRow = 5;

void PutSequenceCells(const SpriteSequence& record, qint64 index, ListCell* out)
{
    *out++ = ListCell::number(index, SequenceNumberWidth, QLatin1Char('S'));
    *out++ = ListCell::number(index, SequenceNumberWidth);
    *out++ = ListCell::number(record.number());
    *out++ = ListCell::number(record.first);
    *out = ListCell::number(record.objectId);
}

} // namespace

QString SequenceNumberText(qint64 index)
{
    return NumberText::padded(index, SequenceNumberWidth);
}

ListViewModel::Row RowOfSequence(const SpriteSequence& record, qint64 index)
{
    std::vector<ListCell> cells(SequenceCellsPerRow);
    PutSequenceCells(record, index, cells.data());
    return ListViewModel::rowOf(cells);
}

SpriteSequence SequenceOfRow(const ListViewModel& lsvSequences, int row)
{
    SpriteSequence record;
    record.setNumber(int(lsvSequences.subItemNumber(row, 1)));
    record.first = qint16(lsvSequences.subItemNumber(row, 2));
    record.objectId = qint32(lsvSequences.subItemNumber(row, 3));
    return record;
}

void FillSequences(BinaryReader& file, const TablePosition& table, ListViewModel& lsvSequences,
                   ListViewModel& lsvSequenceDetails)
{
    lsvSequences.clear();
    lsvSequenceDetails.clear();
    const QList<SpriteSequence> records = ReadTableRecords<SpriteSequence>(file, table);
    const auto write = [&records](qsizetype i, ListCell* cells) { PutSequenceCells(records[i], i, cells); };
    lsvSequences.appendCellRows(records.size(), SequenceCellsPerRow, write);
    lsvSequenceDetails.appendCellRows(records.size(), SequenceCellsPerRow, write);
}

} // namespace m_SpriteList
