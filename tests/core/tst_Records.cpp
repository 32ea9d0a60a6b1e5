#include "level/AnimatedTextureBlock.h"
#include "level/ObjectTexture.h"
#include "level/SpriteSequence.h"
#include "level/SpriteTexture.h"

#include <QTest>

using Ranges = QList<AnimatedTextureBlock::Range>;

namespace {

QByteArray countingBytes(int size, int start)
{
    QByteArray bytes(size, '\0');
    for (int i = 0; i < size; ++i)
        bytes[i] = char(start + i * 7);
    return bytes;
}

template <typename Record>
QByteArray bytesOf(const Record& record)
{
    QByteArray bytes(Record::Size, '\0');
    record.toBytes(bytes.data());
    return bytes;
}

// The bytes of a record after setting one list column, and the column read back.
template <typename Record>
QByteArray withColumn(int column, int value, int& readBack)
{
    Record record = Record::fromBytes(countingBytes(Record::Size, 1).constData());
    record.setColumn(column, value);
    readBack = record.column(column);
    return bytesOf(record);
}

} // namespace

class tst_Records : public QObject
{
    Q_OBJECT

private slots:
    // Every byte a record is read from comes back where it was.
    void roundTrip()
    {
        for (int start : {0, 0x80}) {
            const QByteArray object = countingBytes(ObjectTexture::Size, start);
            QCOMPARE(bytesOf(ObjectTexture::fromBytes(object.constData())), object);
            const QByteArray sprite = countingBytes(SpriteTexture::Size, start);
            QCOMPARE(bytesOf(SpriteTexture::fromBytes(sprite.constData())), sprite);
            const QByteArray sequence = countingBytes(SpriteSequence::Size, start);
            QCOMPARE(bytesOf(SpriteSequence::fromBytes(sequence.constData())), sequence);
        }
        QCOMPARE(ObjectTexture::headers().size(), ObjectTexture::ColumnCount + 1);
        QCOMPARE(ObjectTexture::headers().mid(1, 3), (QStringList{"Tile#", "Trans", "X1"}));
        QCOMPARE(ObjectTexture::headers().last(), QStringLiteral("Y4Hi"));
        QCOMPARE(SpriteTexture::headers().size(), SpriteTexture::ColumnCount + 1);
    }

    void columns_data()
    {
        QTest::addColumn<bool>("sprite");
        QTest::addColumn<int>("column");
        QTest::addColumn<int>("value");
        QTest::addColumn<int>("offset"); // of its low byte; -1 for no stored column
        QTest::addColumn<int>("width");
        QTest::newRow("object 1 Tile#") << false << 1 << 0xA1B2 << 2 << 2;
        QTest::newRow("object 2 Trans") << false << 2 << 0xA1B2 << 0 << 2;
        const char* pixels[] = {"X1", "Y1", "X2", "Y2", "X3", "Y3", "X4", "Y4"};
        for (int i = 0; i < 8; ++i) {
            QTest::addRow("object %d %s", 3 + i, pixels[i]) << false << 3 + i << 0xC3 << 5 + 2 * i << 1;
            QTest::addRow("object %d %sHi", 11 + i, pixels[i]) << false << 11 + i << 0xC3 << 4 + 2 * i << 1;
        }
        QTest::newRow("object 0 No") << false << 0 << 0x55 << -1 << 0;
        QTest::newRow("object past Y4Hi") << false << 19 << 0x55 << -1 << 0;
        QTest::newRow("object negative") << false << -1 << 0x55 << -1 << 0;
        QTest::newRow("sprite 1 Tile#") << true << 1 << 0xBEEF << 0 << 2;
        QTest::newRow("sprite 2 X") << true << 2 << 0xF0 << 2 << 1;
        QTest::newRow("sprite 3 Y") << true << 3 << 0x0F << 3 << 1;
        QTest::newRow("sprite 4 Width") << true << 4 << 0xFF01 << 4 << 2;
        QTest::newRow("sprite 5 Height") << true << 5 << 0x0102 << 6 << 2;
        QTest::newRow("sprite 6 Left") << true << 6 << -2 << 8 << 2;
        QTest::newRow("sprite 7 Top") << true << 7 << -32768 << 10 << 2;
        QTest::newRow("sprite 8 Right") << true << 8 << 32767 << 12 << 2;
        QTest::newRow("sprite 9 Bottom") << true << 9 << -300 << 14 << 2;
        QTest::newRow("sprite past Bottom") << true << 10 << 0x55 << -1 << 0;
    }

