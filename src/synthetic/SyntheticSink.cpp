#include "synthetic/SyntheticSink.h"

#include <QIODevice>
#include <QtEndian>

namespace {

// Zeros go out in slices of this size, so a level of any size streams through
// a fixed buffer.
constexpr qint64 ZeroSlice = 64 * 1024;

const char* zeroSlice()
{
    static const QByteArray slice(ZeroSlice, '\0');
    return slice.constData();
}

} // namespace

SyntheticSink::SyntheticSink(QIODevice* device)
    : m_device(device)
{
}

void SyntheticSink::count(SyntheticField field, int width, quint32 value)
{
    m_layout.fields[size_t(field)] = position();
    if (width == 2)
        u16(static_cast<quint16>(value));
    else
        u32(value);
}

void SyntheticSink::markRoom()
{
    m_layout.rooms.append(position());
}

void SyntheticSink::u16(quint16 value)
{
    char data[2];
    qToLittleEndian(value, data);
    put(data, 2);
}

void SyntheticSink::u32(quint32 value)
{
    char data[4];
    qToLittleEndian(value, data);
    put(data, 4);
}

void SyntheticSink::bytes(const QByteArray& data)
{
    put(data.constData(), data.size());
}

void SyntheticSink::padded(const QByteArray& data, qint64 n)
{
    const qint64 taken = qBound<qint64>(0, data.size(), n);
    put(data.constData(), taken);
    zeros(n - taken);
}

void SyntheticSink::zeros(qint64 n)
{
    if (!m_device) {
        m_layout.length += qMax<qint64>(0, n);
        return;
    }
    while (n > 0) {
        const qint64 slice = qMin(n, ZeroSlice);
        put(zeroSlice(), slice);
        n -= slice;
    }
}

void SyntheticSink::put(const char* data, qint64 n)
{
    if (n <= 0)
        return;
    m_layout.length += n;
    if (!m_device || !ok())
        return;
    if (m_device->write(data, n) == n)
        return;
    m_error = m_device->errorString();
    if (m_error.isEmpty())
        m_error = QStringLiteral("short write");
}
