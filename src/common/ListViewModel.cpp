#include "ListViewModel.h"

#include <algorithm>

ListViewModel::ListViewModel(const QStringList& columns, QObject* parent)
    : QAbstractTableModel(parent)
    , m_columns(columns)
{
}

void ListViewModel::setColumns(const QStringList& headers)
{
    beginResetModel();
    m_columns = headers;
    endResetModel();
}

QString ListViewModel::cell(const Row& row, int column) const
{
    if (column == 0)
        return row.text;
    return row.subItems.value(column - 1);
}

bool ListViewModel::rowLess(const Row& a, const Row& b) const
{
    const int c = cell(a, m_sortKey).compare(cell(b, m_sortKey), Qt::CaseInsensitive);
    return m_sortOrder == Qt::AscendingOrder ? c < 0 : c > 0;
}

int ListViewModel::sortedInsertPosition(const Row& row) const
{
    const auto at = std::upper_bound(m_rows.begin(), m_rows.end(), row,
                                     [this](const Row& a, const Row& b) { return rowLess(a, b); });
    return int(at - m_rows.begin());
}

void ListViewModel::reindexFrom(int first)
{
    for (int i = first; i < count(); ++i) {
        const QString& key = m_rows[size_t(i)].key;
        if (!key.isEmpty())
            m_keyIndex.insert(key, i);
    }
}

int ListViewModel::addRow(const QString& key, const QString& text, const QStringList& subItems)
{
    if (!key.isEmpty() && m_keyIndex.contains(key))
        return -1;
    Row row{key, text, subItems, Qt::Unchecked};
    const int at = m_sorted ? sortedInsertPosition(row) : count();
    beginInsertRows({}, at, at);
    m_rows.insert(m_rows.begin() + at, std::move(row));
    reindexFrom(at);
    if (m_selected >= at)
        ++m_selected;
    endInsertRows();
    return at;
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
    const int first = count();
    int next = first;
    m_keyIndex.reserve(m_keyIndex.size() + qsizetype(rows.size()));
    std::vector<Row> accepted;
    accepted.reserve(rows.size());
    for (Row& row : rows) {
        if (!row.key.isEmpty()) {
            if (m_keyIndex.contains(row.key))
                continue;
            m_keyIndex.insert(row.key, next);
        }
        accepted.push_back(std::move(row));
        ++next;
    }
    if (accepted.empty())
        return 0;
    beginInsertRows({}, first, next - 1);
    m_rows.reserve(m_rows.size() + accepted.size());
    for (Row& row : accepted)
        m_rows.push_back(std::move(row));
    endInsertRows();
    return int(accepted.size());
}

int ListViewModel::findKey(const QString& key) const
{
    return key.isEmpty() ? -1 : m_keyIndex.value(key, -1);
}

bool ListViewModel::removeAt(int index)
{
    if (index < 0 || index >= count())
        return false;
    beginRemoveRows({}, index, index);
    m_keyIndex.remove(m_rows[size_t(index)].key);
    m_rows.erase(m_rows.begin() + index);
    reindexFrom(index);
    if (m_selected == index)
        m_selected = -1;
    else if (m_selected > index)
        --m_selected;
    endRemoveRows();
    return true;
}

void ListViewModel::clear()
{
    beginResetModel();
    m_rows.clear();
    m_keyIndex.clear();
    m_selected = -1;
    endResetModel();
}

QString ListViewModel::key(int index) const
{
    return index >= 0 && index < count() ? m_rows[size_t(index)].key : QString();
}

QString ListViewModel::text(int index) const
{
    return index >= 0 && index < count() ? m_rows[size_t(index)].text : QString();
}

QString ListViewModel::subItem(int index, int subItem) const
{
    if (index < 0 || index >= count() || subItem < 1)
        return {};
    return m_rows[size_t(index)].subItems.value(subItem - 1);
}

Qt::CheckState ListViewModel::checkState(int index) const
{
    return index >= 0 && index < count() ? m_rows[size_t(index)].check : Qt::Unchecked;
}

void ListViewModel::setText(int index, const QString& text)
{
    if (index < 0 || index >= count())
        return;
    m_rows[size_t(index)].text = text;
    emit dataChanged(this->index(index, 0), this->index(index, 0));
}

