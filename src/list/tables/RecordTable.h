#pragma once

#include "list/tables/RecordTableListener.h"

#include <QtGlobal>

#include <algorithm>
#include <vector>

// The records of one table of an open list, in saved order, with the views
// that listen to them. Every change goes through the functions below, which
// tell the listeners; reading is free.
template <class Entry>
class RecordTable
{
public:
    int count() const { return int(m_rows.size()); }
    bool isEmpty() const { return m_rows.empty(); }
    bool contains(int index) const { return index >= 0 && index < count(); }
    const Entry& at(int index) const { return m_rows[size_t(index)]; }
    const std::vector<Entry>& rows() const { return m_rows; }

    // The row whose entry has the number, or -1. Rows read from a file sit
    // at their numbers, so the look-up is usually one comparison.
    int rowOfNumber(qint32 number) const
    {
        if (contains(number) && at(number).number == number)
            return number;
        const auto found = std::find_if(m_rows.begin(), m_rows.end(),
                                        [number](const Entry& e) { return e.number == number; });
        return found == m_rows.end() ? -1 : int(found - m_rows.begin());
    }

    // The same, trying the row at hint first: after a deletion, numbers
    // looked up in rising order each sit one row past the one found before.
    int rowOfNumber(qint32 number, int hint) const
    {
        return contains(hint) && at(hint).number == number ? hint : rowOfNumber(number);
    }

    void listen(RecordTableListener* listener) { m_listeners.push_back(listener); }
    void forget(RecordTableListener* listener) { std::erase(m_listeners, listener); }

    void assign(std::vector<Entry>&& rows)
    {
        tell(&RecordTableListener::tableAboutToBeReset);
        m_rows = std::move(rows);
        tell(&RecordTableListener::tableReset);
    }
    void clear() { assign({}); }
    bool insert(int index, const Entry& entry)
    {
        if (index < 0 || index > count())
            return false;
        for (RecordTableListener* l : m_listeners)
            l->rowsAboutToBeInserted(index, 1);
        m_rows.insert(m_rows.begin() + index, entry);
        tell(&RecordTableListener::rowsInserted);
        return true;
    }
    bool remove(int index)
    {
        if (!contains(index))
            return false;
        for (RecordTableListener* l : m_listeners)
            l->rowAboutToBeRemoved(index);
        m_rows.erase(m_rows.begin() + index);
        for (RecordTableListener* l : m_listeners)
            l->rowRemoved(index);
        return true;
    }
    bool replace(int index, const Entry& entry)
    {
        if (!contains(index))
            return false;
        m_rows[size_t(index)] = entry;
        for (RecordTableListener* l : m_listeners)
            l->rowChanged(index);
        return true;
    }

private:
    void tell(void (RecordTableListener::*what)())
    {
        for (RecordTableListener* l : m_listeners)
            (l->*what)();
    }

    std::vector<Entry> m_rows;
    std::vector<RecordTableListener*> m_listeners;
};
