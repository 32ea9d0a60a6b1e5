#pragma once

#include <QtGlobal>

#include <vector>

// How many faces (or sprites, or sequences) of a level name each texture
// index, which the level's 16-bit fields bound to 0..65535. Empty until the
// first one is counted, so a level that names none costs nothing.
class TextureUseCounts
{
public:
    static constexpr int Size = 65536;

    void add(quint16 index);
    // The count of one index; 0 outside 0..65535.
    qint64 at(qint64 index) const;
    // The counts of index and of every index after it.
    qint64 from(qint64 index) const;

    friend bool operator==(const TextureUseCounts&, const TextureUseCounts&) = default;

private:
    std::vector<quint32> m_counts;
    qint64 m_total = 0;
};
