#include "m_TextureList.h"

#include "BinaryReader.h"
#include "NumberText.h"
#include "m_Code.h"

#include <QHash>

#include <vector>

namespace m_TextureList {

namespace {

int digitCount(qint64 number)
{
    return int(NumberText::of(number).size());
}

// Records of recordSize bytes that follow the count at offset and lie wholly
// inside the file, at most the count.
qint64 presentRecords(BinaryReader& file, qint64 offset, qint64 count, int recordSize)
{
    return qMin(count, file.available(offset + 4) / recordSize);
}

} // namespace

ListViewModel::Row RowOfObjectTexture(const ObjectTexture& record, qint64 index, int width)
{
    ListViewModel::Row row;
    row.text = m_Code::PadLeft(NumberText::of(index), QStringLiteral("0"), width);
    row.key = QLatin1Char('T') + NumberText::of(index);
    row.subItems.reserve(ObjectTexture::ColumnCount);
    for (int column = 1; column <= ObjectTexture::ColumnCount; ++column)
        row.subItems.append(NumberText::of(record.column(column)));
    return row;
}

ObjectTexture ObjectTextureOfRow(const ListViewModel& lsvTexture, int row)
{
    ObjectTexture record;
    const QStringList& cells = lsvTexture.row(row).subItems;
    for (int column = 1; column <= ObjectTexture::ColumnCount; ++column)
        record.setColumn(column, int(NumberText::valueOf(cells.value(column - 1))));
    return record;
}

void FillObjectTextures(BinaryReader& file, const TablePosition& table, ListViewModel& lsvTexture)
{
    lsvTexture.clear();
    if (table.offset == 0 || table.number == 0)
        return;
    const qint64 count = presentRecords(file, table.offset, file.u32(table.offset), ObjectTexture::Size);
    if (count <= 0)
        return;
    const QByteArray records = file.bytes(table.offset + 4, count * ObjectTexture::Size);
    const int width = digitCount(table.number);
    std::vector<ListViewModel::Row> rows;
    rows.reserve(size_t(count));
    for (qint64 i = 0; i < count; ++i) {
        const ObjectTexture record = ObjectTexture::fromBytes(records.constData() + i * ObjectTexture::Size);
        rows.push_back(RowOfObjectTexture(record, i, width));
    }
    lsvTexture.appendRows(std::move(rows));
}

QString AnimationNumberText(qint64 range)
{
    return NumberText::padded(range, 2);
}

void FillAnimations(const AnimatedTextureBlock& block, ListViewModel& lsvAnims, ListViewModel& lsvAnimDetails)
{
    lsvAnims.clear();
    lsvAnimDetails.clear();
    std::vector<ListViewModel::Row> ranges;
    std::vector<ListViewModel::Row> details;
    ranges.reserve(size_t(block.ranges.size()));
    for (qsizetype r = 0; r < block.ranges.size(); ++r) {
        const AnimatedTextureBlock::Range& textures = block.ranges[r];
        const QString number = AnimationNumberText(r);
        const QString first = textures.isEmpty() ? QString() : NumberText::of(textures.first());
        ranges.push_back({QLatin1Char('A') + number, number,
                          {NumberText::of(textures.size()), first}, Qt::Unchecked});
        for (qsizetype i = 0; i < textures.size(); ++i) {
            details.push_back({QLatin1Char('A') + number + NumberText::of(i),
                               number + QLatin1Char('-') + NumberText::of(i),
                               {NumberText::of(textures[i])}, Qt::Unchecked});
        }
    }
    lsvAnims.appendRows(std::move(ranges));
    lsvAnimDetails.appendRows(std::move(details));
}

void FillAnimations(BinaryReader& file, const TablePosition& table, ListViewModel& lsvAnims,
                    ListViewModel& lsvAnimDetails)
{
    lsvAnims.clear();
    lsvAnimDetails.clear();
    if (table.offset == 0 || table.number == 0)
        return;
    const qint64 words = presentRecords(file, table.offset, file.u32(table.offset), 2);
    if (words <= 0)
        return;
    const QByteArray bytes = file.bytes(table.offset + 4, words * 2);
    QList<quint16> values(words);
    for (qint64 i = 0; i < words; ++i)
        values[i] = quint16(quint8(bytes[i * 2]) | (quint8(bytes[i * 2 + 1]) << 8));
    FillAnimations(AnimatedTextureBlock::fromWords(values.constData(), values.size()), lsvAnims,
                   lsvAnimDetails);
}

QList<quint16> AnimatedTextureWords(const ListViewModel& lsvAnims, const ListViewModel& lsvAnimDetails)
{
    // The first detail row holding each texture, so every range finds its
    // start in one look-up.
    QHash<QString, int> firstDetailOf;
    for (int detail = lsvAnimDetails.count() - 1; detail >= 0; --detail)
        firstDetailOf.insert(lsvAnimDetails.subItem(detail, 1), detail);

    QList<quint16> words;
    words.append(quint16(lsvAnims.count()));
    for (int r = 0; r < lsvAnims.count(); ++r) {
        // A range holds 1 to 65536 textures: its length is stored less one in a word.
        const qint64 number = qBound(qint64(1), NumberText::valueOf(lsvAnims.subItem(r, 1)), qint64(65536));
        words.append(quint16(number - 1));
        int detail = firstDetailOf.value(lsvAnims.subItem(r, 2), lsvAnimDetails.count());
        for (qint64 i = 0; i < number; ++i, ++detail) {
            const bool present = detail < lsvAnimDetails.count();
            words.append(present ? quint16(NumberText::valueOf(lsvAnimDetails.subItem(detail, 1))) : 0);
        }
    }
    return words;
}

} // namespace m_TextureList
