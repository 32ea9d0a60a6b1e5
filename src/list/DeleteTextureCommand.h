#pragma once

#include "list/DeleteRowCommand.h"
#include "list/ListViewSet.h"

#include <QCoreApplication>

// The object texture row with a key deleted, as one entry of the undo stack.
class DeleteTextureCommand : public DeleteRowCommand
{
public:
    DeleteTextureCommand(ListViewSet& views, const QString& key)
        : DeleteRowCommand(views.lsvTextures, QCoreApplication::translate("ListDocument", "Texture"), key)
    {
    }
};
