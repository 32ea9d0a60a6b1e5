#include "AnimatedTextureBlock.h"
#include "ObjectTexture.h"
#include "SpriteSequence.h"
#include "SpriteTexture.h"

#include <QTest>

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

// The offsets of the bytes in which two records differ.
QList<int> changedOffsets(const QByteArray& before, const QByteArray& after)
{
    QList<int> offsets;
    for (int i = 0; i < before.size(); ++i)
        if (before[i] != after[i])
            offsets.append(i);
    return offsets;
}

int textureCount(const AnimatedTextureBlock& block)
{
    int n = 0;
    for (const AnimatedTextureBlock::Range& range : block.ranges)
        n += int(range.size());
    return n;
}

} // namespace

Q_DECLARE_METATYPE(AnimatedTextureBlock)

class tst_Records : public QObject
{
    Q_OBJECT

private slots:
    void roundTrip_data()
    {
        QTest::addColumn<int>("start");
        QTest::newRow("counting from 0") << 0;
        QTest::newRow("high bytes") << 0x80;
        QTest::newRow("all ones first") << 0xFF;
    }

    // Every byte a record is read from comes back where it was.
    void roundTrip()
    {
        QFETCH(int, start);
        const QByteArray objectBytes = countingBytes(ObjectTexture::Size, start);
        QCOMPARE(bytesOf(ObjectTexture::fromBytes(objectBytes.constData())), objectBytes);
        const QByteArray spriteBytes = countingBytes(SpriteTexture::Size, start);
        QCOMPARE(bytesOf(SpriteTexture::fromBytes(spriteBytes.constData())), spriteBytes);
        const QByteArray sequenceBytes = countingBytes(SpriteSequence::Size, start);
        QCOMPARE(bytesOf(SpriteSequence::fromBytes(sequenceBytes.constData())), sequenceBytes);
    }

    void objectTextureColumn_data()
    {
        QTest::addColumn<int>("column");
        QTest::addColumn<int>("offset");
        QTest::addColumn<int>("width");
        QTest::newRow("1 Tile#") << 1 << 2 << 2;
        QTest::newRow("2 Trans") << 2 << 0 << 2;
        const char* pixels[] = {"X1", "Y1", "X2", "Y2", "X3", "Y3", "X4", "Y4"};
        for (int i = 0; i < 8; ++i) {
            QTest::addRow("%d %s", 3 + i, pixels[i]) << 3 + i << 5 + 2 * i << 1;
            QTest::addRow("%d %sHi", 11 + i, pixels[i]) << 11 + i << 4 + 2 * i << 1;
        }
    }

    // Setting one column changes exactly its bytes, little-endian, and reads
    // back; the other columns keep their values.
    void objectTextureColumn()
    {
        QFETCH(int, column);
        QFETCH(int, offset);
        QFETCH(int, width);
        const QByteArray before = countingBytes(ObjectTexture::Size, 1);
        ObjectTexture record = ObjectTexture::fromBytes(before.constData());
        const int value = width == 2 ? 0xA1B2 : 0xC3;
        record.setColumn(column, value);
        const QByteArray after = bytesOf(record);
        QCOMPARE(record.column(column), value);
        QCOMPARE(quint8(after[offset]), quint8(value & 0xFF));
        if (width == 2)
            QCOMPARE(quint8(after[offset + 1]), quint8(value >> 8));
        QList<int> expected{offset};
        if (width == 2)
            expected.append(offset + 1);
        QCOMPARE(changedOffsets(before, after), expected);
    }

    void objectTextureOutOfRange_data()
    {
        QTest::addColumn<int>("column");
        QTest::newRow("No") << 0;
        QTest::newRow("past Y4Hi") << 19;
        QTest::newRow("negative") << -1;
    }

    void objectTextureOutOfRange()
    {
        QFETCH(int, column);
        const QByteArray before = countingBytes(ObjectTexture::Size, 9);
        ObjectTexture record = ObjectTexture::fromBytes(before.constData());
        record.setColumn(column, 0x55);
        QCOMPARE(bytesOf(record), before);
        QCOMPARE(record.column(column), 0);
    }

    void objectTextureFields()
    {
        QByteArray bytes(ObjectTexture::Size, '\0');
        bytes[0] = '\x02';
        bytes[1] = '\x80';
        bytes[2] = '\x34';
        bytes[3] = '\x12';
        const ObjectTexture record = ObjectTexture::fromBytes(bytes.constData());
        QCOMPARE(record.attribute(), quint16(0x8002));
        QCOMPARE(record.tile(), quint16(0x1234));
        QCOMPARE(ObjectTexture::headers().size(), ObjectTexture::ColumnCount + 1);
        QCOMPARE(ObjectTexture::headers().at(1), QStringLiteral("Tile#"));
        QCOMPARE(ObjectTexture::headers().last(), QStringLiteral("Y4Hi"));
    }

    void spriteTextureColumn_data()
    {
        QTest::addColumn<int>("column");
        QTest::addColumn<int>("offset");
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("value");
        QTest::newRow("1 Tile#") << 1 << 0 << 2 << 0xBEEF;
        QTest::newRow("2 X") << 2 << 2 << 1 << 0xF0;
        QTest::newRow("3 Y") << 3 << 3 << 1 << 0x0F;
        QTest::newRow("4 Width") << 4 << 4 << 2 << 0xFF01;
        QTest::newRow("5 Height") << 5 << 6 << 2 << 0x0102;
        QTest::newRow("6 Left") << 6 << 8 << 2 << -2;
        QTest::newRow("7 Top") << 7 << 10 << 2 << -32768;
        QTest::newRow("8 Right") << 8 << 12 << 2 << 32767;
        QTest::newRow("9 Bottom") << 9 << 14 << 2 << -300;
    }

