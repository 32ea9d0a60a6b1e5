#pragma once

#include "list/AddRowCommand.h"
#include "list/ListViewSet.h"

#include <QCoreApplication>

// A new sprite sequence row, as one entry of the undo stack.
class AddSequenceCommand : public AddRowCommand
{
public:
    AddSequenceCommand(ListViewSet& views, const ListViewModel::Row& row)
        : AddRowCommand(views.lsvSequences, QCoreApplication::translate("ListDocument", "Sequence"), row)
    {
    }
};
