#pragma once

#include <QObject>

#include <functional>
#include <initializer_list>

class QAbstractItemModel;

// Keeps a page's detail list made from other lists up to date: whenever rows
// of the watched lists change (an edit, an undo, a redo, a reload), follow is
// called once the current event has been handled, however many rows changed
// in it, so an edit of thousands of rows costs one refill.
class ListEditFollower : public QObject
{
    Q_OBJECT

public:
    ListEditFollower(std::initializer_list<const QAbstractItemModel*> watched, std::function<void()> follow,
                     QObject* parent);

private:
    void Schedule();

    std::function<void()> m_follow;
    bool m_pending = false;
};
