#include "level/GeometryCursor.h"

#include "level/TextureIndexSet.h"
#include "level/TextureUseCounts.h"

#include <QtEndian>

GeometryCursor::GeometryCursor(QByteArrayView bytes, qint64 position)
    : m_bytes(bytes)
    , m_position(position)
{
}

qint16 GeometryCursor::count()
{
    const qint64 at = m_position;
    m_position += 2;
    if (at < 0 || at + 2 > m_bytes.size())
        return 0;
    return qFromLittleEndian<qint16>(m_bytes.data() + at);
}

void GeometryCursor::skip(qint64 bytes)
{
    m_position += bytes;
}

void GeometryCursor::skipList(int recordSize)
{
    skip(qMax<qint64>(0, count()) * recordSize);
}

qint64 GeometryCursor::readTextures(int recordSize, quint16 mask, TextureIndexSet& textures,
                                   TextureUseCounts& counts, qint64 limit)
{
    const qint64 records = qMax<qint64>(0, count());
    const qint64 present = qMax<qint64>(0, (m_bytes.size() - m_position) / recordSize);
    const qint64 taken = qMin(qMin(records, present), limit);
    for (qint64 i = 0; i < taken; ++i) {
        const char* field = m_bytes.data() + m_position + i * recordSize + recordSize - 2;
        const quint16 texture = qFromLittleEndian<quint16>(field) & mask;
        textures.insert(texture);
        counts.add(texture);
    }
    skip(records * recordSize);
    return taken;
}
