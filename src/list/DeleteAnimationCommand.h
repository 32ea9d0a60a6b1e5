#pragma once

#include "list/TableEditCommand.h"
#include "list/tables/ListTables.h"

// An animated texture range taken out: "Delete Animation 05". The other
// ranges keep their numbers: numbering gaps are allowed. The number reaches
// as RangeRowFormat::Reaches says: the last summary row it reaches goes, with
// the texture rows of every range it reaches.
class DeleteAnimationCommand : public TableEditCommand
{
public:
    DeleteAnimationCommand(ListTables& tables, qint32 number);

protected:
    bool perform(TableEditLog& log) override;

private:
    ListTables& m_tables;
    qint32 m_number;
};
