#pragma once

#include "list/rows/ListCell.h"

#include <QStringList>

#include <vector>

// The rows of a list view model in view order: per row a check state and its
// cells, the key, the text, then the sub-items. All rows' cells lie in one
// array that a refilled model reuses; a row that needs more cells than it has
// moves its cells behind every other row's, and cells left behind are dropped
// once they outnumber the ones in use.
//
// A row is first stored, then placed: stored rows have cells but no place.
// Cells move only in setCell and remove, so every stored row is placed
// before either.
class ListRowStore
{
public:
    struct Row
    {
        qint32 first = 0; // its cells: first .. first + size - 1
        qint32 size = 0;
        Qt::CheckState check = Qt::Unchecked;
    };

    int count() const { return int(m_rows.size()); }
    const std::vector<Row>& rows() const { return m_rows; }
    const Row& at(int index) const { return m_rows[size_t(index)]; }

    const ListCell& keyOf(const Row& row) const { return m_cells[size_t(row.first)]; }
    // Column 0 is the text, column n sub-item n; a cell the row lacks is empty.
    const ListCell& cellOf(const Row& row, int column) const;
    int subItemCount(const Row& row) const { return row.size - 2; }

    void setCell(int index, int column, ListCell&& cell);
    void setCheck(int index, Qt::CheckState check) { m_rows[size_t(index)].check = check; }

    Row store(ListCell&& key, const QString& text, const QStringList& subItems, Qt::CheckState check);

    void insert(int index, const Row& row);
    void append(const std::vector<Row>& rows);
    void remove(int index);
    // The rows in a new order: row i is the one that was at order[i].
    void reorder(const std::vector<int>& order);
    void clear();

private:
    void moveToEnd(Row& row, qint32 size);
    void compactIfSparse();

    std::vector<Row> m_rows;
    std::vector<ListCell> m_cells;
    qsizetype m_unusedCells = 0;
};
