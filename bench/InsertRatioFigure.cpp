#include "InsertRatioFigure.h"

#include "BenchList.h"
#include "C_ListInserter.h"
#include "DurationSamples.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>

std::optional<double> InsertRatioFigure::measure()
{
    QTemporaryDir dir;
    if (!BenchList::write(dir, LevelBytes, "insert_ratio"))
        return std::nullopt;
    const QString level = BenchList::levelPath(dir);
    const QString output = dir.filePath(QStringLiteral("templevel.tr2"));
    const QString copy = dir.filePath(QStringLiteral("copy.tr2"));

    DurationSamples inserts;
    DurationSamples copies;
    QElapsedTimer timer;
    for (int i = 0; i < Repetitions; ++i) {
        QFile::remove(output);
        timer.start();
        const auto result = C_ListInserter().Insert(level, BenchList::listPath(dir), output);
        inserts.add(timer.nsecsElapsed());
        if (result.status != C_ListInserter::Status::Done) {
            std::fprintf(stderr, "insert_ratio: insertion failed: %s\n", qPrintable(result.error));
            return std::nullopt;
        }
        QFile::remove(copy);
        timer.start();
        const bool copied = QFile::copy(level, copy);
        copies.add(timer.nsecsElapsed());
        if (!copied) {
            std::fprintf(stderr, "insert_ratio: the copy failed\n");
            return std::nullopt;
        }
    }
    std::fprintf(stderr, "insert_ratio: insert %.1f ms, copy %.1f ms (medians of %d)\n", inserts.median() / 1e6,
                 copies.median() / 1e6, Repetitions);
    return inserts.median() / copies.median();
}
