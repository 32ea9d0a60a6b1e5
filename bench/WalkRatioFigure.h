#pragma once

#include "ReadRatioFigure.h"

// How long finding the tables of a large level takes next to reading the
// whole file into memory: the walk should cost a small part of one read.
// The level is a 30 MiB synthetic TR2 level of 300 rooms, so the walk hops
// over 300 rooms' bulk.
class WalkRatioFigure : public ReadRatioFigure
{
public:
    QString name() const override { return QStringLiteral("walk_ratio"); }

protected:
    const char* jobName() const override { return "walk"; }
    bool writeLevel(const QString& path, QString* error) const override;
    bool run(const QString& path, const QString& dir) override;

private:
    static constexpr qint64 LevelBytes = qint64(30) * 1024 * 1024;
    static constexpr int Rooms = 300;
};
