#include "list/SortRowsCommand.h"

#include <QCoreApplication>

SortRowsCommand::SortRowsCommand(ListViewModel& model, const QString& tableName, int column, Qt::SortOrder order)
    : RowEditCommand(QCoreApplication::translate("ListDocument", "Sort %1 by %2")
                         .arg(tableName, model.headerData(column, Qt::Horizontal).toString()))
    , m_model(model)
    , m_column(column)
    , m_order(order)
{
}

bool SortRowsCommand::perform(RowEditLog& log)
{
    return m_column >= 0 && m_column < m_model.columnCount() && log.sort(m_model, m_column, m_order);
}
