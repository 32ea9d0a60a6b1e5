#pragma once

#include "list/TableEditCommand.h"
#include "list/tables/RecordTable.h"

#include <QCoreApplication>

// A new row at the end of one of the list's tables: "Add Texture 0012".
// Refused when another row has its number.
template <class Format>
class AddEntryCommand : public TableEditCommand
{
public:
    using Entry = typename Format::Entry;

    AddEntryCommand(RecordTable<Entry>& table, const QString& noun, const Entry& entry)
        : TableEditCommand(QCoreApplication::translate("ListDocument", "Add %1 %2").arg(noun, Format::Cell(entry, 0)))
        , m_table(table)
        , m_entry(entry)
    {
    }

protected:
    bool perform(TableEditLog& log) override
    {
        return m_table.rowOfNumber(m_entry.number) < 0 && log.append(m_table, m_entry);
    }

private:
    RecordTable<Entry>& m_table;
    Entry m_entry;
};
