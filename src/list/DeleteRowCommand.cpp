#include "list/DeleteRowCommand.h"

#include <QCoreApplication>

DeleteRowCommand::DeleteRowCommand(ListViewModel& model, const QString& noun, const QString& key)
    : RowEditCommand(
        QCoreApplication::translate("ListDocument", "Delete %1 %2").arg(noun, model.text(model.findKey(key))))
    , m_model(model)
    , m_key(key)
{
}

bool DeleteRowCommand::perform(RowEditLog& log)
{
    return log.remove(m_model, m_model.findKey(m_key));
}
