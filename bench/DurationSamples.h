#pragma once

#include <QElapsedTimer>
#include <QList>
#include <QtGlobal>

#include <type_traits>

// Durations of repeated runs of one piece of work; the median keeps a stray
// slow run (a page fault storm, another process) from moving the figure.
class DurationSamples
{
public:
    void add(qint64 nanoseconds) { m_samples.append(nanoseconds); }

    // Runs job once, adds how long it took and returns what it returned.
    template <typename Job>
    auto time(Job&& job)
    {
        QElapsedTimer timer;
        timer.start();
        if constexpr (std::is_void_v<std::invoke_result_t<Job>>) {
            job();
            add(timer.nsecsElapsed());
        } else {
            auto result = job();
            add(timer.nsecsElapsed());
            return result;
        }
    }
    qsizetype size() const { return m_samples.size(); }
    double median() const;

private:
    QList<qint64> m_samples;
};
