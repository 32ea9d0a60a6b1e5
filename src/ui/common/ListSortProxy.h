#pragma once

#include <QSortFilterProxyModel>

// The order a header click shows a list in, without touching the list: rows
// whose cells both hold whole numbers go by value ("9" before "10"), any
// other cells by their text, letter case ignored; equal cells keep the
// list's order.
class ListSortProxy : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

protected:
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;
};
