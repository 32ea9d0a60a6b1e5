#pragma once

#include "list/TableEditCommand.h"
#include "list/tables/ListTables.h"

#include <QStringList>

// An object texture deleted, as one entry of the undo stack: "Delete Texture
// 0012". Every texture after it moves down one place in the level, so the
// animation ranges follow: an entry naming a later texture is lowered by
// one, an entry naming the deleted texture is dropped, and a range left with
// fewer than two textures is removed with it. The rows of the list keep
// their numbers. Undo puts rows and ranges back as they were.
//
// A list whose ranges name textures past its end cannot be renumbered
// safely: nothing is deleted then, and the outcome says why.
class DeleteTextureCommand : public TableEditCommand
{
public:
    struct Outcome
    {
        QStringList shortened; // ranges that lost the deleted texture, by number
        QStringList removed;   // ranges left with fewer than two textures
        QString refusal;       // why nothing was deleted; "" when it was
    };

    DeleteTextureCommand(ListTables& tables, qint32 number, Outcome* outcome = nullptr);

protected:
    bool perform(TableEditLog& log) override;

private:
    // A range's row with the texture rows the list saves for it.
    struct Range
    {
        int row;
        QList<int> details;
    };
    QList<Range> Ranges() const;
    QString PastTheEnd(const QList<Range>& ranges) const;
    void FollowTexture(TableEditLog& log, const QList<Range>& ranges, int deleted);

    ListTables& m_tables;
    qint32 m_number;
    Outcome* m_outcome;
};
