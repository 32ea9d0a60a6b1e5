#pragma once

#include "BenchFigure.h"

#include <QString>

// A job on a synthetic level timed against reading the same level's bytes
// once with QFile::readAll: both run against the same file, warm in the page
// cache, interleaved, and the ratio of the medians is the figure. A figure
// is the level it writes and the job it times.
class ReadRatioFigure : public BenchFigure
{
public:
    QString unit() const override { return QStringLiteral("ratio"); }
    std::optional<double> measure() override;

protected:
    // What the job is called in the timing line on stderr ("walk", "usage").
    virtual const char* jobName() const = 0;
    virtual bool writeLevel(const QString& path, QString* error) const = 0;
    // The job on the level at path; false when it fails. dir is a scratch
    // folder beside the level for anything the job writes.
    virtual bool run(const QString& path, const QString& dir) = 0;
    // Untimed, after each run: puts dir back as the next run expects it.
    virtual void tidy(const QString& dir) { Q_UNUSED(dir); }

    static constexpr int Repetitions = 25;

private:
    static qint64 readAllBytes(const QString& path);
};
