#pragma once

#include "list/EditRowCommand.h"
#include "list/ListViewSet.h"

#include <QCoreApplication>

// New fields for the sprite sequence row with a key, as one entry of the undo stack.
class EditSequenceCommand : public EditRowCommand
{
public:
    EditSequenceCommand(ListViewSet& views, const QString& key, const QStringList& subItems)
        : EditRowCommand(views.lsvSequences, QCoreApplication::translate("ListDocument", "Sequence"), key, subItems)
    {
    }
};
