#pragma once

#include "list/RowEditCommand.h"

// New values for the sub-items of the row with a key, its text and key
// kept: "Edit Texture 0012".
class EditRowCommand : public RowEditCommand
{
public:
    EditRowCommand(ListViewModel& model, const QString& noun, const QString& key, const QStringList& subItems);

protected:
    bool perform(RowEditLog& log) override;

private:
    ListViewModel& m_model;
    QString m_key;
    QStringList m_subItems;
};
