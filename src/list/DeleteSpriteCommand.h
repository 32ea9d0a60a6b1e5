#pragma once

#include "list/DeleteRowCommand.h"
#include "list/ListViewSet.h"

#include <QCoreApplication>

// The sprite texture row with a key deleted, as one entry of the undo stack.
class DeleteSpriteCommand : public DeleteRowCommand
{
public:
    DeleteSpriteCommand(ListViewSet& views, const QString& key)
        : DeleteRowCommand(views.lsvSprites, QCoreApplication::translate("ListDocument", "Sprite"), key)
    {
    }
};
