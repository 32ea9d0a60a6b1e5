#include "list/TableEditCommand.h"

TableEditCommand::TableEditCommand(const QString& text)
{
    setText(text);
}

bool TableEditCommand::apply()
{
    if (m_appliedOnce)
        return false;
    if (!perform(m_log) || m_log.isEmpty()) {
        m_log.undo();
        return false;
    }
    m_appliedOnce = true;
    m_redoPending = true;
    return true;
}

void TableEditCommand::undo()
{
    m_log.undo();
}

void TableEditCommand::redo()
{
    // The push's redo finds the edit made by apply.
    if (m_redoPending) {
        m_redoPending = false;
        return;
    }
    m_log.redo();
}
