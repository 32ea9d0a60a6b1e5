#pragma once

#include "list/TableEditCommand.h"
#include "list/tables/RecordTable.h"
#include "list/tables/RowTextOf.h"

#include <QCoreApplication>

// The record of one row replaced, the row keeping its number and its text:
// "Edit Sprite 03".
template <class Format>
class EditEntryCommand : public TableEditCommand
{
public:
    using Entry = typename Format::Entry;

    EditEntryCommand(RecordTable<Entry>& table, const QString& noun, qint32 number, const Entry& edited)
        : TableEditCommand(
            QCoreApplication::translate("ListDocument", "Edit %1 %2").arg(noun, RowTextOf<Format>(table, number)))
        , m_table(table)
        , m_number(number)
        , m_edited(edited)
    {
    }

protected:
    bool perform(TableEditLog& log) override
    {
        const int row = m_table.rowOfNumber(m_number);
        if (row < 0)
            return false;
        Entry edited = m_edited;
        edited.number = m_table.at(row).number;
        if constexpr (requires { edited.width; })
            edited.width = m_table.at(row).width;
        return log.replace(m_table, row, edited);
    }

private:
    RecordTable<Entry>& m_table;
    qint32 m_number;
    Entry m_edited;
};
