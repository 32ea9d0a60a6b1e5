#include "ReadRatioFigure.h"

#include "DurationSamples.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cstdio>

std::optional<double> ReadRatioFigure::measure()
{
    const QByteArray figure = name().toLatin1();
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("level.tr2"));
    QString error;
    if (!dir.isValid() || !writeLevel(path, &error)) {
        std::fprintf(stderr, "%s: cannot write the level: %s\n", figure.constData(), qPrintable(error));
        return std::nullopt;
    }
    // Once untimed: the job must succeed, and both sides start warm.
    const bool ran = run(path, dir.path());
    tidy(dir.path());
    if (!ran || readAllBytes(path) != QFileInfo(path).size()) {
        std::fprintf(stderr, "%s: the synthetic level does not %s or read whole\n", figure.constData(), jobName());
        return std::nullopt;
    }

    DurationSamples jobs;
    DurationSamples reads;
    for (int i = 0; i < Repetitions; ++i) {
        jobs.time([&] { run(path, dir.path()); });
        tidy(dir.path());
        reads.time([&] { readAllBytes(path); });
    }
    std::fprintf(stderr, "%s: %s %.3f ms, read %.3f ms (medians of %d)\n", figure.constData(), jobName(),
                 jobs.median() / 1e6, reads.median() / 1e6, Repetitions);
    return jobs.median() / reads.median();
}

qint64 ReadRatioFigure::readAllBytes(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    return file.readAll().size();
}
