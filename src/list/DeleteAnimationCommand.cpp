#include "list/DeleteAnimationCommand.h"

#include "list/tables/RangeRowFormat.h"

#include <QCoreApplication>

DeleteAnimationCommand::DeleteAnimationCommand(ListTables& tables, qint32 number)
    : TableEditCommand(
        QCoreApplication::translate("ListDocument", "Delete Animation %1").arg(RangeRowFormat::NumberText(number)))
    , m_tables(tables)
    , m_number(number)
{
}

bool DeleteAnimationCommand::perform(TableEditLog& log)
{
    if (m_number < 0)
        return false;
    for (int row = m_tables.ranges.count() - 1; row >= 0; --row) {
        if (RangeRowFormat::Reaches(m_number, m_tables.ranges.at(row).number)) {
            log.remove(m_tables.ranges, row);
            break;
        }
    }
    for (int row = m_tables.rangeTextures.count() - 1; row >= 0; --row) {
        if (RangeRowFormat::Reaches(m_number, m_tables.rangeTextures.at(row).range))
            log.remove(m_tables.rangeTextures, row);
    }
    return true;
}
