#pragma once

#include "list/Currency.h"

#include <QList>
#include <QObject>
#include <QVariant>

// A growable list of numbers, strings and object references, numbered from 1,
// that tells its listeners when it grows, shrinks, is cleared or is asked for
// an item it does not have.
//
// The storage always runs from index 0 to one past the last item: slot 0 is
// never used and the last slot is a spare. A new or cleared array therefore
// has slots 0 and 1 and no items.
//
// Objects are held by reference and are not owned: whoever adds an object
// keeps it alive for as long as it is in the array.
class CSmartArray : public QObject
{
    Q_OBJECT

public:
    explicit CSmartArray(QObject* parent = nullptr);

    // Recounts the items from the storage and remembers the count.
    Currency NumberOfItemInArray();

    // Appends a non-null object, a number or a non-empty string; refuses
    // anything else without a signal.
    bool AddOneItem(const QVariant& AnyItem);

    bool RemoveOneItemByIndex(Currency AnyItemIndex);

    // An empty QVariant when the index names no item.
    QVariant GetOneItemByIndex(Currency AnyItemIndex);

    // Replaces an item with a value AddOneItem would accept.
    bool SetOneItemByIndex(const QVariant& AnyItem, Currency AnyItemIndex);

    // Drops every item. The remembered count is left as it was until the
    // next NumberOfItemInArray, which callers make right after clearing.
    bool ClearArray();

    // The index of the first item equal to AnyItem (objects by identity), or
    // -99. Items past index 32767 cannot be reported and are not looked at.
    short IsValueThere(const QVariant& AnyItem);

signals:
    // The count less one: the zero-based row of the last item, -1 when none.
    void Resized(Currency lastRow);
    void Cleared(bool cleared);
    // The index that named no item, saturated to 16 bits.
    void Exceed(qint16 index);

private:
    bool IsIndexValid(Currency index);
    qsizetype UpperBound() const { return m_items.size() - 1; }

    QList<QVariant> m_items;
    Currency m_count;
};
