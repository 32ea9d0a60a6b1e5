#pragma once

#include <QTreeView>

#include <functional>

class ListViewModel;

// A list view over one ListViewModel: report rows, sortable by a header click
// (each click inverts this view's order), check boxes where the model has
// them, and hidden columns kept as hidden columns. The model holds the rows;
// this widget only shows them and reports clicks.
class ListView : public QTreeView
{
    Q_OBJECT

public:
    explicit ListView(QWidget* parent = nullptr);

    void setListModel(ListViewModel* model);
    ListViewModel* listModel() const { return m_model; }

    // Who sorts the rows when a header is clicked, in place of the view: a
    // list whose order is saved sorts as an edit that can be undone.
    using SortHandler = std::function<void(int column, Qt::SortOrder order)>;
    void setSortHandler(SortHandler handler) { m_sortHandler = std::move(handler); }

    // Columns of zero width: present in the rows, never shown.
    void setHiddenColumns(const QList<int>& columns);

    // The row shown at index (-1 for none) selected and scrolled into view.
    void selectRow(int row);

signals:
    // A row was chosen with the mouse or the keyboard.
    void ItemClick(int row);
    // A mouse button went down over the list (the checklists' user flag).
    void MouseDown();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    void onHeaderClicked(int section);
    void followModelSelection(int row);

    ListViewModel* m_model = nullptr;
    SortHandler m_sortHandler;
    bool m_ascending = false;
    bool m_keyboardMove = false;
    bool m_followingModel = false;
    bool m_rowsGoing = false;
};
