#pragma once

#include <QTreeView>

class ListSortProxy;
class ListRows;

// A list view over one ListViewModel: report rows, check boxes where the
// model has them, and hidden columns kept as hidden columns. The model holds
// the rows; this widget only shows them and reports clicks. A header click
// sorts what is shown (each click inverts this view's order), never the
// model: the list's order, and what is saved, stay as they are. Rows are
// always named by their row in the model, whatever order they are shown in.
class ListView : public QTreeView
{
    Q_OBJECT

public:
    explicit ListView(QWidget* parent = nullptr);

    void setListModel(ListRows* model);
    ListRows* listModel() const { return m_model; }

    // Where the model's row is shown, and which model row a shown index is.
    QModelIndex shownIndex(int row, int column = 0) const;
    int modelRow(const QModelIndex& shown) const;
    // The model rows of the selection, in the order they are shown.
    QList<int> selectedModelRows() const;

    // Columns of zero width: present in the rows, never shown.
    void setHiddenColumns(const QList<int>& columns);

    // The row shown at index (-1 for none) selected and scrolled into view.
    void selectRow(int row);

signals:
    // A row was chosen with the mouse or the keyboard.
    void ItemClick(int row);
    // A mouse button went down over the list (the checklists' user flag).
    void MouseDown();
    // A header click showed the rows by column (none when the list is empty).
    void ShownSorted(int column, Qt::SortOrder order);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    // Rows are all one height, so a changed row needs no height measured
    // and no rectangle: the tree's search for the row, linear in the rows,
    // is left out, and the view is repainted only when the row is in sight.
    void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                     const QList<int>& roles = QList<int>()) override;

private:
    void onHeaderClicked(int section);
    void ShowThroughSortProxy();
    void followModelSelection(int row);

    ListRows* m_model = nullptr;
    ListSortProxy* m_proxy = nullptr;
    bool m_ascending = false;
    bool m_keyboardMove = false;
    bool m_followingModel = false;
    bool m_rowsGoing = false;
};
