#include "list/m_TextureList.h"

#include "common/NumberText.h"
#include "list/TableRecords.h"

#include <QHash>

#include <algorithm>
#include <array>
#include <initializer_list>
#include <vector>

namespace m_TextureList {

namespace {

constexpr int AnimationNumberWidth = 2;

// One cell of the parts' texts one after another; a number among them needs
// no QString.
ListCell joinedCell(std::initializer_list<QStringView> parts)
{
    std::array<char16_t, 64> joined;
    qsizetype size = 0;
    for (QStringView part : parts) {
        if (size + part.size() > qsizetype(joined.size())) {
            QString all;
            for (QStringView piece : parts)
                all += piece;
            return ListCell(all);
        }
        std::copy(part.utf16(), part.utf16() + part.size(), joined.begin() + size);
        size += part.size();
    }
    return ListCell(QStringView(joined.data(), size));
}

} // namespace

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
    return NumberText::padded(range, AnimationNumberWidth);
}

void FillAnimations(const AnimatedTextureBlock& block, ListViewModel& lsvAnims, ListViewModel& lsvAnimDetails)
{
    constexpr int RangeCells = 4;  // key, text, "Number", "First"
    constexpr int DetailCells = 3; // key, text, "Texture #"
    lsvAnims.clear();
    lsvAnimDetails.clear();
    std::vector<ListCell> ranges;
    std::vector<ListCell> details;
    ranges.reserve(size_t(block.ranges.size()) * RangeCells);
    for (qsizetype r = 0; r < block.ranges.size(); ++r) {
        const AnimatedTextureBlock::Range& textures = block.ranges[r];
        const ListCell rangeNumber = ListCell::number(r, AnimationNumberWidth);
        ListCell::Buffer numberBuffer;
        const QStringView number = rangeNumber.view(numberBuffer);
        ranges.push_back(joinedCell({u"A", number}));
        ranges.push_back(rangeNumber);
        ranges.push_back(ListCell::number(textures.size()));
        ranges.push_back(textures.isEmpty() ? ListCell() : ListCell::number(textures.first()));
        for (qsizetype i = 0; i < textures.size(); ++i) {
            const ListCell detailIndex = ListCell::number(i);
            ListCell::Buffer indexBuffer;
            const QStringView index = detailIndex.view(indexBuffer);
            details.push_back(joinedCell({u"A", number, index}));
            details.push_back(joinedCell({number, u"-", index}));
            details.push_back(ListCell::number(textures[i]));
        }
    }
    lsvAnims.appendCellRows(std::move(ranges), RangeCells);
    lsvAnimDetails.appendCellRows(std::move(details), DetailCells);
}

void FillAnimations(BinaryReader& file, const TablePosition& table, ListViewModel& lsvAnims,
                    ListViewModel& lsvAnimDetails)
{
    FillAnimations(AnimatedTextureBlock::fromTable(file, table), lsvAnims, lsvAnimDetails);
}

QList<QList<int>> RangeDetailRows(const ListViewModel& lsvAnims, const ListViewModel& lsvAnimDetails)
{
    // One pass over the details: each row filed under its range's text, and
    // the first row holding each texture for ranges without rows of their own.
    QHash<QStringView, QList<std::pair<qint64, int>>> placesOf; // range text: place, detail row
    QHash<QString, int> firstDetailOf;
    std::vector<QString> texts(size_t(lsvAnimDetails.count()));
    for (int detail = lsvAnimDetails.count() - 1; detail >= 0; --detail) {
        firstDetailOf.insert(lsvAnimDetails.subItem(detail, 1), detail);
        texts[size_t(detail)] = lsvAnimDetails.text(detail);
        const QStringView text = texts[size_t(detail)];
        const qsizetype dash = text.lastIndexOf(u'-');
        bool isPlace = false;
        const qint64 place = dash > 0 ? text.mid(dash + 1).toLongLong(&isPlace) : 0;
        if (isPlace)
            placesOf[text.left(dash)].append({place, detail});
    }

    QList<QList<int>> ranges;
    ranges.reserve(lsvAnims.count());
    for (int r = 0; r < lsvAnims.count(); ++r) {
        QList<std::pair<qint64, int>> places = placesOf.value(lsvAnims.text(r));
        std::stable_sort(places.begin(), places.end(),
                         [](const auto& a, const auto& b) { return a.first < b.first; });
        QList<int> rows;
        rows.reserve(places.size());
        for (const auto& [place, detail] : places)
            rows.append(detail);
        if (rows.isEmpty()) {
            const qint64 number = qBound(qint64(1), lsvAnims.subItemNumber(r, 1), qint64(65536));
            int detail = firstDetailOf.value(lsvAnims.subItem(r, 2), lsvAnimDetails.count());
            for (qint64 i = 0; i < number; ++i, ++detail)
                rows.append(detail < lsvAnimDetails.count() ? detail : -1);
        }
        ranges.append(rows);
    }
    return ranges;
}

QList<quint16> AnimatedTextureWords(const ListViewModel& lsvAnims, const ListViewModel& lsvAnimDetails)
{
    QList<quint16> words;
    words.append(quint16(lsvAnims.count()));
    for (const QList<int>& rows : RangeDetailRows(lsvAnims, lsvAnimDetails)) {
        // A range holds 1 to 65536 textures: its length is stored less one in a word.
        const qsizetype number = qMin<qsizetype>(rows.size(), 65536);
        words.append(quint16(number - 1));
        for (qsizetype i = 0; i < number; ++i)
            words.append(rows[i] >= 0 ? quint16(lsvAnimDetails.subItemNumber(rows[i], 1)) : 0);
    }
    return words;
}

} // namespace m_TextureList
