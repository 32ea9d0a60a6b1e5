#include "list/DeleteAnimationCommand.h"

#include "list/BuildAnimationCommand.h"

#include <QCoreApplication>

DeleteAnimationCommand::DeleteAnimationCommand(ListViewSet& views, const QString& number)
    : RowEditCommand(QCoreApplication::translate("ListDocument", "Delete Animation %1").arg(number))
    , m_views(views)
    , m_number(number)
{
}

bool DeleteAnimationCommand::perform(RowEditLog& log)
{
    if (m_number.isEmpty())
        return false;
    // From the last row up, the first match goes: with ranges past 99, the
    // number 10 may name the row of range 109 instead.
    const QList<int> matching = m_views.lsvAnims.rowsWithTextLike(QString(m_number + QLatin1Char('*')));
    if (!matching.isEmpty())
        log.remove(m_views.lsvAnims, matching.last());
    for (int row : BuildAnimationCommand::DetailRowsOf(m_views.lsvAnimDetails, m_number))
        log.remove(m_views.lsvAnimDetails, row);
    return true;
}
