#pragma once

#include "list/tables/TableEditLog.h"

#include <QUndoCommand>

// One edit of an open list as an entry of its undo stack. The list document
// applies an edit before pushing it (apply), so an edit that cannot be made
// never reaches the stack; the stack's first redo then finds the work done.
// Later undos and redos replay the rows the edit changed, never rebuilding a
// whole list.
class TableEditCommand : public QUndoCommand
{
public:
    explicit TableEditCommand(const QString& text);

    // Makes the edit now; false, with every row as it was, when it cannot be
    // made or changes nothing.
    bool apply();

    void undo() override;
    void redo() override;

protected:
    // Makes the edit through log; false when it cannot be made.
    virtual bool perform(TableEditLog& log) = 0;

private:
    TableEditLog m_log;
    bool m_appliedOnce = false;
    bool m_redoPending = false;
};
