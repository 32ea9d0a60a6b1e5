#include "ui/common/ListSortProxy.h"

bool ListSortProxy::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    const QString a = left.data(Qt::DisplayRole).toString();
    const QString b = right.data(Qt::DisplayRole).toString();
    bool aIsNumber = false;
    bool bIsNumber = false;
    const qlonglong x = a.toLongLong(&aIsNumber);
    const qlonglong y = b.toLongLong(&bIsNumber);
    if (aIsNumber && bIsNumber)
        return x < y;
    return a.compare(b, Qt::CaseInsensitive) < 0;
}
