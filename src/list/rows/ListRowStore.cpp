#include "list/rows/ListRowStore.h"

namespace {

const ListCell& emptyCell()
{
    static const ListCell empty;
    return empty;
}

// Unused cells are dropped once they are many and outnumber the used ones.
constexpr qsizetype CompactAfter = 4096;

} // namespace

const ListCell& ListRowStore::cellOf(const Row& row, int column) const
{
    const qint32 at = column + 1; // past the key
    return column >= 0 && at < row.size ? m_cells[size_t(row.first + at)] : emptyCell();
}

void ListRowStore::setCell(int index, int column, ListCell&& cell)
{
    Row& row = m_rows[size_t(index)];
    if (column + 1 >= row.size)
        moveToEnd(row, column + 2);
    m_cells[size_t(row.first + column + 1)] = std::move(cell);
    compactIfSparse();
}

ListRowStore::Row ListRowStore::store(ListCell&& key, const QString& text, const QStringList& subItems,
                                      Qt::CheckState check)
{
    const Row row{qint32(m_cells.size()), qint32(2 + subItems.size()), check};
    m_cells.push_back(std::move(key));
    m_cells.emplace_back(text);
    for (const QString& item : subItems)
        m_cells.emplace_back(item);
    return row;
}

void ListRowStore::insert(int index, const Row& row)
{
    m_rows.insert(m_rows.begin() + index, row);
}

void ListRowStore::append(const std::vector<Row>& rows)
{
    m_rows.insert(m_rows.end(), rows.begin(), rows.end());
}

void ListRowStore::remove(int index)
{
    const Row& row = m_rows[size_t(index)];
    for (qint32 i = 0; i < row.size; ++i)
        m_cells[size_t(row.first + i)] = ListCell();
    m_unusedCells += row.size;
    m_rows.erase(m_rows.begin() + index);
    compactIfSparse();
}

void ListRowStore::reorder(const std::vector<int>& order)
{
    std::vector<Row> reordered;
    reordered.reserve(order.size());
    for (int from : order)
        reordered.push_back(m_rows[size_t(from)]);
    m_rows = std::move(reordered);
}

void ListRowStore::clear()
{
    m_rows.clear();
    m_cells.clear(); // the capacity stays for the next fill
    m_unusedCells = 0;
}

void ListRowStore::moveToEnd(Row& row, qint32 size)
{
    const qint32 first = qint32(m_cells.size());
    m_cells.reserve(size_t(first + size));
    for (qint32 i = 0; i < row.size; ++i)
        m_cells.push_back(std::move(m_cells[size_t(row.first + i)]));
    m_cells.resize(size_t(first + size));
    m_unusedCells += row.size;
    row.first = first;
    row.size = size;
}

void ListRowStore::compactIfSparse()
{
    if (m_unusedCells <= CompactAfter || m_unusedCells * 2 <= qsizetype(m_cells.size()))
        return;
    std::vector<ListCell> used;
    used.reserve(m_cells.size() - size_t(m_unusedCells));
    for (Row& row : m_rows) {
        const qint32 first = qint32(used.size());
        for (qint32 i = 0; i < row.size; ++i)
            used.push_back(std::move(m_cells[size_t(row.first + i)]));
        row.first = first;
    }
    m_cells = std::move(used);
    m_unusedCells = 0;
}