    void spriteTextureColumn()
    {
        QFETCH(int, column);
        QFETCH(int, offset);
        QFETCH(int, width);
        QFETCH(int, value);
        const QByteArray before = countingBytes(SpriteTexture::Size, 3);
        SpriteTexture record = SpriteTexture::fromBytes(before.constData());
        record.setColumn(column, value);
        QCOMPARE(record.column(column), value);
        const QByteArray after = bytesOf(record);
        QCOMPARE(quint8(after[offset]), quint8(value & 0xFF));
        if (width == 2)
            QCOMPARE(quint8(after[offset + 1]), quint8((value >> 8) & 0xFF));
        for (int i : changedOffsets(before, after))
            QVERIFY(i == offset || (width == 2 && i == offset + 1));
        QCOMPARE(SpriteTexture::fromBytes(after.constData()), record);
    }

    void spriteSequenceBytes_data()
    {
        QTest::addColumn<int>("number");
        QTest::addColumn<QByteArray>("lengthBytes");
        QTest::newRow("one sprite") << 1 << QByteArray("\xFF\xFF", 2);
        QTest::newRow("none") << 0 << QByteArray("\x00\x00", 2);
        QTest::newRow("three") << 3 << QByteArray("\xFD\xFF", 2);
        QTest::newRow("256") << 256 << QByteArray("\x00\xFF", 2);
    }

    // The file stores minus the sprite count at offset 4.
    void spriteSequenceBytes()
    {
        QFETCH(int, number);
        QFETCH(QByteArray, lengthBytes);
        SpriteSequence sequence;
        sequence.objectId = 0x01020304;
        sequence.first = -2;
        sequence.setNumber(number);
        const QByteArray bytes = bytesOf(sequence);
        QCOMPARE(bytes.mid(0, 4), QByteArray("\x04\x03\x02\x01", 4));
        QCOMPARE(bytes.mid(4, 2), lengthBytes);
        QCOMPARE(bytes.mid(6, 2), QByteArray("\xFE\xFF", 2));
        QCOMPARE(SpriteSequence::fromBytes(bytes.constData()).number(), number);
    }

    void animatedFromWords_data()
    {
        using Ranges = QList<AnimatedTextureBlock::Range>;
        QTest::addColumn<QList<quint16>>("words");
        QTest::addColumn<Ranges>("ranges");
        QTest::newRow("no words") << QList<quint16>{} << Ranges{};
        QTest::newRow("no ranges") << QList<quint16>{0} << Ranges{};
        QTest::newRow("one range of one") << QList<quint16>{1, 0, 7} << Ranges{{7}};
        QTest::newRow("two ranges") << QList<quint16>{2, 1, 3, 4, 0, 9} << Ranges{{3, 4}, {9}};
        QTest::newRow("words after the last range ignored") << QList<quint16>{1, 0, 7, 8, 9} << Ranges{{7}};
        QTest::newRow("range cut short") << QList<quint16>{1, 2, 5} << Ranges{{5}};
        QTest::newRow("fewer ranges than claimed") << QList<quint16>{3, 0, 1} << Ranges{{1}};
        QTest::newRow("range count alone") << QList<quint16>{1} << Ranges{};
        QTest::newRow("second range cut") << QList<quint16>{2, 0, 1, 3, 2} << Ranges{{1}, {2}};
    }

    void animatedFromWords()
    {
        QFETCH(QList<quint16>, words);
        QFETCH(QList<AnimatedTextureBlock::Range>, ranges);
        QCOMPARE(AnimatedTextureBlock::fromWords(words.constData(), words.size()).ranges, ranges);
    }

    void animatedHostileWords_data()
    {
        QTest::addColumn<QList<quint16>>("words");
        QTest::newRow("huge range and range counts") << QList<quint16>{0xFFFF, 0xFFFF};
        QTest::newRow("huge range count, short ranges") << QList<quint16>{0xFFFF, 0, 1, 0, 2, 0};
        QTest::newRow("huge length") << QList<quint16>{1, 0xFFFF, 1, 2, 3};
        QTest::newRow("all ones") << QList<quint16>(64, 0xFFFF);
    }

    // Whatever the words claim, the block holds no more indices than there
    // are words after the counts, and each comes from the words.
    void animatedHostileWords()
    {
        QFETCH(QList<quint16>, words);
        const AnimatedTextureBlock block = AnimatedTextureBlock::fromWords(words.constData(), words.size());
        QVERIFY(textureCount(block) + block.ranges.size() <= words.size());
        QVERIFY(block.ranges.size() <= words.first());
        for (const AnimatedTextureBlock::Range& range : block.ranges)
            for (quint16 index : range)
                QVERIFY(words.contains(index));
    }

    void animatedRoundTrip_data()
    {
        QTest::addColumn<AnimatedTextureBlock>("block");
        QTest::newRow("empty") << AnimatedTextureBlock{};
        QTest::newRow("one range") << AnimatedTextureBlock{{{4, 5, 6}}};
        QTest::newRow("several") << AnimatedTextureBlock{{{1}, {0xFFFF, 0}, {2, 3, 4, 5}}};
    }

    void animatedRoundTrip()
    {
        QFETCH(AnimatedTextureBlock, block);
        const QList<quint16> words = block.toWords();
        QCOMPARE(words.first(), quint16(block.ranges.size()));
        QCOMPARE(words.size(), 1 + block.ranges.size() + textureCount(block));
        QCOMPARE(AnimatedTextureBlock::fromWords(words.constData(), words.size()), block);
    }
};

QTEST_GUILESS_MAIN(tst_Records)
#include "tst_Records.moc"
