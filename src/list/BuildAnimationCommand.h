#pragma once

#include "list/TableEditCommand.h"
#include "list/tables/ListTables.h"

#include <QList>

// A whole animated texture range built at once: a new range (its summary row
// and one row per texture), or an existing range's textures replaced.
// "Add Animation 05", "Edit Animation 05".
//
// Replacing takes out the texture rows of every range the number reaches
// (RangeRowFormat::Reaches) and puts the new ones at the end. The summary row
// is brought up to date only while the list holds that one range; with more,
// its "Number" and "First" keep their old values.
class BuildAnimationCommand : public TableEditCommand
{
public:
    enum class Build { New, Replace };

    BuildAnimationCommand(ListTables& tables, Build build, qint32 number, const QList<quint16>& textures);

protected:
    bool perform(TableEditLog& log) override;

private:
    bool AppendRange(TableEditLog& log);
    void RefreshSingleRange(TableEditLog& log);
    void RemoveReachedTextures(TableEditLog& log);
    void AppendTextures(TableEditLog& log);

    ListTables& m_tables;
    Build m_build;
    qint32 m_number;
    QList<quint16> m_textures;
};
