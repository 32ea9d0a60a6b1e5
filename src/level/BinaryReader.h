#pragma once

#include <QByteArray>
#include <QtGlobal>

class QIODevice;

// Little-endian reads by position over an open device. Bytes past the end of
// the device read as zero, so a truncated file reads like one padded with
// zeros; nothing here allocates more than the device holds. Small reads are
// served from a window so a walk that hops through a large file costs one
// system read per window, not one per field.
class BinaryReader
{
public:
    explicit BinaryReader(QIODevice& device, qint64 windowSize = 4096);

    qint64 size() const { return m_size; }

    // Bytes present from pos to the end (0 when pos is at or past it).
    qint64 available(qint64 pos) const;

    // n bytes at pos into out, zeros where the device has none. pos < 0 reads
    // zeros too: callers that must refuse such a read check it themselves.
    void read(qint64 pos, char* out, qint64 n);

    quint8 u8(qint64 pos);
    quint16 u16(qint64 pos);
    quint32 u32(qint64 pos);
    qint16 i16(qint64 pos);
    qint32 i32(qint64 pos);

    // Up to n bytes at pos: only those the device holds.
    QByteArray bytes(qint64 pos, qint64 n);

private:
    bool windowCovers(qint64 pos, qint64 n) const;
    void loadWindow(qint64 pos);
    qint64 readPresent(qint64 pos, char* out, qint64 n);
    qint64 readDirect(qint64 pos, char* out, qint64 n);

    QIODevice& m_device;
    qint64 m_size;
    qint64 m_windowSize;
    QByteArray m_window;
    qint64 m_windowPos = -1;
};
