#include "list/rows/PlannedRange.h"

#include "common/NumberText.h"

#include <numeric>
#include <utility>

PlannedRange::PlannedRange(QObject* parent)
    : ListRows({QStringLiteral("Texture No"), QStringLiteral("Order")}, parent)
{
}

void PlannedRange::append(quint16 texture)
{
    beginInsertRows({}, count(), count());
    m_textures.append(texture);
    endInsertRows();
}

void PlannedRange::removeAt(int index)
{
    if (!isValidRow(index))
        return;
    beginRemoveRows({}, index, index);
    m_textures.removeAt(index);
    followRemovedRow(index);
    endRemoveRows();
    // The rows after it move up one place in the order.
    if (index < count())
        emit dataChanged(this->index(index, 1), this->index(count() - 1, 1));
}

void PlannedRange::swap(int first, int second)
{
    if (!isValidRow(first) || !isValidRow(second) || first == second)
        return;
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    std::vector<int> newPlace(static_cast<size_t>(count()));
    std::iota(newPlace.begin(), newPlace.end(), 0);
    std::swap(newPlace[size_t(first)], newPlace[size_t(second)]);
    m_textures.swapItemsAt(first, second);
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    for (const QModelIndex& old : before)
        after.append(index(newPlace[size_t(old.row())], old.column()));
    changePersistentIndexList(before, after);
    followReorder(newPlace);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void PlannedRange::clear()
{
    beginResetModel();
    m_textures.clear();
    forgetSelection();
    endResetModel();
}

QString PlannedRange::key(int /*index*/) const
{
    return {};
}

QString PlannedRange::cellText(int index, int column) const
{
    if (!isValidRow(index))
        return {};
    if (column == 0)
        return NumberText::of(m_textures[index]);
    return column == 1 ? NumberText::padded(index + 1, 4) : QString();
}

qint64 PlannedRange::subItemNumber(int index, int subItem) const
{
    return isValidRow(index) && subItem == 1 ? index + 1 : 0;
}

int PlannedRange::findKey(const QString& /*key*/) const
{
    return -1;
}
