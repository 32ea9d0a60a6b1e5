#pragma once

#include "list/ListViewSet.h"
#include "list/RowEditCommand.h"

// A whole animated texture range built at once: a new range (its lsvAnims
// row and one lsvAnimDetails row per texture), or an existing range's
// textures replaced. "Add Animation 05", "Edit Animation 05".
//
// A range numbered NN owns the lsvAnims row with text NN and key "A"NN and
// the detail rows with texts "NN-i" and keys "A"NNi; its rows are found by
// prefix, so range 10 also reaches the rows of ranges 100 to 109.
class BuildAnimationCommand : public RowEditCommand
{
public:
    enum class Build { New, Replace };

    BuildAnimationCommand(ListViewSet& views, Build build, const QString& number, const QStringList& textures);

    // The rows of lsvAnimDetails whose texts start with the number, from
    // the last up; the ones a range NN owns or reaches.
    static QList<int> DetailRowsOf(const ListViewModel& details, const QString& number);

protected:
    bool perform(RowEditLog& log) override;

private:
    bool AppendRange(RowEditLog& log);
    void RefreshSingleRange(RowEditLog& log);
    void AppendDetails(RowEditLog& log);

    ListViewSet& m_views;
    Build m_build;
    QString m_number;
    QStringList m_textures;
};
