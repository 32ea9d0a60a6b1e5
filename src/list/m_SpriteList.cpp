#include "m_SpriteList.h"

#include "NumberText.h"
#include "TableRecords.h"

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

QString SequenceNumberText(qint64 index)
{
    return NumberText::padded(index, 5);
}

ListViewModel::Row RowOfSequence(const SpriteSequence& record, qint64 index)
{
    const QString number = SequenceNumberText(index);
    return {QLatin1Char('S') + number, number,
            {NumberText::of(record.number()), NumberText::of(record.first), NumberText::of(record.objectId)},
            Qt::Unchecked};
}

SpriteSequence SequenceOfRow(const ListViewModel& lsvSequences, int row)
{
    SpriteSequence record;
    record.setNumber(int(NumberText::valueOf(lsvSequences.subItem(row, 1))));
    record.first = qint16(NumberText::valueOf(lsvSequences.subItem(row, 2)));
    record.objectId = qint32(NumberText::valueOf(lsvSequences.subItem(row, 3)));
    return record;
}

void FillSequences(BinaryReader& file, const TablePosition& table, ListViewModel& lsvSequences,
                   ListViewModel& lsvSequenceDetails)
{
    lsvSequences.clear();
    lsvSequenceDetails.clear();
    const QList<SpriteSequence> records = ReadTableRecords<SpriteSequence>(file, table);
    std::vector<ListViewModel::Row> rows;
    rows.reserve(size_t(records.size()));
    for (qsizetype i = 0; i < records.size(); ++i)
        rows.push_back(RowOfSequence(records[i], i));
    std::vector<ListViewModel::Row> details = rows;
    lsvSequences.appendRows(std::move(rows));
    lsvSequenceDetails.appendRows(std::move(details));
}

} // namespace m_SpriteList
