#pragma once

#include "list/AddRowCommand.h"
#include "list/ListViewSet.h"

#include <QCoreApplication>

// A new object texture row, as one entry of the undo stack.
class AddTextureCommand : public AddRowCommand
{
public:
    AddTextureCommand(ListViewSet& views, const ListViewModel::Row& row)
        : AddRowCommand(views.lsvTextures, QCoreApplication::translate("ListDocument", "Texture"), row)
    {
    }
};
