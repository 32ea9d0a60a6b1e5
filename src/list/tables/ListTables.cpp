#include "list/tables/ListTables.h"

#include "level/AnimatedTextureBlock.h"

#include "list/tables/RangeTextureFormat.h"

#include <QHash>
#include <QSet>

#include <algorithm>

void ListTables::clear()
{
    textures.clear();
    ranges.clear();
    rangeTextures.clear();
    sprites.clear();
    sequences.clear();
}

namespace {

// A range with no rows of its own: "Number" rows from the first one that
// holds its "First".
QList<int> BorrowedRows(const RangeEntry& range, const RecordTable<RangeTextureEntry>& details)
{
    const qint64 number = qBound(qint64(1), qint64(range.shownCount), qint64(65536));
    int detail = details.count();
    if (range.showsFirst) {
        const auto& rows = details.rows();
        const auto first = std::find_if(rows.begin(), rows.end(), [&range](const RangeTextureEntry& e) {
            return e.texture == range.shownFirst;
        });
        detail = int(first - rows.begin());
    }
    QList<int> borrowed;
    borrowed.reserve(number);
    for (qint64 i = 0; i < number; ++i, ++detail)
        borrowed.append(detail < details.count() ? detail : -1);
    return borrowed;
}

QList<int> InPlaceOrder(QList<std::pair<qint32, int>> places)
{
    std::stable_sort(places.begin(), places.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    QList<int> rows;
    rows.reserve(places.size());
    for (const auto& [place, detail] : places)
        rows.append(detail);
    return rows;
}

} // namespace

QList<QList<int>> ListTables::RangeTextureRows() const
{
    QHash<qint32, QList<std::pair<qint32, int>>> placesOf; // range number: place, row
    for (int detail = 0; detail < rangeTextures.count(); ++detail) {
        const RangeTextureEntry& e = rangeTextures.at(detail);
        placesOf[e.range].append({e.place, detail});
    }
    QList<QList<int>> all;
    all.reserve(ranges.count());
    for (const RangeEntry& range : ranges.rows()) {
        const auto found = placesOf.constFind(range.number);
        all.append(found == placesOf.cend() ? BorrowedRows(range, rangeTextures) : InPlaceOrder(*found));
    }
    return all;
}

QList<int> ListTables::RangeTextureRows(int rangeRow) const
{
    if (!ranges.contains(rangeRow))
        return {};
    const RangeEntry& range = ranges.at(rangeRow);
    QList<std::pair<qint32, int>> places;
    for (int detail = 0; detail < rangeTextures.count(); ++detail) {
        if (rangeTextures.at(detail).range == range.number)
            places.append({rangeTextures.at(detail).place, detail});
    }
    return places.isEmpty() ? BorrowedRows(range, rangeTextures) : InPlaceOrder(places);
}

QList<quint16> ListTables::TexturesOfRange(int rangeRow) const
{
    return TexturesAt(RangeTextureRows(rangeRow));
}

QList<QList<quint16>> ListTables::TexturesOfRanges() const
{
    QList<QList<quint16>> all;
    for (const QList<int>& rows : RangeTextureRows())
        all.append(TexturesAt(rows));
    return all;
}

QList<quint16> ListTables::TexturesAt(const QList<int>& rows) const
{
    QList<quint16> textures;
    textures.reserve(rows.size());
    for (int detail : rows)
        textures.append(detail >= 0 ? rangeTextures.at(detail).texture : quint16(0));
    return textures;
}

QList<quint16> ListTables::AnimatedTextureWords() const
{
    QList<quint16> words;
    words.append(quint16(ranges.count()));
    for (const QList<quint16>& textures : TexturesOfRanges()) {
        // A range holds 1 to 65536 textures: its length is stored less one in a word.
        const qsizetype number = qMin<qsizetype>(textures.size(), 65536);
        words.append(quint16(number - 1));
        words.append(textures.first(number));
    }
    return words;
}

void ListTables::AssignRanges(const AnimatedTextureBlock& block)
{
    std::vector<RangeEntry> summaries;
    std::vector<RangeTextureEntry> details;
    summaries.reserve(size_t(block.ranges.size()));
    for (qsizetype r = 0; r < block.ranges.size(); ++r) {
        const AnimatedTextureBlock::Range& textures = block.ranges[r];
        summaries.push_back({qint32(r), qint32(textures.size()), textures.isEmpty() ? 0 : textures.first(),
                             !textures.isEmpty()});
        for (qsizetype i = 0; i < textures.size(); ++i)
            details.push_back({qint32(r), qint32(i), textures[i], true});
    }
    // Past range 99 a detail key can repeat another range's (A10 + 12 and
    // A101 + 2); the later row keeps its texture and goes without a key.
    if (summaries.size() > 100) {
        QSet<quint64> taken;
        for (RangeTextureEntry& e : details) {
            const quint64 key = RangeTextureFormat::KeyCode(e.range, e.place);
            e.keyed = !taken.contains(key);
            taken.insert(key);
        }
    }
    ranges.assign(std::move(summaries));
    rangeTextures.assign(std::move(details));
}
