#include "level/BinaryReader.h"

#include <QBuffer>
#include <QTest>

namespace {

// first, first + 1, ...: every byte tells its own position.
QByteArray positionBytes(int size, int first = 0)
{
    QByteArray bytes(size, '\0');
    for (int i = 0; i < size; ++i)
        bytes[i] = char(first + i);
    return bytes;
}

// A device of given bytes that stays open as long as it lives.
struct OpenBuffer
{
    explicit OpenBuffer(const QByteArray& data)
        : bytes(data)
        , buffer(&bytes)
    {
        buffer.open(QIODevice::ReadOnly);
    }
    QByteArray bytes;
    QBuffer buffer;
};

} // namespace

class tst_BinaryReader : public QObject
{
    Q_OBJECT

private slots:
    void numbers_data()
    {
        QTest::addColumn<qint64>("pos");
        QTest::addColumn<quint32>("u32");
        QTest::addColumn<quint16>("u16");
        // The ten bytes are 0xF0 .. 0xF9: the signed reads are negative.
        QTest::newRow("inside") << qint64(2) << 0xF5F4F3F2u << quint16(0xF3F2);
        QTest::newRow("two left") << qint64(8) << 0x0000F9F8u << quint16(0xF9F8);
        QTest::newRow("one left: the missing high byte is zero") << qint64(9) << 0x000000F9u << quint16(0x00F9);
        QTest::newRow("at the end") << qint64(10) << 0u << quint16(0);
        QTest::newRow("4 GB on") << qint64(0x100000000) << 0u << quint16(0);
        QTest::newRow("negative") << qint64(-2) << 0u << quint16(0);
    }

    void numbers()
    {
        QFETCH(qint64, pos);
        QFETCH(quint32, u32);
        QFETCH(quint16, u16);
        OpenBuffer data(positionBytes(10, 0xF0));
        BinaryReader reader(data.buffer);
        QCOMPARE(reader.u32(pos), u32);
        QCOMPARE(reader.i32(pos), qint32(u32));
        QCOMPARE(reader.u16(pos), u16);
        QCOMPARE(reader.i16(pos), qint16(u16));
        QCOMPARE(reader.u8(pos), quint8(u16));
    }

    void bytesNeverMoreThanPresent_data()
    {
        QTest::addColumn<qint64>("pos");
        QTest::addColumn<qint64>("n");
        QTest::addColumn<qint64>("size");
        QTest::newRow("all") << qint64(0) << qint64(100) << qint64(100);
        QTest::newRow("more than all") << qint64(0) << qint64(1000) << qint64(100);
        QTest::newRow("tail") << qint64(90) << qint64(50) << qint64(10);
        QTest::newRow("past the end") << qint64(200) << qint64(4) << qint64(0);
        QTest::newRow("4 GB asked") << qint64(1) << qint64(0xFFFFFFFF) << qint64(99);
        QTest::newRow("huge ask past the end") << qint64(0x7FFFFFFF) << qint64(0x7FFFFFFFFFFF) << qint64(0);
        QTest::newRow("negative count") << qint64(5) << qint64(-4) << qint64(0);
        QTest::newRow("negative position") << qint64(-5) << qint64(10) << qint64(0);
    }

    void bytesNeverMoreThanPresent()
    {
        QFETCH(qint64, pos);
        QFETCH(qint64, n);
        QFETCH(qint64, size);
        OpenBuffer data(positionBytes(100));
        BinaryReader reader(data.buffer, 16);
        QCOMPARE(reader.bytes(pos, n), data.bytes.mid(pos, size));
    }

    void windows_data()
    {
        QTest::addColumn<qint64>("window");
        QTest::addColumn<int>("size");
        QTest::newRow("window below the minimum") << qint64(1) << 100;
        QTest::newRow("odd window") << qint64(17) << 100;
        QTest::newRow("window larger than the data") << qint64(512) << 300;
        QTest::newRow("data a window multiple") << qint64(32) << 128;
    }

    // Every read, forwards then backwards, whatever window it starts in or
    // straddles, gives the bytes at its position and zeros past the end; a
    // read that starts before the file is zeros throughout.
    void windows()
    {
        QFETCH(qint64, window);
        QFETCH(int, size);
        OpenBuffer data(positionBytes(size));
        BinaryReader reader(data.buffer, window);
        QList<qint64> order;
        for (qint64 pos = -2; pos <= size + 2; ++pos)
            order.append(pos);
        for (qint64 pos = size + 2; pos >= -2; --pos)
            order.append(pos);
        for (qint64 n : {1, 2, 4, 15, 16, 17, 40, 200}) {
            for (qint64 pos : order) {
                QByteArray got(n, '\x55');
                reader.read(pos, got.data(), n);
                QByteArray expected(n, '\0');
                if (pos >= 0)
                    expected.replace(0, qMin(n, qMax<qint64>(0, size - pos)), data.bytes.mid(pos, n));
                if (got != expected)
                    QFAIL(qPrintable(QStringLiteral("%1 bytes at %2 read wrong").arg(n).arg(pos)));
            }
        }
    }
};

QTEST_GUILESS_MAIN(tst_BinaryReader)
#include "tst_BinaryReader.moc"
