#include "InsertRatioFigure.h"

#include "BenchList.h"
#include "list/C_ListInserter.h"
#include "DurationSamples.h"

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
    for (int i = 0; i < Repetitions; ++i) {
        QFile::remove(output);
        const auto result = inserts.time([&] { return C_ListInserter().Insert(level, BenchList::listPath(dir), output); });
        if (result.status != C_ListInserter::Status::Done) {
            std::fprintf(stderr, "insert_ratio: insertion failed: %s\n", qPrintable(result.error));
            return std::nullopt;
        }
        QFile::remove(copy);
        if (!copies.time([&] { return QFile::copy(level, copy); })) {
            std::fprintf(stderr, "insert_ratio: the copy failed\n");
            return std::nullopt;
        }
    }
    std::fprintf(stderr, "insert_ratio: insert %.1f ms, copy %.1f ms (medians of %d)\n", inserts.median() / 1e6,
                 copies.median() / 1e6, Repetitions);
    return inserts.median() / copies.median();
}
