#include "list/rows/ListViewModel.h"

#include <algorithm>
#include <numeric>

ListViewModel::ListViewModel(const QStringList& columns, QObject* parent)
    : ListRows(columns, parent)
{
}

bool ListViewModel::rowLess(const StoredRow& a, const StoredRow& b) const
{
    ListCell::Buffer bufferA;
    ListCell::Buffer bufferB;
    const QStringView textA = m_store.cellOf(a, m_sortKey).view(bufferA);
    const int c = textA.compare(m_store.cellOf(b, m_sortKey).view(bufferB), Qt::CaseInsensitive);
    return m_sortOrder == Qt::AscendingOrder ? c < 0 : c > 0;
}

int ListViewModel::sortedInsertPosition(const StoredRow& row) const
{
    const std::vector<StoredRow>& rows = m_store.rows();
    const auto at = std::upper_bound(rows.begin(), rows.end(), row,
                                     [this](const StoredRow& a, const StoredRow& b) { return rowLess(a, b); });
    return int(at - rows.begin());
}

QHash<ListCell, int>& ListViewModel::keyIndex() const
{
    if (m_keyIndexStale) {
        m_keyIndexStale = false;
        m_keyIndex.clear();
        m_keyIndex.reserve(count());
        reindexFrom(0);
    }
    return m_keyIndex;
}

void ListViewModel::reindexFrom(int first) const
{
    if (m_keyIndexStale)
        return;
    for (int i = first; i < count(); ++i) {
        const ListCell& key = m_store.keyOf(m_store.at(i));
        if (!key.isEmpty())
            m_keyIndex.insert(key, i);
    }
}

bool ListViewModel::claimKey(const ListCell& key, int index)
{
    if (key.isEmpty())
        return true;
    // One look-up: the slot is new exactly when the index grew.
    QHash<ListCell, int>& keys = keyIndex();
    const qsizetype before = keys.size();
    int& slot = keys[key];
    if (keys.size() == before)
        return false;
    slot = index;
    return true;
}

// One stored row at its place: the end, or its sorted place while sorting
// is on. Its key is not taken.
int ListViewModel::place(const StoredRow& row)
{
    return placeAt(m_sorted ? sortedInsertPosition(row) : count(), row);
}

int ListViewModel::placeAt(int at, const StoredRow& row)
{
    beginInsertRows({}, at, at);
    m_store.insert(at, row);
    reindexFrom(at);
    followInsertedRows(at, 1);
    endInsertRows();
    return at;
}

// Stored rows whose keys are claimed already, at the end with one notification.
int ListViewModel::placeAtEnd(const std::vector<StoredRow>& rows)
{
    if (rows.empty())
        return 0;
    beginInsertRows({}, count(), count() + int(rows.size()) - 1);
    m_store.append(rows);
    endInsertRows();
    return int(rows.size());
}

int ListViewModel::addRow(const QString& key, const QString& text, const QStringList& subItems)
{
    ListCell keyCell(key);
    if (!keyCell.isEmpty() && keyIndex().contains(keyCell))
        return -1;
    return place(m_store.store(std::move(keyCell), text, subItems, Qt::Unchecked));
}

int ListViewModel::appendRows(std::vector<Row>&& rows)
{
    if (m_sorted) {
        int added = 0;
        for (Row& row : rows)
            added += addRow(row.key, row.text, row.subItems) >= 0;
        return added;
    }
    // Keys are claimed as the rows are accepted, so a key taken by an
    // earlier row, of the model or of this batch, turns the later one away.
    keyIndex().reserve(count() + qsizetype(rows.size()));
    std::vector<StoredRow> accepted;
    accepted.reserve(rows.size());
    for (Row& row : rows) {
        ListCell key(row.key);
        if (claimKey(key, count() + int(accepted.size())))
            accepted.push_back(m_store.store(std::move(key), row.text, row.subItems, row.check));
    }
    return placeAtEnd(accepted);
}

