#include "level/TextureUseCounts.h"

#include <numeric>

void TextureUseCounts::add(quint16 index)
{
    if (m_counts.empty())
        m_counts.resize(Size);
    ++m_counts[index];
    ++m_total;
}

qint64 TextureUseCounts::at(qint64 index) const
{
    if (index < 0 || index >= qint64(m_counts.size()))
        return 0;
    return m_counts[size_t(index)];
}

qint64 TextureUseCounts::from(qint64 index) const
{
    if (index <= 0)
        return m_total;
    if (index >= qint64(m_counts.size()))
        return 0;
    return std::accumulate(m_counts.begin() + index, m_counts.end(), qint64(0));
}
