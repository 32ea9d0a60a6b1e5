#include "m_SpriteList.h"

#include "NumberText.h"
#include "TableRecords.h"
#include "m_Code.h"

#include <vector>

namespace m_SpriteList {

ListViewModel::Row RowOfSprite(const SpriteTexture& record, qint64 index, int width)
{
    ListViewModel::Row row;
    row.text = m_Code::PadLeft(NumberText::of(index), QStringLiteral("0"), width);
    row.key = QLatin1Char('S') + NumberText::of(index);
    row.subItems.reserve(SpriteTexture::ColumnCount);
    for (int column = 1; column <= SpriteTexture::ColumnCount; ++column)
        row.subItems.append(NumberText::of(record.column(column)));
    return row;
}

SpriteTexture SpriteOfRow(const ListViewModel& lsvSprites, int row)
{
    SpriteTexture record;
    const QStringList& cells = lsvSprites.row(row).subItems;
    for (int column = 1; column <= SpriteTexture::ColumnCount; ++column)
        record.setColumn(column, int(NumberText::valueOf(cells.value(column - 1))));
    return record;
}

void FillSprites(BinaryReader& file, const TablePosition& table, ListViewModel& lsvSprites)
{
    lsvSprites.clear();
    const QList<SpriteTexture> records = ReadTableRecords<SpriteTexture>(file, table);
    const int width = int(NumberText::of(table.number).size());
    std::vector<ListViewModel::Row> rows;
    rows.reserve(size_t(records.size()));
    for (qsizetype i = 0; i < records.size(); ++i)
        rows.push_back(RowOfSprite(records[i], i, width));
    lsvSprites.appendRows(std::move(rows));
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
