#include "level/LevelTileBitmap.h"
#include "ui/bitmap/BitmapCache.h"
#include "uisupport/EditorFixture.h"

#include <QCheckBox>
#include <QDialog>
#include <QImage>
#include <QPushButton>
#include <QStatusBar>
#include <QTest>

class tst_InsertTiles : public QObject
{
    Q_OBJECT

private slots:
    void insertWritesTheBitmapWhenTicked_data()
    {
        QTest::addColumn<bool>("ticked");
        QTest::newRow("unticked: the tables only") << false;
        QTest::newRow("ticked: the pixels too") << true;
    }

    // The list's bitmap is the demo level's own tiles with one block
    // painted: only when the box is ticked does the block reach the level.
    void insertWritesTheBitmapWhenTicked()
    {
        QFETCH(bool, ticked);
        EditorFixture f;
        QVERIFY(LevelTileBitmap::write(f.levelPath(), f.bitmapPath()));
        QImage bitmap(f.bitmapPath());
        const QRect block(100, 600, 40, 30);
        for (int y = block.top(); y <= block.bottom(); ++y)
            for (int x = block.left(); x <= block.right(); ++x)
                bitmap.setPixel(x, y, qRgb(255, 255, 0));
        QVERIFY(bitmap.save(f.bitmapPath(), "BMP"));

        f.prompts.formScripts << [&](QDialog& form) {
            auto* box = form.findChild<QCheckBox*>(QStringLiteral("chkInsertTiles"));
            QVERIFY(box);
            QCOMPARE(box->text(), QStringLiteral("Also write the bitmap into the level's tiles"));
            QVERIFY(!box->isChecked());
            f.prompts.fileNames << f.listPath();
            EditorFixture::click(form, "cmdGetList");
            box->setChecked(ticked);
            EditorFixture::click(form, "cmdInsert");
        };
        f.find<QAction>("mnuListInser")->trigger();

        const QString output = f.dir.filePath(QStringLiteral("templevel.tr2"));
        const QString tiles = f.dir.filePath(QStringLiteral("out.bmp"));
        QVERIFY(LevelTileBitmap::write(output, tiles));
        const QImage written(tiles);
        QCOMPARE(written.pixel(block.center()) == qRgb(255, 255, 0), ticked);
        QCOMPARE(written.pixel(5, 5), bitmap.pixel(5, 5));
        const QString message = f.window->statusBar()->currentMessage();
        QVERIFY2(message.contains(QStringLiteral("(1 changed or added)")) == ticked, qPrintable(message));
    }

    void viewShowsSeeThroughAsMagenta_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QRgb>("pixel");
        QTest::addColumn<QRgb>("shown");
        QTest::newRow("PNG clear") << "clear.png" << qRgba(0, 90, 0, 0) << qRgb(255, 0, 255);
        QTest::newRow("PNG half clear") << "half.png" << qRgba(0, 90, 0, 127) << qRgb(255, 0, 255);
        QTest::newRow("PNG mostly opaque") << "opaque.png" << qRgba(0, 90, 0, 200) << qRgb(0, 90, 0);
        QTest::newRow("BMP") << "plain.bmp" << qRgb(0, 90, 0) << qRgb(0, 90, 0);
    }

    // A PNG with alpha opens as a BMP of tiles shows: see-through in magenta.
    void viewShowsSeeThroughAsMagenta()
    {
        QFETCH(QString, name);
        QFETCH(QRgb, pixel);
        QFETCH(QRgb, shown);
        ScratchDir dir;
        QImage image(256, 256, QImage::Format_ARGB32);
        image.fill(pixel);
        const QString path = dir.filePath(name);
        QVERIFY(image.save(path));
        QString error;
        const QImage loaded = BitmapCache::Load(path, &error);
        QVERIFY2(!loaded.isNull(), qPrintable(error));
        QCOMPARE(loaded.pixel(7, 7), shown);
    }
};

QTEST_MAIN(tst_InsertTiles)
#include "tst_InsertTiles.moc"
