#include "BinaryReader.h"

#include <QBuffer>
#include <QTest>
#include <QtEndian>

namespace {

// 0, 1, 2, ... 255, 0, 1, ...: every byte tells its own position.
QByteArray positionBytes(int size)
{
    QByteArray bytes(size, '\0');
    for (int i = 0; i < size; ++i)
        bytes[i] = char(i);
    return bytes;
}

// What a read of n bytes at pos must give: the bytes present, zeros after;
// a read that starts before the file is zeros throughout.
QByteArray expectedRead(const QByteArray& data, qint64 pos, qint64 n)
{
    QByteArray out(n, '\0');
    if (pos < 0)
        return out;
    for (qint64 i = 0; i < n; ++i)
        if (pos + i >= 0 && pos + i < data.size())
            out[i] = data[pos + i];
    return out;
}

// A device of given bytes that stays open as long as it lives.
class OpenBuffer
{
public:
    explicit OpenBuffer(const QByteArray& bytes)
        : m_bytes(bytes)
        , m_buffer(&m_bytes)
    {
        m_buffer.open(QIODevice::ReadOnly);
    }
    QBuffer& device() { return m_buffer; }

private:
    QByteArray m_bytes;
    QBuffer m_buffer;
};

} // namespace

class tst_BinaryReader : public QObject
{
    Q_OBJECT

private slots:
    void readsPastEnd_data()
    {
        QTest::addColumn<qint64>("pos");
        QTest::addColumn<quint32>("u32");
        QTest::addColumn<quint16>("u16");
        QTest::addColumn<qint16>("i16");
        // The ten bytes are 0x00 .. 0x09.
        QTest::newRow("inside") << qint64(2) << quint32(0x05040302) << quint16(0x0302) << qint16(0x0302);
        QTest::newRow("last four") << qint64(6) << quint32(0x09080706) << quint16(0x0706) << qint16(0x0706);
        QTest::newRow("two left") << qint64(8) << quint32(0x00000908) << quint16(0x0908) << qint16(0x0908);
        QTest::newRow("one left") << qint64(9) << quint32(0x00000009) << quint16(0x0009) << qint16(9);
        QTest::newRow("at the end") << qint64(10) << quint32(0) << quint16(0) << qint16(0);
        QTest::newRow("far past") << qint64(1000) << quint32(0) << quint16(0) << qint16(0);
        QTest::newRow("4 GB on") << qint64(0x100000000) << quint32(0) << quint16(0) << qint16(0);
        QTest::newRow("negative") << qint64(-2) << quint32(0) << quint16(0) << qint16(0);
    }

    void readsPastEnd()
    {
        QFETCH(qint64, pos);
        QFETCH(quint32, u32);
        QFETCH(quint16, u16);
        QFETCH(qint16, i16);
        OpenBuffer buffer(positionBytes(10));
        BinaryReader reader(buffer.device());
        QCOMPARE(reader.u32(pos), u32);
        QCOMPARE(reader.i32(pos), qint32(u32));
        QCOMPARE(reader.u16(pos), u16);
        QCOMPARE(reader.i16(pos), i16);
        QCOMPARE(reader.u8(pos), quint8(u16 & 0xFF));
    }

    void signedReads()
    {
        OpenBuffer buffer(QByteArray("\xFE\xFF\xFF\xFF", 4));
        BinaryReader reader(buffer.device());
        QCOMPARE(reader.i16(0), qint16(-2));
        QCOMPARE(reader.i32(0), -2);
        QCOMPARE(reader.i16(2), qint16(-1));
        QCOMPARE(reader.i16(3), qint16(0x00FF)); // the missing high byte is zero
    }

