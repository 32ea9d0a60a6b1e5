#include "list/DeleteTextureCommand.h"

#include "list/tables/RangeRowFormat.h"
#include "list/tables/RowTextOf.h"
#include "list/tables/TextureRowFormat.h"

#include <QCoreApplication>

#include <algorithm>
#include <vector>

namespace {

QString Tr(const char* text)
{
    return QCoreApplication::translate("ListDocument", text);
}

} // namespace

DeleteTextureCommand::DeleteTextureCommand(ListTables& tables, qint32 number, Outcome* outcome)
    : TableEditCommand(Tr("Delete %1 %2").arg(Tr("Texture"), RowTextOf<TextureRowFormat>(tables.textures, number)))
    , m_tables(tables)
    , m_number(number)
    , m_outcome(outcome)
{
}

QList<DeleteTextureCommand::Range> DeleteTextureCommand::Ranges() const
{
    // As the list is saved; a texture past the detail rows has no row to follow.
    const QList<QList<int>> saved = m_tables.RangeTextureRows();
    QList<Range> ranges;
    ranges.reserve(saved.size());
    for (int row = 0; row < saved.size(); ++row) {
        QList<int> details = saved[row];
        details.removeAll(-1);
        ranges.append({row, details});
    }
    return ranges;
}

QString DeleteTextureCommand::PastTheEnd(const QList<Range>& ranges) const
{
    const qint64 textures = m_tables.textures.count();
    for (const Range& range : ranges) {
        for (int detail : range.details) {
            const qint64 texture = m_tables.rangeTextures.at(detail).texture;
            if (texture < 0 || texture >= textures) {
                return Tr("Nothing was deleted: range %1 names texture %2, past the list's %3 textures, so its "
                          "textures cannot follow. Mend the range first.")
                    .arg(RangeRowFormat::Cell(m_tables.ranges.at(range.row), 0))
                    .arg(texture)
                    .arg(textures);
            }
        }
    }
    return {};
}

bool DeleteTextureCommand::perform(TableEditLog& log)
{
    const int deleted = m_tables.textures.rowOfNumber(m_number);
    if (deleted < 0)
        return false;
    const QList<Range> ranges = Ranges();
    const QString refusal = PastTheEnd(ranges);
    if (m_outcome)
        *m_outcome = {{}, {}, refusal};
    if (!refusal.isEmpty())
        return false;
    if (!log.remove(m_tables.textures, deleted))
        return false;
    FollowTexture(log, ranges, deleted);
    return true;
}

void DeleteTextureCommand::FollowTexture(TableEditLog& log, const QList<Range>& ranges, int deleted)
{
    RecordTable<RangeEntry>& anims = m_tables.ranges;
    RecordTable<RangeTextureEntry>& details = m_tables.rangeTextures;
    // Rows are replaced first and removed last, from the bottom up, so every
    // row number the log keeps is right when its step is replayed.
    // Ranges found through their "First" may share detail rows: each row
    // follows once, from the texture it held before the deletion.
    std::vector<qint64> held(size_t(details.count()));
    for (int detail = 0; detail < details.count(); ++detail)
        held[size_t(detail)] = details.at(detail).texture;
    std::vector<bool> followed(held.size());
    QList<int> goneDetails;
    QList<int> goneRanges;
    for (const Range& range : ranges) {
        QList<std::pair<int, qint64>> kept; // detail row, its texture after the deletion
        for (int detail : range.details) {
            const qint64 texture = held[size_t(detail)];
            if (texture == deleted)
                goneDetails.append(detail);
            else
                kept.append({detail, texture > deleted ? texture - 1 : texture});
        }
        const bool lostOne = kept.size() < range.details.size();
        if (lostOne && kept.size() < 2) {
            goneRanges.append(range.row);
            for (const auto& [detail, texture] : kept)
                goneDetails.append(detail);
            if (m_outcome)
                m_outcome->removed.append(RangeRowFormat::Cell(anims.at(range.row), 0));
            continue;
        }
        for (const auto& [detail, texture] : kept) {
            if (texture != held[size_t(detail)] && !followed[size_t(detail)]) {
                RangeTextureEntry lowered = details.at(detail);
                lowered.texture = quint16(texture);
                log.replace(details, detail, lowered);
            }
            followed[size_t(detail)] = true;
        }
        if (!kept.isEmpty()) {
            RangeEntry summary = anims.at(range.row);
            summary.shownCount = qint32(kept.size());
            summary.shownFirst = qint32(kept.first().second);
            summary.showsFirst = true;
            log.replace(anims, range.row, summary);
        }
        if (lostOne && m_outcome)
            m_outcome->shortened.append(RangeRowFormat::Cell(anims.at(range.row), 0));
    }
    std::sort(goneDetails.begin(), goneDetails.end(), std::greater<int>());
    goneDetails.erase(std::unique(goneDetails.begin(), goneDetails.end()), goneDetails.end());
    for (int detail : goneDetails)
        log.remove(details, detail);
    std::sort(goneRanges.begin(), goneRanges.end(), std::greater<int>());
    for (int range : goneRanges)
        log.remove(anims, range);
}
