#pragma once

#include "list/ListViewSet.h"
#include "list/RowEditCommand.h"

// An animated texture range taken out: "Delete Animation 05". The other
// ranges keep their numbers: numbering gaps are allowed.
class DeleteAnimationCommand : public RowEditCommand
{
public:
    DeleteAnimationCommand(ListViewSet& views, const QString& number);

protected:
    bool perform(RowEditLog& log) override;

private:
    ListViewSet& m_views;
    QString m_number;
};
