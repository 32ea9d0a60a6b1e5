#include "m_SpriteList.h"

#include "BinaryReader.h"
#include "NumberText.h"
#include "m_Code.h"

#include <vector>

namespace m_SpriteList {

namespace {

qint64 presentRecords(BinaryReader& file, const TablePosition& table, int recordSize)
{
    return qMin<qint64>(file.u32(table.offset), file.available(table.offset + 4) / recordSize);
}

} // namespace

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
    if (table.offset == 0 || table.number == 0)
        return;
    const qint64 count = presentRecords(file, table, SpriteTexture::Size);
    if (count <= 0)
        return;
    const QByteArray records = file.bytes(table.offset + 4, count * SpriteTexture::Size);
    const int width = int(NumberText::of(table.number).size());
    std::vector<ListViewModel::Row> rows;
    rows.reserve(size_t(count));
    for (qint64 i = 0; i < count; ++i)
        rows.push_back(RowOfSprite(SpriteTexture::fromBytes(records.constData() + i * SpriteTexture::Size), i, width));
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
    if (table.offset == 0 || table.number == 0)
        return;
    const qint64 count = presentRecords(file, table, SpriteSequence::Size);
    if (count <= 0)
        return;
    const QByteArray records = file.bytes(table.offset + 4, count * SpriteSequence::Size);
    std::vector<ListViewModel::Row> rows;
    rows.reserve(size_t(count));
    for (qint64 i = 0; i < count; ++i)
        rows.push_back(RowOfSequence(SpriteSequence::fromBytes(records.constData() + i * SpriteSequence::Size), i));
    std::vector<ListViewModel::Row> details = rows;
    lsvSequences.appendRows(std::move(rows));
    lsvSequenceDetails.appendRows(std::move(details));
}

} // namespace m_SpriteList
