#pragma once

#include <QList>
#include <QtGlobal>

// Durations of repeated runs of one piece of work; the median keeps a stray
// slow run (a page fault storm, another process) from moving the figure.
class DurationSamples
{
public:
    void add(qint64 nanoseconds) { m_samples.append(nanoseconds); }
    qsizetype size() const { return m_samples.size(); }
    double median() const;

private:
    QList<qint64> m_samples;
};
