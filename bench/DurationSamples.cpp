#include "DurationSamples.h"

#include <algorithm>

double DurationSamples::median() const
{
    if (m_samples.isEmpty())
        return 0;
    QList<qint64> sorted = m_samples;
    std::sort(sorted.begin(), sorted.end());
    const qsizetype middle = sorted.size() / 2;
    if (sorted.size() % 2 == 1)
        return double(sorted[middle]);
    return (double(sorted[middle - 1]) + double(sorted[middle])) / 2;
}
