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

    bool isEmpty() const { return m_steps.empty(); }
    void undo();
    void redo();

private:
    enum class Kind { Insert, Remove, Replace };
    struct Step
    {
        Kind kind;
        ListViewModel* model;
        int index = -1;
        ListViewModel::Row before;
        ListViewModel::Row after;
    };

    static void undoStep(const Step& step);
    static void redoStep(const Step& step);

    std::vector<Step> m_steps;
};
