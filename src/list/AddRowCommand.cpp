#include "list/AddRowCommand.h"

#include <QCoreApplication>

AddRowCommand::AddRowCommand(ListViewModel& model, const QString& noun, const ListViewModel::Row& row)
    : RowEditCommand(QCoreApplication::translate("ListDocument", "Add %1 %2").arg(noun, row.text))
    , m_model(model)
    , m_row(row)
{
}

bool AddRowCommand::perform(RowEditLog& log)
{
    return !m_row.key.isEmpty() && log.add(m_model, m_row);
}
