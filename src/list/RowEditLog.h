#pragma once

#include "common/ListViewModel.h"

#include <vector>

// Changes to the rows of list view models, each made at once and remembered
// with what it replaced, so the whole run can be taken back (undo) and made
// again (redo). Taking back runs the changes backwards, so every remembered
// row number is right again when its change is reached.
class RowEditLog
{
public:
    // Adds a row at its place (the end, or its sorted place); false when its
    // key is taken.
    bool add(ListViewModel& model, const ListViewModel::Row& row);
    bool remove(ListViewModel& model, int index);
    // The row's text and sub-items; false for no such row or no change.
    bool replace(ListViewModel& model, int index, const QString& text, const QStringList& subItems);
    // Sorts the rows by column, sorting on from then; false, with nothing
    // changed, when the rows are in that order already.
    bool sort(ListViewModel& model, int column, Qt::SortOrder order);

    bool isEmpty() const { return m_steps.empty(); }
    void undo();
    void redo();

private:
    enum class Kind { Insert, Remove, Replace, Reorder };
    struct Step
    {
        Kind kind;
        ListViewModel* model;
        int index = -1;
        ListViewModel::Row before;
        ListViewModel::Row after;
        std::vector<int> order;
        ListViewModel::SortState sortBefore;
        ListViewModel::SortState sortAfter;
    };

    static void undoStep(const Step& step);
    static void redoStep(const Step& step);

    std::vector<Step> m_steps;
};
