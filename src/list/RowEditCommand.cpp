#include "list/RowEditCommand.h"

RowEditCommand::RowEditCommand(const QString& text)
{
    setText(text);
}

bool RowEditCommand::apply()
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

void RowEditCommand::undo()
{
    m_log.undo();
}

void RowEditCommand::redo()
{
    // The push's redo finds the edit made by apply.
    if (m_redoPending) {
        m_redoPending = false;
        return;
    }
    m_log.redo();
}
