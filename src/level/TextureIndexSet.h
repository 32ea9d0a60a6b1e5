#pragma once

#include <QList>
#include <QtGlobal>

#include <bitset>

// A set of texture indices, which the level's 16-bit fields bound to 0..65535:
// a fixed bitmap, so inserting costs one bit whatever a hostile level repeats.
class TextureIndexSet
{
public:
    static constexpr qint64 Size = 65536;

    void insert(quint16 index) { m_bits[index] = true; } // always in range: no check
    bool contains(qint64 index) const { return index >= 0 && index < Size && m_bits.test(size_t(index)); }
    qint64 count() const { return qint64(m_bits.count()); }

    // Every index in ascending order.
    QList<int> toList() const;

private:
    std::bitset<Size> m_bits;
};
