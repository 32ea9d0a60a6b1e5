#pragma once

#include "list/TableEditCommand.h"
#include "list/tables/RecordTable.h"
#include "list/tables/RowTextOf.h"

#include <QCoreApplication>

// One row taken out of a table, the others keeping their numbers:
// "Delete Sequence 00002".
template <class Format>
class DeleteEntryCommand : public TableEditCommand
{
public:
    using Entry = typename Format::Entry;

    DeleteEntryCommand(RecordTable<Entry>& table, const QString& noun, qint32 number)
        : TableEditCommand(
            QCoreApplication::translate("ListDocument", "Delete %1 %2").arg(noun, RowTextOf<Format>(table, number)))
        , m_table(table)
        , m_number(number)
    {
    }

protected:
    bool perform(TableEditLog& log) override { return log.remove(m_table, m_table.rowOfNumber(m_number)); }

private:
    RecordTable<Entry>& m_table;
    qint32 m_number;
};
