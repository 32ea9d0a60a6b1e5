#pragma once

#include "BenchFigure.h"

#include <QString>

// How long finding the tables of a large level takes next to reading the
// whole file into memory: the walk should cost a small part of one read.
// The level is a 30 MiB synthetic TR2 level of 300 rooms, so the walk hops
// over 300 rooms' bulk; both sides run against the same file, warm in the
// page cache, interleaved, and the medians are compared.
class WalkRatioFigure : public BenchFigure
{
public:
    QString name() const override { return QStringLiteral("walk_ratio"); }
    QString unit() const override { return QStringLiteral("ratio"); }
    std::optional<double> measure() override;

private:
    static constexpr qint64 LevelBytes = qint64(30) * 1024 * 1024;
    static constexpr int Rooms = 300;
    static constexpr int Repetitions = 25;

    static bool walkCompletes(const QString& path);
    static qint64 readAllBytes(const QString& path);
};
