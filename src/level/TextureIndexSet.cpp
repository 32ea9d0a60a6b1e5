#include "level/TextureIndexSet.h"

#include <bit>

namespace {

// The bits from bit `from` up to, not including, bit `to` of a word.
quint64 bitsBetween(qint64 from, qint64 to)
{
    const quint64 below = to >= 64 ? ~quint64(0) : (quint64(1) << to) - 1;
    return below & ~((quint64(1) << from) - 1);
}

} // namespace

void TextureIndexSet::insertRange(qint64 first, qint64 end)
{
    for (qint64 word = first / 64; first < end; ++word) {
        const qint64 wordEnd = (word + 1) * 64;
        m_words[size_t(word)] |= bitsBetween(first % 64, qMin(end, wordEnd) - word * 64);
        first = wordEnd;
    }
}

QList<int> TextureIndexSet::toList() const
{
    QList<int> indices;
    for (size_t word = 0; word < m_words.size(); ++word) {
        for (quint64 bits = m_words[word]; bits != 0; bits &= bits - 1)
            indices.append(int(word * 64) + std::countr_zero(bits));
    }
    return indices;
}
