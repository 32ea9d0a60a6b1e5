#pragma once

#include "list/DeleteRowCommand.h"
#include "list/ListViewSet.h"

#include <QCoreApplication>

// The sprite sequence row with a key deleted, as one entry of the undo stack.
class DeleteSequenceCommand : public DeleteRowCommand
{
public:
    DeleteSequenceCommand(ListViewSet& views, const QString& key)
        : DeleteRowCommand(views.lsvSequences, QCoreApplication::translate("ListDocument", "Sequence"), key)
    {
    }
};
