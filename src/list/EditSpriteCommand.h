#pragma once

#include "list/EditRowCommand.h"
#include "list/ListViewSet.h"

#include <QCoreApplication>

// New fields for the sprite texture row with a key, as one entry of the undo stack.
class EditSpriteCommand : public EditRowCommand
{
public:
    EditSpriteCommand(ListViewSet& views, const QString& key, const QStringList& subItems)
        : EditRowCommand(views.lsvSprites, QCoreApplication::translate("ListDocument", "Sprite"), key, subItems)
    {
    }
};
