#pragma once

#include <QList>
#include <QtGlobal>

#include <array>

// A set of texture indices, which the level's 16-bit fields bound to 0..65535:
// a fixed bitmap, so inserting costs one bit whatever a hostile level
// repeats, and listing costs one look per 64 indices plus one per member.
class TextureIndexSet
{
public:
    static constexpr qint64 Size = 65536;

    void insert(quint16 index) { m_words[index / 64] |= quint64(1) << (index % 64); }
    // Every index from first up to, not including, end; both within 0..Size.
    void insertRange(qint64 first, qint64 end);
    bool contains(qint64 index) const
    {
        return index >= 0 && index < Size && (m_words[size_t(index / 64)] >> (index % 64) & 1);
    }

    // Every index in ascending order.
    QList<int> toList() const;

private:
    std::array<quint64, Size / 64> m_words{};
};
