#pragma once

#include "synthetic/SyntheticField.h"
#include "synthetic/SyntheticLayout.h"

#include <QByteArray>
#include <QString>

class QIODevice;

// Receives a synthetic level block by block. It counts every byte to record
// the layout, and writes them to a device when it has one; without a device
// it only lays the level out, at no cost for the bulk.
class SyntheticSink
{
public:
    explicit SyntheticSink(QIODevice* device = nullptr);

    qint64 position() const { return m_layout.length; }
    const SyntheticLayout& layout() const { return m_layout; }

    // A count field of width 2 or 4 bytes, little-endian, recorded as field.
    void count(SyntheticField field, int width, quint32 value);
    void markRoom();

    void u16(quint16 value);
    void u32(quint32 value);
    void bytes(const QByteArray& data);
    // n bytes: data cut to n, or followed by zeros up to n.
    void padded(const QByteArray& data, qint64 n);
    void zeros(qint64 n);

    bool ok() const { return m_error.isEmpty(); }
    QString errorString() const { return m_error; }

private:
    void put(const char* data, qint64 n);

    QIODevice* m_device;
    SyntheticLayout m_layout;
    QString m_error;
};
