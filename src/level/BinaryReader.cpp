#include "level/BinaryReader.h"

#include <QIODevice>
#include <QtEndian>

#include <cstring>

BinaryReader::BinaryReader(QIODevice& device, qint64 windowSize)
    : m_device(device)
    , m_size(device.size())
    , m_windowSize(qMax<qint64>(16, windowSize))
{
}

qint64 BinaryReader::available(qint64 pos) const
{
    if (pos < 0 || pos >= m_size)
        return 0;
    return m_size - pos;
}

bool BinaryReader::windowCovers(qint64 pos, qint64 n) const
{
    return m_windowPos >= 0 && pos >= m_windowPos && pos + n <= m_windowPos + m_window.size();
}

void BinaryReader::loadWindow(qint64 pos)
{
    const qint64 length = qMin(m_windowSize, available(pos));
    m_window.resize(length);
    const qint64 got = readDirect(pos, m_window.data(), length);
    m_window.resize(qMax<qint64>(0, got));
    m_windowPos = pos;
}

qint64 BinaryReader::readDirect(qint64 pos, char* out, qint64 n)
{
    if (n <= 0 || !m_device.seek(pos))
        return 0;
    return m_device.read(out, n);
}

void BinaryReader::read(qint64 pos, char* out, qint64 n)
{
    if (n <= 0)
        return;
    const qint64 got = qMax<qint64>(0, readPresent(pos, out, qMin(n, available(pos))));
    std::memset(out + got, 0, size_t(n - got)); // only what the device did not fill
}

// Up to n bytes the device holds at pos into out; how many it gave.
qint64 BinaryReader::readPresent(qint64 pos, char* out, qint64 n)
{
    if (n <= 0)
        return 0;
    if (n > m_windowSize)
        return readDirect(pos, out, n);
    if (!windowCovers(pos, n))
        loadWindow(pos);
    const qint64 inWindow = qBound<qint64>(0, m_windowPos + m_window.size() - pos, n);
    if (inWindow > 0)
        std::memcpy(out, m_window.constData() + (pos - m_windowPos), size_t(inWindow));
    return inWindow;
}

quint8 BinaryReader::u8(qint64 pos)
{
    char b = 0;
    read(pos, &b, 1);
    return static_cast<quint8>(b);
}

quint16 BinaryReader::u16(qint64 pos)
{
    char b[2];
    read(pos, b, 2);
    return qFromLittleEndian<quint16>(b);
}

quint32 BinaryReader::u32(qint64 pos)
{
    char b[4];
    read(pos, b, 4);
    return qFromLittleEndian<quint32>(b);
}

qint16 BinaryReader::i16(qint64 pos)
{
    return static_cast<qint16>(u16(pos));
}

qint32 BinaryReader::i32(qint64 pos)
{
    return static_cast<qint32>(u32(pos));
}

QByteArray BinaryReader::bytes(qint64 pos, qint64 n)
{
    const qint64 present = qMin(n, available(pos));
    if (present <= 0)
        return {};
    QByteArray data(present, Qt::Uninitialized);
    read(pos, data.data(), present);
    return data;
}
