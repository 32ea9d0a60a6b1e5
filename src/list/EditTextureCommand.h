#pragma once

#include "list/EditRowCommand.h"
#include "list/ListViewSet.h"

#include <QCoreApplication>

// New fields for the object texture row with a key, as one entry of the undo stack.
class EditTextureCommand : public EditRowCommand
{
public:
    EditTextureCommand(ListViewSet& views, const QString& key, const QStringList& subItems)
        : EditRowCommand(views.lsvTextures, QCoreApplication::translate("ListDocument", "Texture"), key, subItems)
    {
    }
};
