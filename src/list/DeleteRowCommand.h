#pragma once

#include "list/RowEditCommand.h"

// The row with a key taken out of its table, the rows after it keeping
// their numbers: "Delete Texture 0012". Undo puts it back in its place.
class DeleteRowCommand : public RowEditCommand
{
public:
    DeleteRowCommand(ListViewModel& model, const QString& noun, const QString& key);

protected:
    bool perform(RowEditLog& log) override;

private:
    ListViewModel& m_model;
    QString m_key;
};
