#pragma once

#include "BenchFigure.h"

#include <QString>

class QTemporaryDir;

// Inserting a list with its bitmap's pixels into the tiles of a 64 MiB
// synthetic level of 32 tiles, one tile in eight repainted with a gradient
// of a different colour at every pixel, next to a plain copy of the same
// level with QFile::copy in the same run. The unchanged tiles must cost
// little more than their copy; the repainted ones, a palette search each.
class InsertTilesRatioFigure : public BenchFigure
{
public:
    QString name() const override { return QStringLiteral("insert_tiles_ratio"); }
    QString unit() const override { return QStringLiteral("ratio"); }
    std::optional<double> measure() override;

private:
    static bool writeFiles(const QTemporaryDir& dir);

    static constexpr qint64 LevelBytes = qint64(64) * 1024 * 1024;
    static constexpr int Tiles = 32;
    static constexpr int RepaintEvery = 8;
    static constexpr int Repetitions = 7;
};
