#pragma once

#include "list/RowEditCommand.h"

// A new row at its place in one of the list's tables: "Add Texture 0012".
class AddRowCommand : public RowEditCommand
{
public:
    AddRowCommand(ListViewModel& model, const QString& noun, const ListViewModel::Row& row);

protected:
    bool perform(RowEditLog& log) override;

private:
    ListViewModel& m_model;
    ListViewModel::Row m_row;
};
