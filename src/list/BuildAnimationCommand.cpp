#include "list/BuildAnimationCommand.h"

#include "common/NumberText.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

enum AnimColumn { NumberColumn = 1, FirstColumn = 2 };

QString Wildcard(const QString& prefix)
{
    return prefix + QLatin1Char('*');
}

QString TextOf(BuildAnimationCommand::Build build, const QString& number)
{
    return build == BuildAnimationCommand::Build::New
        ? QCoreApplication::translate("ListDocument", "Add Animation %1").arg(number)
        : QCoreApplication::translate("ListDocument", "Edit Animation %1").arg(number);
}

} // namespace

BuildAnimationCommand::BuildAnimationCommand(ListViewSet& views, Build build, const QString& number,
                                             const QStringList& textures)
    : RowEditCommand(TextOf(build, number))
    , m_views(views)
    , m_build(build)
    , m_number(number)
    , m_textures(textures)
{
}

QList<int> BuildAnimationCommand::DetailRowsOf(const ListViewModel& details, const QString& number)
{
    QList<int> rows = details.rowsWithTextLike(Wildcard(number));
    std::reverse(rows.begin(), rows.end());
    return rows;
}

bool BuildAnimationCommand::perform(RowEditLog& log)
{
    if (m_number.isEmpty() || m_textures.isEmpty())
        return false;
    if (m_build == Build::New) {
        if (!AppendRange(log))
            return false;
    } else {
        RefreshSingleRange(log);
        for (int row : DetailRowsOf(m_views.lsvAnimDetails, m_number))
            log.remove(m_views.lsvAnimDetails, row);
    }
    AppendDetails(log);
    return true;
}

bool BuildAnimationCommand::AppendRange(RowEditLog& log)
{
    return log.add(m_views.lsvAnims, {QLatin1Char('A') + m_number, m_number,
                                      {NumberText::of(m_textures.size()), m_textures.constFirst()}});
}

void BuildAnimationCommand::RefreshSingleRange(RowEditLog& log)
{
    // The summary row is brought up to date only while the list holds one
    // range; with more, its "Number" and "First" keep their old values
    // although its detail rows are replaced.
    ListViewModel& anims = m_views.lsvAnims;
    if (anims.count() != 1 || !ListViewModel::matchesPattern(anims.text(0), Wildcard(m_number)))
        return;
    QStringList subItems = anims.row(0).subItems;
    while (subItems.size() < FirstColumn)
        subItems.append(QString());
    subItems[NumberColumn - 1] = NumberText::of(m_textures.size());
    subItems[FirstColumn - 1] = m_textures.constFirst();
    log.replace(anims, 0, anims.text(0), subItems);
}

void BuildAnimationCommand::AppendDetails(RowEditLog& log)
{
    ListViewModel& details = m_views.lsvAnimDetails;
    for (int place = 0; place < m_textures.size(); ++place) {
        const QString key = QLatin1Char('A') + m_number + NumberText::of(place);
        const QString text = m_number + QLatin1Char('-') + NumberText::of(place);
        // Past range 99 a detail key can repeat another range's (A10 + 12
        // and A101 + 2); the row is then kept without a key, so the range
        // still writes all its textures.
        const QString freeKey = details.findKey(key) >= 0 ? QString() : key;
        log.add(details, {freeKey, text, {m_textures[place]}});
    }
}
