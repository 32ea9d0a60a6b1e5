#pragma once

#include "BenchFigure.h"

#include <QString>

class QTemporaryDir;

// The most memory brindle-cli holds while it inserts a list with its
// bitmap into a 64 MiB synthetic level: the bitmap is the level's own 320
// tiles, written as the tiles command writes them, with 8 tiles added at
// the bottom. The insertion runs as a program of its own, so that nothing
// this program made is counted. It must stay within the output's size plus
// 32 MiB: the bitmap is taken one tile at a time.
class InsertTilesPeakFigure : public BenchFigure
{
public:
    QString name() const override { return QStringLiteral("insert_tiles_peak_mb"); }
    QString unit() const override { return QStringLiteral("MB"); }
    std::optional<double> measure() override;

private:
    static bool writeFiles(const QTemporaryDir& dir);
    static bool addTiles(const QString& bitmap, int tiles);

    static constexpr qint64 LevelBytes = qint64(64) * 1024 * 1024;
    static constexpr int Tiles = 320;
    static constexpr int AddedTiles = 8;
};
