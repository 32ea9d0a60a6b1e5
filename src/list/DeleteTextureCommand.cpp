#include "list/DeleteTextureCommand.h"

#include "list/m_TextureList.h"

#include <QCoreApplication>

#include <algorithm>
#include <vector>

namespace {

QString Tr(const char* text)
{
    return QCoreApplication::translate("ListDocument", text);
}

} // namespace

DeleteTextureCommand::DeleteTextureCommand(ListViewSet& views, const QString& key, Outcome* outcome)
    : RowEditCommand(Tr("Delete %1 %2").arg(Tr("Texture"), views.lsvTextures.text(views.lsvTextures.findKey(key))))
    , m_views(views)
    , m_key(key)
    , m_outcome(outcome)
{
}

QList<DeleteTextureCommand::Range> DeleteTextureCommand::Ranges() const
{
    // As the list is saved; a texture past the detail rows has no row to follow.
    const QList<QList<int>> saved = m_TextureList::RangeDetailRows(m_views.lsvAnims, m_views.lsvAnimDetails);
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
    const ListViewModel& details = m_views.lsvAnimDetails;
    const qint64 textures = m_views.lsvTextures.count();
    for (const Range& range : ranges) {
        for (int detail : range.details) {
            const qint64 texture = details.subItemNumber(detail, 1);
            if (texture < 0 || texture >= textures) {
                return Tr("Nothing was deleted: range %1 names texture %2, past the list's %3 textures, so its "
                          "textures cannot follow. Mend the range first.")
                    .arg(m_views.lsvAnims.text(range.row))
                    .arg(texture)
                    .arg(textures);
            }
        }
    }
    return {};
}

bool DeleteTextureCommand::perform(RowEditLog& log)
{
    ListViewModel& textures = m_views.lsvTextures;
    const int deleted = textures.findKey(m_key);
    if (deleted < 0)
        return false;
    const QList<Range> ranges = Ranges();
    const QString refusal = PastTheEnd(ranges);
    if (m_outcome)
        *m_outcome = {{}, {}, refusal};
    if (!refusal.isEmpty())
        return false;
    if (!log.remove(textures, deleted))
        return false;
    FollowTexture(log, ranges, deleted);
    return true;
}

void DeleteTextureCommand::FollowTexture(RowEditLog& log, const QList<Range>& ranges, int deleted)
{
    ListViewModel& anims = m_views.lsvAnims;
    ListViewModel& details = m_views.lsvAnimDetails;
    // Rows are replaced first and removed last, from the bottom up, so every
    // row number the log keeps is right when its step is replayed.
    // Ranges found through their "First" may share detail rows: each row
    // follows once, from the texture it held before the deletion.
    std::vector<qint64> held(size_t(details.count()));
    for (int detail = 0; detail < details.count(); ++detail)
        held[size_t(detail)] = details.subItemNumber(detail, 1);
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
                m_outcome->removed.append(anims.text(range.row));
            continue;
        }
        for (const auto& [detail, texture] : kept) {
            if (texture != held[size_t(detail)] && !followed[size_t(detail)])
                log.replace(details, detail, details.text(detail), {QString::number(texture)});
            followed[size_t(detail)] = true;
        }
        if (!kept.isEmpty())
            log.replace(anims, range.row, anims.text(range.row),
                        {QString::number(kept.size()), QString::number(kept.first().second)});
        if (lostOne && m_outcome)
            m_outcome->shortened.append(anims.text(range.row));
    }
    std::sort(goneDetails.begin(), goneDetails.end(), std::greater<int>());
    goneDetails.erase(std::unique(goneDetails.begin(), goneDetails.end()), goneDetails.end());
    for (int detail : goneDetails)
        log.remove(details, detail);
    std::sort(goneRanges.begin(), goneRanges.end(), std::greater<int>());
    for (int range : goneRanges)
        log.remove(anims, range);
}