    void bytesNeverMoreThanPresent_data()
    {
        QTest::addColumn<qint64>("pos");
        QTest::addColumn<qint64>("n");
        QTest::addColumn<qint64>("size");
        QTest::newRow("all") << qint64(0) << qint64(100) << qint64(100);
        QTest::newRow("more than all") << qint64(0) << qint64(1000) << qint64(100);
        QTest::newRow("tail") << qint64(90) << qint64(50) << qint64(10);
        QTest::newRow("at the end") << qint64(100) << qint64(4) << qint64(0);
        QTest::newRow("past the end") << qint64(200) << qint64(4) << qint64(0);
        QTest::newRow("4 GB asked") << qint64(1) << qint64(0xFFFFFFFF) << qint64(99);
        QTest::newRow("huge ask past the end") << qint64(0x7FFFFFFF) << qint64(0x7FFFFFFFFFFF) << qint64(0);
        QTest::newRow("none") << qint64(5) << qint64(0) << qint64(0);
        QTest::newRow("negative count") << qint64(5) << qint64(-4) << qint64(0);
        QTest::newRow("negative position") << qint64(-5) << qint64(10) << qint64(0);
    }

    void bytesNeverMoreThanPresent()
    {
        QFETCH(qint64, pos);
        QFETCH(qint64, n);
        QFETCH(qint64, size);
        const QByteArray data = positionBytes(100);
        OpenBuffer buffer(data);
        BinaryReader reader(buffer.device(), 16);
        const QByteArray got = reader.bytes(pos, n);
        QCOMPARE(got.size(), size);
        QCOMPARE(got, data.mid(pos, size));
    }

    void availableAndSize()
    {
        OpenBuffer buffer(positionBytes(10));
        BinaryReader reader(buffer.device());
        QCOMPARE(reader.size(), 10);
        QCOMPARE(reader.available(0), 10);
        QCOMPARE(reader.available(9), 1);
        QCOMPARE(reader.available(10), 0);
        QCOMPARE(reader.available(-1), 0);
    }

    void windowBoundaries_data()
    {
        QTest::addColumn<qint64>("window");
        QTest::addColumn<int>("size");
        QTest::newRow("window below the minimum") << qint64(1) << 100;
        QTest::newRow("16-byte window") << qint64(16) << 100;
        QTest::newRow("odd window") << qint64(17) << 100;
        QTest::newRow("window as large as the data") << qint64(100) << 100;
        QTest::newRow("window larger than the data") << qint64(512) << 300;
        QTest::newRow("data a window multiple") << qint64(32) << 128;
    }

    // Every read, forwards then backwards, whatever window it starts in or
    // straddles, gives the bytes at its position and zeros past the end.
    void windowBoundaries()
    {
        QFETCH(qint64, window);
        QFETCH(int, size);
        const QByteArray data = positionBytes(size);
        OpenBuffer buffer(data);
        BinaryReader reader(buffer.device(), window);
        for (qint64 n : {1, 2, 4, 15, 16, 17, 40, 200}) {
            QList<qint64> order;
            for (qint64 pos = -2; pos <= size + 2; ++pos)
                order.append(pos);
            for (qint64 pos = size + 2; pos >= -2; --pos)
                order.append(pos);
            for (qint64 pos : order) {
                QByteArray got(n, '\x55');
                reader.read(pos, got.data(), n);
                if (got != expectedRead(data, pos, n))
                    QFAIL(qPrintable(QStringLiteral("%1 bytes at %2 read wrong").arg(n).arg(pos)));
            }
        }
    }

    // Reads that jump between far-apart places, as the walk does, each get
    // their own bytes rather than those of the window before.
    void hops()
    {
        const QByteArray data = positionBytes(5000);
        OpenBuffer buffer(data);
        BinaryReader reader(buffer.device(), 512);
        for (qint64 pos : {0, 4000, 511, 512, 4990, 1, 2047, 4998, 0}) {
            QCOMPARE(reader.u16(pos), quint16(qFromLittleEndian<quint16>(expectedRead(data, pos, 2).constData())));
            QCOMPARE(reader.bytes(pos, 3), data.mid(pos, 3));
        }
    }
};

QTEST_GUILESS_MAIN(tst_BinaryReader)
#include "tst_BinaryReader.moc"
