#include "list/EditRowCommand.h"

#include <QCoreApplication>

EditRowCommand::EditRowCommand(ListViewModel& model, const QString& noun, const QString& key,
                               const QStringList& subItems)
    : RowEditCommand(
        QCoreApplication::translate("ListDocument", "Edit %1 %2").arg(noun, model.text(model.findKey(key))))
    , m_model(model)
    , m_key(key)
    , m_subItems(subItems)
{
}

bool EditRowCommand::perform(RowEditLog& log)
{
    const int row = m_model.findKey(m_key);
    return row >= 0 && log.replace(m_model, row, m_model.text(row), m_subItems);
}
