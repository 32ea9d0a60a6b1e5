#pragma once

#include "list/rows/ListCell.h"
#include "list/rows/ListRowStore.h"
#include "list/rows/ListRows.h"

#include <QHash>
#include <QList>
#include <QStringList>

#include <vector>

// A list whose rows are kept as texts: per row a key, a text (the first
// column), the texts of the further columns (sub-items) and a check state;
// with its sort settings. The pages' own small lists (the frames of a
// preview, the textures of a range being planned) are such lists; the open
// list's tables are not: they are records, shown through table models.
//
// Keys are unique among the rows that have one; an empty key is no key.
// Rows and sub-items count as the view does: rows from 0, sub-item 1 is the
// second column.
//
// A list holds tens of thousands of rows of small numbers, so the cells are
// kept as ListCells in a ListRowStore and made into QStrings only when they
// are read.
class ListViewModel : public ListRows
{
    Q_OBJECT

public:
    explicit ListViewModel(const QStringList& columns = {}, QObject* parent = nullptr);

    int count() const override { return m_store.count(); }

    // Adds a row at the end (or at its sorted place while sorting is on);
    // returns its index, or -1 when another row already has the key.
    int addRow(const QString& key, const QString& text, const QStringList& subItems = {});
    // Adds many rows with one notification; rows whose key is taken are
    // skipped. Returns how many were added.
    int appendRows(std::vector<Row>&& rows);



    int findKey(const QString& key) const override; // index, or -1
    bool removeAt(int index);
    void clear();

    Row row(int index) const override;
    QString key(int index) const override;
    QString cellText(int index, int column) const override;
    qint64 subItemNumber(int index, int subItem) const override;
    Qt::CheckState checkState(int index) const override;

    void setText(int index, const QString& text);
    void setSubItem(int index, int subItem, const QString& text);
    void setCheckState(int index, Qt::CheckState state) override;

    void setCheckable(bool checkable) { m_checkable = checkable; }

    int sortKey() const { return m_sortKey; }
    Qt::SortOrder sortOrder() const { return m_sortOrder; }
    bool isSorted() const { return m_sorted; }
    void setSortKey(int column) { m_sortKey = column; }
    void setSortOrder(Qt::SortOrder order) { m_sortOrder = order; }
    // Turning sorting on (again) orders the rows by the sort key column.
    void setSorted(bool sorted);

    // The order sorting by the current settings gives: row i of it is the
    // row now at order[i].
    std::vector<int> sortedOrder() const;
    // The rows in a new order, row i the one now at order[i]; the selected
    // row and the views' rows follow their rows.
    void reorder(const std::vector<int>& order);


    // QAbstractItemModel
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

protected:
    bool isCheckable() const override { return m_checkable; }

private:
    using StoredRow = ListRowStore::Row;

    const ListCell& cellAt(int index, int column) const { return m_store.cellOf(m_store.at(index), column); }

    QHash<ListCell, int>& keyIndex() const;
    bool claimKey(const ListCell& key, int index);
    int place(const StoredRow& row);
    int placeAt(int at, const StoredRow& row);
    int placeAtEnd(const std::vector<StoredRow>& rows);

    bool rowLess(const StoredRow& a, const StoredRow& b) const;
    int sortedInsertPosition(const StoredRow& row) const;
    void reindexFrom(int first) const;
    void sortRows();

    ListRowStore m_store;
    // Row of every key. Rows whose keys are known to differ may come in
    // without it; it is then built on its first use.
    mutable QHash<ListCell, int> m_keyIndex;
    mutable bool m_keyIndexStale = false;
    int m_sortKey = 0;
    Qt::SortOrder m_sortOrder = Qt::AscendingOrder;
    bool m_sorted = false;
    bool m_checkable = false;
};
