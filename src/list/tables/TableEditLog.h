#pragma once

#include "list/tables/RecordTable.h"

#include <memory>
#include <vector>

// Changes to the records of an open list, each made at once and remembered
// with the records it replaced, so the whole run can be taken back (undo)
// and made again (redo). Taking back runs the changes backwards, so every
// remembered row number is right again when its change is reached.
class TableEditLog
{
public:
    template <class Entry>
    bool insert(RecordTable<Entry>& table, int index, const Entry& entry)
    {
        return table.insert(index, entry)
            && keep(std::make_unique<Step<Entry>>(table, index, Entry{}, entry, Kind::Insert));
    }
    template <class Entry>
    bool append(RecordTable<Entry>& table, const Entry& entry)
    {
        return insert(table, table.count(), entry);
    }
    template <class Entry>
    bool remove(RecordTable<Entry>& table, int index)
    {
        if (!table.contains(index))
            return false;
        const Entry before = table.at(index);
        table.remove(index);
        return keep(std::make_unique<Step<Entry>>(table, index, before, Entry{}, Kind::Remove));
    }
    // False for no such row or no change.
    template <class Entry>
    bool replace(RecordTable<Entry>& table, int index, const Entry& entry)
    {
        if (!table.contains(index) || table.at(index) == entry)
            return false;
        const Entry before = table.at(index);
        table.replace(index, entry);
        return keep(std::make_unique<Step<Entry>>(table, index, before, entry, Kind::Replace));
    }

    bool isEmpty() const { return m_steps.empty(); }
    void undo();
    void redo();

private:
    enum class Kind { Insert, Remove, Replace };

    struct AnyStep
    {
        virtual ~AnyStep() = default;
        virtual void undo() = 0;
        virtual void redo() = 0;
    };

    template <class Entry>
    struct Step final : AnyStep
    {
        Step(RecordTable<Entry>& table, int index, const Entry& before, const Entry& after, Kind kind)
            : table(table), index(index), before(before), after(after), kind(kind)
        {
        }
        void undo() override
        {
            if (kind == Kind::Insert)
                table.remove(index);
            else if (kind == Kind::Remove)
                table.insert(index, before);
            else
                table.replace(index, before);
        }
        void redo() override
        {
            if (kind == Kind::Insert)
                table.insert(index, after);
            else if (kind == Kind::Remove)
                table.remove(index);
            else
                table.replace(index, after);
        }

        RecordTable<Entry>& table;
        int index;
        Entry before;
        Entry after;
        Kind kind;
    };

    bool keep(std::unique_ptr<AnyStep> step)
    {
        m_steps.push_back(std::move(step));
        return true;
    }

    std::vector<std::unique_ptr<AnyStep>> m_steps;
};