int ListViewModel::findKey(const QString& key) const
{
    const ListCell cell(key);
    return cell.isEmpty() ? -1 : keyIndex().value(cell, -1);
}

bool ListViewModel::removeAt(int index)
{
    if (!isValidRow(index))
        return false;
    beginRemoveRows({}, index, index);
    if (!m_keyIndexStale)
        m_keyIndex.remove(m_store.keyOf(m_store.at(index)));
    m_store.remove(index);
    reindexFrom(index);
    followRemovedRow(index);
    endRemoveRows();
    return true;
}

void ListViewModel::clear()
{
    beginResetModel();
    m_store.clear();
    m_keyIndex.clear();
    m_keyIndexStale = false;
    forgetSelection();
    endResetModel();
}

QString ListViewModel::key(int index) const
{
    return isValidRow(index) ? m_store.keyOf(m_store.at(index)).toString() : QString();
}

ListViewModel::Row ListViewModel::row(int index) const
{
    if (!isValidRow(index))
        return {};
    const StoredRow& stored = m_store.at(index);
    Row row{m_store.keyOf(stored).toString(), m_store.cellOf(stored, 0).toString(), {}, stored.check};
    row.subItems.reserve(m_store.subItemCount(stored));
    for (int item = 1; item <= m_store.subItemCount(stored); ++item)
        row.subItems.append(m_store.cellOf(stored, item).toString());
    return row;
}

QString ListViewModel::cellText(int index, int column) const
{
    return isValidRow(index) && column >= 0 ? cellAt(index, column).toString() : QString();
}

qint64 ListViewModel::subItemNumber(int index, int subItem) const
{
    if (!isValidRow(index) || subItem < 1)
        return 0;
    return cellAt(index, subItem).leadingInteger();
}

Qt::CheckState ListViewModel::checkState(int index) const
{
    return isValidRow(index) ? m_store.at(index).check : Qt::Unchecked;
}

void ListViewModel::setText(int index, const QString& text)
{
    if (!isValidRow(index))
        return;
    m_store.setCell(index, 0, ListCell(text));
    emit dataChanged(this->index(index, 0), this->index(index, 0));
}

void ListViewModel::setSubItem(int index, int subItem, const QString& text)
{
    if (!isValidRow(index) || subItem < 1)
        return;
    m_store.setCell(index, subItem, ListCell(text));
    if (subItem < columnCount())
        emit dataChanged(this->index(index, subItem), this->index(index, subItem));
}

void ListViewModel::setCheckState(int index, Qt::CheckState state)
{
    if (!isValidRow(index))
        return;
    m_store.setCheck(index, state);
    emit dataChanged(this->index(index, 0), this->index(index, 0), {Qt::CheckStateRole});
}

void ListViewModel::setSorted(bool sorted)
{
    m_sorted = sorted;
    if (sorted)
        sortRows();
}

std::vector<int> ListViewModel::sortedOrder() const
{
    std::vector<int> order(static_cast<size_t>(count()));
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [this](int a, int b) { return rowLess(m_store.at(a), m_store.at(b)); });
    return order;
}

void ListViewModel::sortRows()
{
    if (count() < 2)
        return;
    reorder(sortedOrder());
}

void ListViewModel::reorder(const std::vector<int>& order)
{
    if (order.size() != size_t(count()))
        return;
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::vector<int> newPlace(order.size());
    for (size_t i = 0; i < order.size(); ++i)
        newPlace[size_t(order[i])] = int(i);
    m_store.reorder(order);
    m_keyIndex.clear();
    m_keyIndexStale = false;
    reindexFrom(0);
    followReorder(newPlace);
    QModelIndexList after;
    after.reserve(before.size());
    for (const QModelIndex& old : before)
        after.append(index(newPlace[size_t(old.row())], old.column()));
    changePersistentIndexList(before, after);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void ListViewModel::sort(int column, Qt::SortOrder order)
{
    m_sortKey = column;
    m_sortOrder = order;
    setSorted(true);
}