void ListViewModel::setSubItem(int index, int subItem, const QString& text)
{
    if (index < 0 || index >= count() || subItem < 1)
        return;
    QStringList& items = m_rows[size_t(index)].subItems;
    while (items.size() < subItem)
        items.append(QString());
    items[subItem - 1] = text;
    if (subItem < columnCount())
        emit dataChanged(this->index(index, subItem), this->index(index, subItem));
}

void ListViewModel::setCheckState(int index, Qt::CheckState state)
{
    if (index < 0 || index >= count())
        return;
    m_rows[size_t(index)].check = state;
    emit dataChanged(this->index(index, 0), this->index(index, 0), {Qt::CheckStateRole});
}

void ListViewModel::setSelectedRow(int index)
{
    const int selected = index >= 0 && index < count() ? index : -1;
    if (selected == m_selected)
        return;
    m_selected = selected;
    emit selectedRowChanged(m_selected);
}

void ListViewModel::setSorted(bool sorted)
{
    m_sorted = sorted;
    if (sorted)
        sortRows();
}

void ListViewModel::sortRows()
{
    if (m_rows.size() < 2)
        return;
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::vector<int> order(m_rows.size());
    for (size_t i = 0; i < order.size(); ++i)
        order[i] = int(i);
    std::stable_sort(order.begin(), order.end(),
                     [this](int a, int b) { return rowLess(m_rows[size_t(a)], m_rows[size_t(b)]); });
    std::vector<Row> sorted;
    sorted.reserve(m_rows.size());
    std::vector<int> newPlace(m_rows.size());
    for (size_t i = 0; i < order.size(); ++i) {
        newPlace[size_t(order[i])] = int(i);
        sorted.push_back(std::move(m_rows[size_t(order[i])]));
    }
    m_rows = std::move(sorted);
    m_keyIndex.clear();
    reindexFrom(0);
    if (m_selected >= 0)
        m_selected = newPlace[size_t(m_selected)];
    QModelIndexList after;
    after.reserve(before.size());
    for (const QModelIndex& old : before)
        after.append(index(newPlace[size_t(old.row())], old.column()));
    changePersistentIndexList(before, after);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

bool ListViewModel::matchesPattern(QStringView text, QStringView pattern)
{
    // Greedy wildcard match with one back-track point: linear in practice.
    qsizetype t = 0, p = 0, starAt = -1, resumeText = 0;
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == QLatin1Char('*')) {
            starAt = p++;
            resumeText = t;
        } else if (p < pattern.size() && text[t].toCaseFolded() == pattern[p].toCaseFolded()) {
            ++t;
            ++p;
        } else if (starAt >= 0) {
            p = starAt + 1;
            t = ++resumeText;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == QLatin1Char('*'))
        ++p;
    return p == pattern.size();
}

QList<int> ListViewModel::rowsWithTextLike(QStringView pattern) const
{
    QList<int> found;
    for (int i = 0; i < count(); ++i) {
        if (matchesPattern(m_rows[size_t(i)].text, pattern))
            found.append(i);
    }
    return found;
}

QList<int> ListViewModel::rowsWithKeyLike(QStringView pattern) const
{
    QList<int> found;
    for (int i = 0; i < count(); ++i) {
        if (matchesPattern(m_rows[size_t(i)].key, pattern))
            found.append(i);
    }
    return found;
}

int ListViewModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : count();
}

int ListViewModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(qMax<qsizetype>(1, m_columns.size()));
}

QVariant ListViewModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const Row& row = m_rows[size_t(index.row())];
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return cell(row, index.column());
    case Qt::CheckStateRole:
        if (m_checkable && index.column() == 0)
            return int(row.check);
        return {};
    case KeyRole:
        return row.key;
    default:
        return {};
    }
}

bool ListViewModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return false;
    if (role == Qt::CheckStateRole && m_checkable && index.column() == 0) {
        setCheckState(index.row(), static_cast<Qt::CheckState>(value.toInt()));
        return true;
    }
    return false;
}

QVariant ListViewModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return m_columns.value(section);
}

Qt::ItemFlags ListViewModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    Qt::ItemFlags f = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    if (m_checkable && index.column() == 0)
        f |= Qt::ItemIsUserCheckable;
    return f;
}

void ListViewModel::sort(int column, Qt::SortOrder order)
{
    m_sortKey = column;
    m_sortOrder = order;
    setSorted(true);
}
