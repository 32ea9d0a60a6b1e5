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

void GeometryCursor::skipNormals()
{
    const qint16 normals = count();
    skip(normals > 0 ? qint64(normals) * NormalSize : -qint64(normals) * LightSize);
}

GeometryCursor::List GeometryCursor::list(int recordSize, qint64 limit)
{
    List result;
    result.claimed = qMax<qint64>(0, count());
    const qint64 present = qMax<qint64>(0, (m_bytes.size() - m_position) / recordSize);
    const qint64 taken = qMax<qint64>(0, qMin(qMin(result.claimed, present), limit));
    if (taken > 0)
        result.records = m_bytes.sliced(m_position, taken * recordSize);
    skip(result.claimed * recordSize);
    return result;
}

qint64 GeometryCursor::readTextures(int recordSize, quint16 mask, TextureIndexSet& textures,
                                   TextureUseCounts& counts, qint64 limit)
{
    const List records = list(recordSize, limit);
    const qint64 taken = records.present(recordSize);
    for (qint64 i = 0; i < taken; ++i) {
        const char* field = records.records.data() + i * recordSize + recordSize - 2;
        const quint16 texture = qFromLittleEndian<quint16>(field) & mask;
        textures.insert(texture);
        counts.add(texture);
    }
    return taken;
}
