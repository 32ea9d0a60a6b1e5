#include "common/NumberText.h"
#include "common/m_Code.h"

#include <QTest>

class tst_FormHelpers : public QObject
{
    Q_OBJECT

private slots:
    void padLeft_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("pad");
        QTest::addColumn<int>("width");
        QTest::addColumn<QString>("expected");
        QTest::newRow("empty pad is zero") << "7" << "" << 3 << "007";
        QTest::newRow("first pad character only") << "7" << "xy" << 3 << "xx7";
        QTest::newRow("longer text is cut") << "12345" << "0" << 3 << "123";
        QTest::newRow("width zero") << "12" << "0" << 0 << "";
        QTest::newRow("exact width") << "119" << "0" << 3 << "119";
        QTest::newRow("empty text") << "" << "0" << 2 << "00";
    }

    void padLeft()
    {
        QFETCH(QString, text);
        QFETCH(QString, pad);
        QFETCH(int, width);
        QFETCH(QString, expected);
        QCOMPARE(m_Code::PadLeft(text, pad, width), expected);
    }

    void digitKeyFilter_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("expected");
        QTest::newRow("enter") << 13 << 13;
        QTest::newRow("backspace") << 8 << 8;
        QTest::newRow("zero") << int('0') << int('0');
        QTest::newRow("nine") << int('9') << int('9');
        QTest::newRow("minus") << 45 << 0;
        QTest::newRow("full stop") << 46 << 0;
        QTest::newRow("letter") << int('a') << 0;
        QTest::newRow("slash before digits") << 47 << 0;
        QTest::newRow("colon after digits") << 58 << 0;
    }

    void digitKeyFilter()
    {
        QFETCH(int, key);
        QFETCH(int, expected);
        QCOMPARE(m_Code::DigitKeyFilter(key), expected);
    }

    void numberTexts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<qint64>("value");
        QTest::newRow("plain") << "42" << qint64(42);
        QTest::newRow("negative") << "-7" << qint64(-7);
        QTest::newRow("leading blank") << " 12" << qint64(12);
        QTest::newRow("digits then letters") << "12abc" << qint64(12);
        QTest::newRow("not a number") << "x" << qint64(0);
        QTest::newRow("empty") << "" << qint64(0);
    }

    void numberTexts()
    {
        QFETCH(QString, text);
        QFETCH(qint64, value);
        QCOMPARE(NumberText::valueOf(text), value);
    }

    void numberTextsRoundTrip()
    {
        for (qint64 v : {qint64(0), qint64(255), qint64(4095), qint64(4096), qint64(65535), qint64(-32768)})
            QCOMPARE(NumberText::valueOf(NumberText::of(v)), v);
        QCOMPARE(NumberText::padded(3, 5), QStringLiteral("00003"));
        QCOMPARE(NumberText::padded(123456, 5), QStringLiteral("123456"));
    }
};

QTEST_GUILESS_MAIN(tst_FormHelpers)
#include "tst_FormHelpers.moc"
