#pragma once

#include "list/AddRowCommand.h"
#include "list/ListViewSet.h"

#include <QCoreApplication>

// A new sprite texture row, as one entry of the undo stack.
class AddSpriteCommand : public AddRowCommand
{
public:
    AddSpriteCommand(ListViewSet& views, const ListViewModel::Row& row)
        : AddRowCommand(views.lsvSprites, QCoreApplication::translate("ListDocument", "Sprite"), row)
    {
    }
};
