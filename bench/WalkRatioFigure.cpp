#include "WalkRatioFigure.h"

#include "C_LevelInfo.h"
#include "DurationSamples.h"
#include "SyntheticLevel.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>

std::optional<double> WalkRatioFigure::measure()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("walk_ratio.tr2"));
    QString error;
    if (!dir.isValid() || !SyntheticLevel::ofSize(LevelVersion::Game::TR2, LevelBytes, Rooms).writeTo(path, &error)) {
        std::fprintf(stderr, "walk_ratio: cannot write the level: %s\n", qPrintable(error));
        return std::nullopt;
    }
    if (!walkCompletes(path) || readAllBytes(path) != LevelBytes) { // also warms the page cache
        std::fprintf(stderr, "walk_ratio: the synthetic level does not walk or read whole\n");
        return std::nullopt;
    }

    DurationSamples walks;
    DurationSamples reads;
    QElapsedTimer timer;
    for (int i = 0; i < Repetitions; ++i) {
        timer.start();
        walkCompletes(path);
        walks.add(timer.nsecsElapsed());
        timer.start();
        readAllBytes(path);
        reads.add(timer.nsecsElapsed());
    }
    std::fprintf(stderr, "walk_ratio: walk %.3f ms, read %.3f ms (medians of %d)\n",
                 walks.median() / 1e6, reads.median() / 1e6, Repetitions);
    return walks.median() / reads.median();
}

bool WalkRatioFigure::walkCompletes(const QString& path)
{
    C_LevelInfo info;
    info.Init(path);
    return info.IsWalkComplete();
}

qint64 WalkRatioFigure::readAllBytes(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    return file.readAll().size();
}
