#include "m_TextureList.h"

#include "NumberText.h"
#include "TableRecords.h"

#include <QHash>

#include <vector>

namespace m_TextureList {

ListViewModel::Row RowOfObjectTexture(const ObjectTexture& record, qint64 index, int width)
{
    return RowOfRecord(record, QLatin1Char('T'), index, width);
}

ObjectTexture ObjectTextureOfRow(const ListViewModel& lsvTexture, int row)
{
    return RecordOfRow<ObjectTexture>(lsvTexture, row);
}

void FillObjectTextures(BinaryReader& file, const TablePosition& table, ListViewModel& lsvTexture)
{
    FillRecordRows<ObjectTexture>(file, table, lsvTexture, QLatin1Char('T'));
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
    FillAnimations(AnimatedTextureBlock::fromTable(file, table), lsvAnims, lsvAnimDetails);
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