    // Setting one column changes exactly its bytes, little-endian, and reads
    // back; the other columns keep their values.
    void columns()
    {
        QFETCH(bool, sprite);
        QFETCH(int, column);
        QFETCH(int, value);
        QFETCH(int, offset);
        QFETCH(int, width);
        int readBack = 0;
        const QByteArray after = sprite ? withColumn<SpriteTexture>(column, value, readBack)
                                        : withColumn<ObjectTexture>(column, value, readBack);
        QByteArray expected = countingBytes(after.size(), 1);
        for (int i = 0; i < width; ++i)
            expected[offset + i] = char(value >> (8 * i));
        QCOMPARE(after, expected);
        QCOMPARE(readBack, offset < 0 ? 0 : value);
        if (!sprite && (column == 1 || column == 2)) {
            const ObjectTexture object = ObjectTexture::fromBytes(after.constData());
            QCOMPARE(int(column == 1 ? object.tile() : object.attribute()), value);
        }
    }

    // The ranges the words hold, and why the words are no sound block:
    // what is read shows what is there, but only a sound block may go into
    // a level.
    void animatedWords_data()
    {
        QTest::addColumn<QList<quint16>>("words");
        QTest::addColumn<Ranges>("ranges");
        QTest::addColumn<bool>("canonical"); // the words a block of these ranges writes
        QTest::addColumn<QString>("damage"); // part of why the block is damaged; "" when sound
        QTest::newRow("no words") << QList<quint16>{} << Ranges{} << false << "";
        QTest::newRow("no ranges") << QList<quint16>{0} << Ranges{} << true << "";
        QTest::newRow("one range of one") << QList<quint16>{1, 0, 7} << Ranges{{7}} << true << "";
        QTest::newRow("two ranges") << QList<quint16>{2, 1, 3, 0xFFFF, 0, 9} << Ranges{{3, 0xFFFF}, {9}} << true << "";
        QTest::newRow("words after the last range ignored") << QList<quint16>{1, 0, 7, 8, 9} << Ranges{{7}} << false
                                                            << "";
        QTest::newRow("range cut short") << QList<quint16>{1, 2, 5} << Ranges{{5}} << false
                                         << "range 0 claims 3 textures, but its block has only 1 words left";
        QTest::newRow("fewer ranges than claimed") << QList<quint16>{3, 0, 1} << Ranges{{1}} << false
                                                   << "claims 3 ranges, but its 3 words end after 1";
        QTest::newRow("range count alone") << QList<quint16>{1} << Ranges{} << false << "claims 1 ranges";
        QTest::newRow("second range cut") << QList<quint16>{2, 0, 1, 3, 2} << Ranges{{1}, {2}} << false
                                          << "range 1 claims 4 textures";
        // Whatever the words claim, the ranges hold only the words there are.
        QTest::newRow("huge counts, nothing after") << QList<quint16>{0xFFFF, 0xFFFF} << Ranges{{}} << false
                                                    << "range 0 claims 65536 textures";
        QTest::newRow("huge range count, short ranges")
            << QList<quint16>{0xFFFF, 0, 1, 0, 2, 0} << Ranges{{1}, {2}, {}} << false << "range 2 claims 1 textures";
        QTest::newRow("huge length") << QList<quint16>{1, 0xFFFF, 1, 2, 3} << Ranges{{1, 2, 3}} << false
                                     << "range 0 claims 65536 textures, but its block has only 3 words left";
        QTest::newRow("all ones") << QList<quint16>(64, 0xFFFF) << Ranges{QList<quint16>(62, 0xFFFF)} << false
                                  << "range 0 claims 65536 textures";
    }

    void animatedWords()
    {
        QFETCH(QList<quint16>, words);
        QFETCH(Ranges, ranges);
        QFETCH(bool, canonical);
        QFETCH(QString, damage);
        QCOMPARE(AnimatedTextureBlock::fromWords(words.constData(), words.size()).ranges, ranges);
        if (canonical)
            QCOMPARE(AnimatedTextureBlock{ranges}.toWords(), words);
        const QString found = AnimatedTextureBlock::damage(words);
        QCOMPARE(found.isEmpty(), damage.isEmpty());
        QVERIFY2(found.contains(damage), qPrintable(found));
    }
};

QTEST_GUILESS_MAIN(tst_Records)
#include "tst_Records.moc"
