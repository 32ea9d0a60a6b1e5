#include "list/BuildAnimationCommand.h"

#include "list/tables/RangeRowFormat.h"
#include "list/tables/RangeTextureFormat.h"

#include <QCoreApplication>

namespace {

QString TextOf(BuildAnimationCommand::Build build, qint32 number)
{
    const QString shown = RangeRowFormat::NumberText(number);
    return build == BuildAnimationCommand::Build::New
        ? QCoreApplication::translate("ListDocument", "Add Animation %1").arg(shown)
        : QCoreApplication::translate("ListDocument", "Edit Animation %1").arg(shown);
}

} // namespace

BuildAnimationCommand::BuildAnimationCommand(ListTables& tables, Build build, qint32 number,
                                             const QList<quint16>& textures)
    : TableEditCommand(TextOf(build, number))
    , m_tables(tables)
    , m_build(build)
    , m_number(number)
    , m_textures(textures)
{
}

bool BuildAnimationCommand::perform(TableEditLog& log)
{
    if (m_number < 0 || m_textures.isEmpty())
        return false;
    if (m_build == Build::New) {
        if (!AppendRange(log))
            return false;
    } else {
        RefreshSingleRange(log);
        RemoveReachedTextures(log);
    }
    AppendTextures(log);
    return true;
}

bool BuildAnimationCommand::AppendRange(TableEditLog& log)
{
    return m_tables.ranges.rowOfNumber(m_number) < 0
        && log.append(m_tables.ranges, RangeEntry{m_number, qint32(m_textures.size()), m_textures.constFirst(), true});
}

void BuildAnimationCommand::RefreshSingleRange(TableEditLog& log)
{
    if (m_tables.ranges.count() != 1 || !RangeRowFormat::Reaches(m_number, m_tables.ranges.at(0).number))
        return;
    RangeEntry refreshed = m_tables.ranges.at(0);
    refreshed.shownCount = qint32(m_textures.size());
    refreshed.shownFirst = m_textures.constFirst();
    refreshed.showsFirst = true;
    log.replace(m_tables.ranges, 0, refreshed);
}

void BuildAnimationCommand::RemoveReachedTextures(TableEditLog& log)
{
    for (int row = m_tables.rangeTextures.count() - 1; row >= 0; --row) {
        if (RangeRowFormat::Reaches(m_number, m_tables.rangeTextures.at(row).range))
            log.remove(m_tables.rangeTextures, row);
    }
}

void BuildAnimationCommand::AppendTextures(TableEditLog& log)
{
    for (int place = 0; place < m_textures.size(); ++place) {
        // Past range 99 a texture's key can repeat another range's (A10 + 12
        // and A101 + 2); the row then goes without one and still saves.
        const QString key = RangeTextureFormat::Key(m_number, place);
        const bool keyed = RangeTextureFormat::Find(m_tables.rangeTextures, key) < 0;
        log.append(m_tables.rangeTextures, RangeTextureEntry{m_number, place, m_textures[place], keyed});
    }
}
