#include "list/rows/ListRows.h"

#include "common/NumberText.h"

ListRows::ListRows(const QStringList& columns, QObject* parent)
    : QAbstractTableModel(parent)
    , m_columns(columns)
{
}

void ListRows::setColumns(const QStringList& headers)
{
    beginResetModel();
    m_columns = headers;
    endResetModel();
}

qint64 ListRows::subItemNumber(int index, int subItem) const
{
    if (!isValidRow(index) || subItem < 1)
        return 0;
    return NumberText::valueOf(cellText(index, subItem));
}

Qt::CheckState ListRows::checkState(int /*index*/) const
{
    return Qt::Unchecked;
}

void ListRows::setCheckState(int /*index*/, Qt::CheckState /*state*/)
{
}

bool ListRows::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return false;
    if (role != Qt::CheckStateRole || !isCheckable() || index.column() != 0)
        return false;
    setCheckState(index.row(), static_cast<Qt::CheckState>(value.toInt()));
    return true;
}

ListRows::Row ListRows::row(int index) const
{
    if (!isValidRow(index))
        return {};
    Row row{key(index), text(index), {}, checkState(index)};
    const int columns = int(m_columns.size());
    row.subItems.reserve(qMax(0, columns - 1));
    for (int item = 1; item < columns; ++item)
        row.subItems.append(cellText(index, item));
    return row;
}

void ListRows::setSelectedRow(int index)
{
    const int selected = isValidRow(index) ? index : -1;
    if (selected == m_selected)
        return;
    m_selected = selected;
    emit selectedRowChanged(m_selected);
}

void ListRows::followInsertedRows(int first, int rowCount)
{
    if (m_selected >= first)
        m_selected += rowCount;
}

void ListRows::followRemovedRow(int index)
{
    if (m_selected == index)
        m_selected = -1;
    else if (m_selected > index)
        --m_selected;
}

void ListRows::followReorder(const std::vector<int>& newPlace)
{
    if (m_selected >= 0 && size_t(m_selected) < newPlace.size())
        m_selected = newPlace[size_t(m_selected)];
}

int ListRows::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : count();
}

int ListRows::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_columns.size());
}

QVariant ListRows::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return cellText(index.row(), index.column());
    case Qt::CheckStateRole:
        if (isCheckable() && index.column() == 0)
            return int(checkState(index.row()));
        return {};
    case KeyRole:
        return key(index.row());
    default:
        return {};
    }
}

QVariant ListRows::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return m_columns.value(section);
}

Qt::ItemFlags ListRows::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    Qt::ItemFlags f = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    if (isCheckable() && index.column() == 0)
        f |= Qt::ItemIsUserCheckable;
    return f;
}
