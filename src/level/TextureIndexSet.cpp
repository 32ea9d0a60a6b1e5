#include "TextureIndexSet.h"

QList<int> TextureIndexSet::toList() const
{
    QList<int> indices;
    indices.reserve(count());
    for (int i = 0; i < Size; ++i) {
        if (m_bits.test(size_t(i)))
            indices.append(i);
    }
    return indices;
}
