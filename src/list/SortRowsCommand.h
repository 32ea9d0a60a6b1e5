#pragma once

#include "list/RowEditCommand.h"

// The rows of one of the list's tables put in the order of a column, as a
// header click asks: "Sort Textures by X1". The order is the one the list
// is saved in, so it is an edit; undo puts every row back where it was.
class SortRowsCommand : public RowEditCommand
{
public:
    SortRowsCommand(ListViewModel& model, const QString& tableName, int column, Qt::SortOrder order);

protected:
    bool perform(RowEditLog& log) override;

private:
    ListViewModel& m_model;
    int m_column;
    Qt::SortOrder m_order;
};
