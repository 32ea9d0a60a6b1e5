#include "common/FileError.h"
#include "common/ShownName.h"

#include <QTest>

// Names from files shown in one line of bounded length, whatever bytes
// they hold.
class tst_ShownName : public QObject
{
    Q_OBJECT

private slots:
    void shown_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("shown");
        const QString longName = QString(100, QLatin1Char('a')) + QString(100, QLatin1Char('z'));
        QTest::newRow("a plain path") << "/levels/wall.bmp" << "/levels/wall.bmp";
        QTest::newRow("accents kept") << QStringLiteral("C:\\niveaux\\é.bmp") << QStringLiteral("C:\\niveaux\\é.bmp");
        QTest::newRow("control bytes escaped") << QStringLiteral("a\x01\x1b[2Jb\n") << "a\\x01\\x1b[2Jb\\x0a";
        QTest::newRow("a NUL escaped") << QStringView(u"x\0y", 3).toString() << "x\\x00y";
        QTest::newRow("a zero-width space escaped") << QStringLiteral("a\u200bb") << "a\\u200bb";
        QTest::newRow("long: beginning and end kept")
            << longName << QString(80, QLatin1Char('a')) + QChar(0x2026) + QString(79, QLatin1Char('z'));
    }

    void shown()
    {
        QFETCH(QString, name);
        QFETCH(QString, shown);
        QCOMPARE(ShownName::of(name), shown);
    }

    // 64 KB of whatever a file held still makes one short line, in the name
    // and in an error's text.
    void boundedWhateverTheBytes_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("end"); // what the shown name ends with
        QString binary;
        for (int i = 0; i < 0xFFFF; ++i)
            binary.append(QChar(ushort(i % 0x30)));
        QTest::newRow("64 KB of control bytes") << binary << "\\x0d\\x0e";
        QTest::newRow("64 KB of text") << QString(0xFFFF, QLatin1Char('n')) << "nnn";
    }

    void boundedWhateverTheBytes()
    {
        QFETCH(QString, name);
        QFETCH(QString, end);
        const QString shown = ShownName::of(name);
        QVERIFY(shown.size() <= ShownName::MaxLength);
        QVERIFY2(shown.endsWith(end), qPrintable(shown));
        for (const QChar c : shown)
            QVERIFY(c.isPrint());
        const QString line = FileError::reading(name, QStringLiteral("is not text")).text();
        QVERIFY(line.size() <= ShownName::MaxLength + 40);
        QVERIFY(line.endsWith(QStringLiteral(": cannot be read: is not text")));
    }
};

QTEST_GUILESS_MAIN(tst_ShownName)
#include "tst_ShownName.moc"
