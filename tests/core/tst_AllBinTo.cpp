#include "level/LevelVersion.h"
#include "level/m_AllBinTo.h"

#include <QTest>

using Game = LevelVersion::Game;

class tst_AllBinTo : public QObject
{
    Q_OBJECT

private slots:
    void convertToHex_data()
    {
        QTest::addColumn<quint64>("value");
        QTest::addColumn<int>("bits");
        QTest::addColumn<QString>("hex");
        QTest::newRow("TR3 version") << quint64(0xFF180038) << 32 << QStringLiteral("FF180038");
        QTest::newRow("zero") << quint64(0) << 32 << QStringLiteral("00000000");
        QTest::newRow("16-bit keeps the low half") << quint64(0x12345) << 16 << QStringLiteral("2345");
        QTest::newRow("8-bit") << quint64(0xAB) << 8 << QStringLiteral("AB");
        QTest::newRow("64-bit") << quint64(0x0123456789ABCDEF) << 64 << QStringLiteral("0123456789ABCDEF");
        QTest::newRow("no bits") << quint64(45) << 0 << QString();
    }

    void convertToHex()
    {
        QFETCH(quint64, value);
        QFETCH(int, bits);
        QFETCH(QString, hex);
        QCOMPARE(m_AllBinTo::ConvertToHex(value, bits, 0), hex);
        QCOMPARE(m_AllBinTo::ConvertToHex(value, bits, 1), hex); // the flag changes nothing
    }

    void convertDecToBaseN_data()
    {
        QTest::addColumn<quint64>("value");
        QTest::addColumn<int>("base");
        QTest::addColumn<QString>("digits");
        QTest::newRow("hex") << quint64(255) << 16 << QStringLiteral("FF");
        QTest::newRow("binary") << quint64(5) << 2 << QStringLiteral("101");
        QTest::newRow("zero") << quint64(0) << 10 << QStringLiteral("0");
        QTest::newRow("base 36") << quint64(35) << 36 << QStringLiteral("Z");
        QTest::newRow("largest value") << quint64(0xFFFFFFFFFFFFFFFF) << 16 << QStringLiteral("FFFFFFFFFFFFFFFF");
        QTest::newRow("base 1") << quint64(10) << 1 << QString();
        QTest::newRow("base 37") << quint64(10) << 37 << QString();
    }

    void convertDecToBaseN()
    {
        QFETCH(quint64, value);
        QFETCH(int, base);
        QFETCH(QString, digits);
        QCOMPARE(m_AllBinTo::ConvertDecToBaseN(value, base), digits);
    }

    void gameOf_data()
    {
        QTest::addColumn<QString>("version");
        QTest::addColumn<Game>("game");
        QTest::newRow("TR1") << QStringLiteral("00000020") << Game::TR1;
        QTest::newRow("TR2 lower case") << QStringLiteral("0000002d") << Game::TR2;
        QTest::newRow("TR3 mixed case") << QStringLiteral("Ff180038") << Game::TR3;
        QTest::newRow("TR3 without its high byte") << QStringLiteral("00180038") << Game::Unknown;
        QTest::newRow("one past TR2") << QStringLiteral("0000002E") << Game::Unknown;
        QTest::newRow("unpadded") << QStringLiteral("2D") << Game::Unknown;
        QTest::newRow("padded too far") << QStringLiteral("00000002D") << Game::Unknown;
        QTest::newRow("empty") << QString() << Game::Unknown;
    }

    // By the eight digits, and by the long they stand for.
    void gameOf()
    {
        QFETCH(QString, version);
        QFETCH(Game, game);
        QCOMPARE(LevelVersion::gameOf(version), game);
        if (version.size() == 8)
            QCOMPARE(LevelVersion::gameOf(version.toUInt(nullptr, 16)), game);
    }
};

QTEST_GUILESS_MAIN(tst_AllBinTo)
#include "tst_AllBinTo.moc"
