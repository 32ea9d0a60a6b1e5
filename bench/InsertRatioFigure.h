#pragma once

#include "BenchFigure.h"

#include <QString>

// Inserting the large list into a 64 MiB synthetic level, next to a plain
// copy of the same level with QFile::copy in the same run: insertion should
// cost little more than the copy it essentially is.
class InsertRatioFigure : public BenchFigure
{
public:
    QString name() const override { return QStringLiteral("insert_ratio"); }
    QString unit() const override { return QStringLiteral("ratio"); }
    std::optional<double> measure() override;

private:
    static constexpr qint64 LevelBytes = qint64(64) * 1024 * 1024;
    static constexpr int Repetitions = 11;
};
