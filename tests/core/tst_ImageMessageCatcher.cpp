#include "common/ImageMessageCatcher.h"

#include <QLoggingCategory>
#include <QTest>

#include <cstdio>

namespace {

QStringList passedOn;

void recordPassedOn(QtMsgType, const QMessageLogContext&, const QString& message)
{
    passedOn.append(message);
}

} // namespace

// What the image libraries say while a bitmap is read is kept for the one
// line that refuses it; everything else goes where it went before.
class tst_ImageMessageCatcher : public QObject
{
    Q_OBJECT

private slots:
    void caughtOrPassedOn_data()
    {
        QTest::addColumn<QString>("category");
        QTest::addColumn<QString>("message");
        QTest::addColumn<bool>("caught");
        QTest::newRow("Qt's allocation limit")
            << "qt.gui.imageio"
            << "QImageIOHandler: Rejecting image as it exceeds the current allocation limit of 256 megabytes" << true;
        QTest::newRow("a libpng warning through Qt") << "default" << "libpng warning: iCCP: known incorrect sRGB profile"
                                                     << true;
        QTest::newRow("anything else") << "default" << "a timer fired late" << false;
        QTest::newRow("QImage's own") << "default" << "QImage: out of memory, returning null image" << true;
        QTest::newRow("another category") << "qt.network" << "the allocation limit of a socket" << false;
    }

    void caughtOrPassedOn()
    {
        QFETCH(QString, category);
        QFETCH(QString, message);
        QFETCH(bool, caught);
        passedOn.clear();
        const QtMessageHandler before = qInstallMessageHandler(recordPassedOn);
        QStringList kept;
        {
            const ImageMessageCatcher catcher;
            const QByteArray name = category.toLatin1();
            const QLoggingCategory logging(name.constData());
            qCWarning(logging, "%s", qPrintable(message));
            kept = catcher.messages();
        }
        qWarning("after the catcher");
        qInstallMessageHandler(before);
        QCOMPARE(kept.contains(message), caught);
        QCOMPARE(passedOn.contains(message), !caught);
        QVERIFY(passedOn.contains(QStringLiteral("after the catcher")));
    }

    // libpng writes its errors to standard error itself: they are read back
    // from there, and a few say enough however many rows repeat them.
    void libraryLinesOnStandardError()
    {
        QStringList kept;
        QString why;
        {
            const ImageMessageCatcher catcher;
            std::fprintf(stderr, "libpng error: IDAT: Missing PLTE before IDAT\n");
            for (int row = 0; row < 5; ++row)
                std::fprintf(stderr, "libpng warning: row %d\n", row);
            kept = catcher.messages();
            why = catcher.withMessages(QStringLiteral("cannot be decoded"));
        }
        QCOMPARE(kept.size(), 3);
        QCOMPARE(kept.first(), QStringLiteral("libpng error: IDAT: Missing PLTE before IDAT"));
        QVERIFY(why.startsWith(QStringLiteral("cannot be decoded (libpng error: IDAT: Missing PLTE before IDAT; ")));
        QVERIFY(!why.contains(QLatin1Char('\n')));
    }
};

QTEST_GUILESS_MAIN(tst_ImageMessageCatcher)
#include "tst_ImageMessageCatcher.moc"
