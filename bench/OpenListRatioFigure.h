#pragma once

#include "BenchFigure.h"

#include <QString>

// Opening the large list of BenchList into the six list view models, next to
// reading the same file and decoding all its records into plain records with
// no model, in the same run: what filling the models adds to reading the
// tables. Both sides open the file twice, as opening a list does: once for
// its header and positions, once for its tables.
class OpenListRatioFigure : public BenchFigure
{
public:
    QString name() const override { return QStringLiteral("open_list_ratio"); }
    QString unit() const override { return QStringLiteral("ratio"); }
    std::optional<double> measure() override;

private:
    static constexpr int Repetitions = 21;

    // Every record of the list's four tables, decoded; returns how many
    // object textures there were, or -1 when the file cannot be read.
    static qsizetype decodeRecords(const QString& path);
};
