#include "ui/common/ListEditFollower.h"

#include <QAbstractItemModel>
#include <QTimer>

ListEditFollower::ListEditFollower(std::initializer_list<const QAbstractItemModel*> watched, std::function<void()> follow,
                                   QObject* parent)
    : QObject(parent)
    , m_follow(std::move(follow))
{
    for (const QAbstractItemModel* model : watched) {
        connect(model, &QAbstractItemModel::dataChanged, this, &ListEditFollower::Schedule);
        connect(model, &QAbstractItemModel::rowsInserted, this, &ListEditFollower::Schedule);
        connect(model, &QAbstractItemModel::rowsRemoved, this, &ListEditFollower::Schedule);
        connect(model, &QAbstractItemModel::layoutChanged, this, &ListEditFollower::Schedule);
        connect(model, &QAbstractItemModel::modelReset, this, &ListEditFollower::Schedule);
    }
}

void ListEditFollower::Schedule()
{
    if (m_pending)
        return;
    m_pending = true;
    QTimer::singleShot(0, this, [this] {
        m_pending = false;
        m_follow();
    });
}
