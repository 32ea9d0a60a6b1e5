#include "uisupport/EditorFixture.h"
#include "ui/common/EditorState.h"
#include "ui/main/frmMain.h"
#include "ui/bitmap/ucScrollPic.h"
#include "ui/bitmap/ucScrollPicCanvas.h"
#include "common/NumberText.h"

#include <QAction>
#include <QLabel>
#include <QPainter>
#include <QScrollBar>
#include <QSet>
#include <QSignalSpy>
#include <QTest>

// The bitmap view's arithmetic: scroll maxima, reported positions, what a
// zoom, a load or a refresh does to the drawing, and the main window's use.
class tst_ucScrollPic : public QObject
{
    Q_OBJECT

private slots:
    void scrollMax_data();
    void scrollMax();
    void everyZoomStepFitsTheScrollBars_data();
    void everyZoomStepFitsTheScrollBars();
    void changeReportsTheTopLeftPixel();
    void mouseReportsBitmapPixelsAndDrags();
    void zoomAndRefreshWipeTheDrawing();
    void aBadFileLeavesTheViewAsItWas();
    void numberOfTilesRoundsHalvesToEven_data();
    void numberOfTilesRoundsHalvesToEven();
    void showTilesDrawsOneLinePerBorder_data();
    void showTilesDrawsOneLinePerBorder();
    void zoomBarSetsLabelAndView();
    void paintingShowsSharpPixels();
    void theEditOutlineOutlivesRedraws();
    void shapesKeepTheirOwnColours_data();
    void shapesKeepTheirOwnColours();
    void numberedOutlinesLookAsOutlinesAndTexts_data();
    void numberedOutlinesLookAsOutlinesAndTexts();

private:
    static QString bitmap(ScratchDir& dir, int tiles);
    static void moveMouse(QWidget* widget, QPoint at, Qt::MouseButtons held)
    {
        QMouseEvent move(QEvent::MouseMove, at, widget->mapToGlobal(QPointF(at)), Qt::NoButton, held, Qt::NoModifier);
        QApplication::sendEvent(widget, &move);
    }
};

QString tst_ucScrollPic::bitmap(ScratchDir& dir, int tiles)
{
    QImage image(256, tiles * 256, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    image.setPixel(1, 0, qRgb(255, 0, 0));
    const QString path = dir.filePath(QStringLiteral("b%1.bmp").arg(tiles));
    image.save(path, "BMP");
    return path;
}

void tst_ucScrollPic::scrollMax_data()
{
    QTest::addColumn<int>("picture");
    QTest::addColumn<int>("viewport");
    QTest::addColumn<int>("thickness");
    QTest::addColumn<int>("max");
    QTest::newRow("no other bar") << 1024 << 600 << 0 << 424;
    QTest::newRow("other bar adds it and 5") << 1024 << 600 << 17 << 446;
    QTest::newRow("zoom 16 of 128 tiles") << 524288 << 600 << 17 << 523710;
}

void tst_ucScrollPic::scrollMax()
{
    QFETCH(int, picture);
    QFETCH(int, viewport);
    QFETCH(int, thickness);
    QFETCH(int, max);
    QCOMPARE(ucScrollPic::ScrollMax(picture, viewport, thickness), max);
}

void tst_ucScrollPic::everyZoomStepFitsTheScrollBars_data()
{
    QTest::addColumn<int>("tiles");
    QTest::newRow("1 tile") << 1;
    QTest::newRow("32 tiles") << 32;
    QTest::newRow("128 tiles") << 128;
}

void tst_ucScrollPic::everyZoomStepFitsTheScrollBars()
{
    QFETCH(int, tiles);
    ScratchDir dir;
    ucScrollPic view;
    view.resize(817, 617);
    QVERIFY(view.LoadOnePicture(bitmap(dir, tiles)));
    const int viewHeight = view.Picture1()->height();
    for (int zoom = 1; zoom <= 16; ++zoom) {
        view.setZoomFactor(zoom);
        QCOMPARE(view.ZoomFactor(), zoom);
        const int height = tiles * 256 * zoom;
        QCOMPARE(view.VScroll1()->isVisibleTo(&view), height > viewHeight);
        if (height > viewHeight) {
            QVERIFY(view.VScroll1()->maximum() >= height - viewHeight);
            view.VScroll1()->setValue(view.VScroll1()->maximum());
            QCOMPARE(view.VScroll1()->value(), view.VScroll1()->maximum());
        }
    }
}

void tst_ucScrollPic::changeReportsTheTopLeftPixel()
{
    ScratchDir dir;
    ucScrollPic view;
    view.resize(400, 300);
    view.LoadOnePicture(bitmap(dir, 4));
    view.setZoomFactor(3);
    QSignalSpy change(&view, &ucScrollPic::Change);
    view.VScroll1()->setValue(770);
    QCOMPARE(change.last(), QVariantList({0, 257})); // 770 / 3 rounds to 257: tile 1
    view.HScroll1()->setValue(100);
    QCOMPARE(change.last(), QVariantList({33, 257}));
    QCOMPARE(view.Picture1()->offset(), QPoint(100, 770));
}

void tst_ucScrollPic::mouseReportsBitmapPixelsAndDrags()
{
    ScratchDir dir;
    ucScrollPic view;
    view.resize(400, 300);
    view.LoadOnePicture(bitmap(dir, 2));
    view.setZoomFactor(2);
    view.VScroll1()->setValue(20);
    QSignalSpy pos(&view, &ucScrollPic::MousePos);
    QSignalSpy select(&view, &ucScrollPic::MouseSelect);
    QWidget* canvas = view.Picture1();
    moveMouse(canvas, QPoint(100, 30), Qt::NoButton);
    QCOMPARE(pos.size(), 1);
    QCOMPARE(pos.last(), QVariantList({50.0f, 25.0f}));

    QTest::mousePress(canvas, Qt::LeftButton, {}, QPoint(10, 10));
    QCOMPARE(select.last(), QVariantList({10.0f, 30.0f, 10.0f, 30.0f}));
    moveMouse(canvas, QPoint(60, 90), Qt::LeftButton);
    QCOMPARE(select.last(), QVariantList({10.0f, 30.0f, 60.0f, 110.0f}));
    QTest::mouseRelease(canvas, Qt::LeftButton, {}, QPoint(70, 95));
    QCOMPARE(select.last(), QVariantList({10.0f, 30.0f, 70.0f, 115.0f}));
    const int drags = select.size();
    QTest::mouseClick(canvas, Qt::RightButton, {}, QPoint(5, 5));
    QCOMPARE(select.size(), drags);
}

void tst_ucScrollPic::zoomAndRefreshWipeTheDrawing()
{
    ScratchDir dir;
    ucScrollPic view;
    view.resize(300, 300);
    view.LoadOnePicture(bitmap(dir, 4));
    view.DrawContour(0, 0, 10, 10, Qt::red);
    view.PutText(5, 5, "7", Qt::red);
    view.setZoomFactor(1); // the current zoom: nothing happens
    view.setZoomFactor(0); // below 1: ignored
    QCOMPARE(view.ShapeCount(), 2);
    QCOMPARE(view.ZoomFactor(), 1);
    view.VScroll1()->setValue(50);
    view.resize(320, 280); // a resize keeps the drawing and the place
    QCOMPARE(view.ShapeCount(), 2);
    QCOMPARE(view.VScroll1()->value(), 50);
    view.setZoomFactor(2);
    QCOMPARE(view.ShapeCount(), 0);
    QCOMPARE(view.VScroll1()->value(), 0);
    view.DrawLine(0, 0, 5, 5, Qt::red);
    view.VScroll1()->setValue(80);
    view.RefreshPicture();
    QCOMPARE(view.ShapeCount(), 0);
    QCOMPARE(view.VScroll1()->value(), 0);
    view.DrawLine(0, 0, 5, 5, Qt::red);
    view.LoadOnePicture(view.FileName());
    QCOMPARE(view.ShapeCount(), 0);
}

void tst_ucScrollPic::aBadFileLeavesTheViewAsItWas()
{
    ScratchDir dir;
    ucScrollPic view;
    const QString good = bitmap(dir, 2);
    QVERIFY(view.LoadOnePicture(good));
    QVERIFY(view.LoadOnePicture(QString())); // an empty name does nothing
    const QString junk = dir.write("junk.bmp", QByteArray(600, 'x'));
    QVERIFY(!view.LoadOnePicture(junk));
    QVERIFY(view.ErrorString().contains(QDir::toNativeSeparators(junk)));
    QCOMPARE(view.FileName(), good);
    QCOMPARE(view.PictureHeight(), 512);
    view.NoPicture();
    QVERIFY(!view.HasPicture());
    QVERIFY(view.FileName().isEmpty());
}

void tst_ucScrollPic::numberOfTilesRoundsHalvesToEven_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<QString>("tiles");
    QTest::newRow("1024") << 1024 << "4";
    QTest::newRow("640: 2.5 to even") << 640 << "2";
    QTest::newRow("896: 3.5 to even") << 896 << "4";
    QTest::newRow("100") << 100 << "0";
}

void tst_ucScrollPic::numberOfTilesRoundsHalvesToEven()
{
    QFETCH(int, height);
    QFETCH(QString, tiles);
    EditorFixture f;
    const QString path = f.writeBitmap("odd.bmp", 0, height);
    f.newList(f.dir.filePath("n.trt"), {}, path);
    QCOMPARE(f.find<QLabel>("lblNbTiles")->text(), tiles);
    QCOMPARE(f.find<QLabel>("lblHeight")->text(), QString::number(height));
    QCOMPARE(f.window->state().document().NumberOfTiles(), tiles.toInt());
}

void tst_ucScrollPic::showTilesDrawsOneLinePerBorder_data()
{
    QTest::addColumn<int>("tiles");
    QTest::addColumn<int>("zoom");
    QTest::newRow("one tile: no line") << 1 << 1;
    QTest::newRow("four tiles at zoom 4") << 4 << 4;
}

void tst_ucScrollPic::showTilesDrawsOneLinePerBorder()
{
    QFETCH(int, tiles);
    QFETCH(int, zoom);
    EditorFixture f;
    const QString path = f.writeBitmap("t.bmp", tiles);
    f.newList(f.dir.filePath("n.trt"), {}, path);
    f.find<QScrollBar>("hscrlZoom")->setValue(zoom);
    f.find<QAction>("mnuBitmapsShowTiles")->trigger();
    ucScrollPic* view = f.window->state().picture();
    QCOMPARE(view->ShapeCount(), tiles - 1);
    for (int i = 0; i < tiles - 1; ++i) {
        const auto& line = view->Picture1()->shapes()[size_t(i)];
        QCOMPARE(line.p1, QPoint(0, (i + 1) * 256 * zoom));
        QCOMPARE(line.color, QColor(Qt::white));
    }
    f.find<QAction>("mnuBitmapsShowTiles")->trigger();
    QCOMPARE(view->ShapeCount(), 0);
}

void tst_ucScrollPic::zoomBarSetsLabelAndView()
{
    EditorFixture f;
    f.openList(f.listPath());
    f.find<QScrollBar>("hscrlZoom")->setValue(5);
    QCOMPARE(f.find<QLabel>("lblZoomFactor")->text(), QStringLiteral("Zoom Factor: 5"));
    ucScrollPic* view = f.window->state().picture();
    QCOMPARE(view->ZoomFactor(), 5);
    view->VScroll1()->setValue(5 * 256 * 2 + 10);
    QCOMPARE(f.find<QLabel>("lblTileShow")->text(), QStringLiteral("2"));
}

void tst_ucScrollPic::paintingShowsSharpPixels()
{
    ScratchDir dir;
    ucScrollPic view;
    view.resize(300, 300);
    view.LoadOnePicture(bitmap(dir, 1));
    view.setZoomFactor(4);
    view.DrawContour(40, 40, 80, 80, Qt::yellow);
    QImage shot(view.Picture1()->size(), QImage::Format_RGB32);
    QPainter painter(&shot);
    view.Picture1()->paintView(painter, shot.rect());
    painter.end();
    // Bitmap pixel (1, 0) is red: a 4 x 4 block at (4..7, 0..3), no blending at its edge.
    QCOMPARE(shot.pixel(4, 0), qRgb(255, 0, 0));
    QCOMPARE(shot.pixel(7, 3), qRgb(255, 0, 0));
    QCOMPARE(shot.pixel(8, 0), QColor(Qt::darkGreen).rgb());
    QCOMPARE(shot.pixel(3, 3), QColor(Qt::darkGreen).rgb());
    QCOMPARE(shot.pixel(40, 60), QColor(Qt::yellow).rgb());
    QCOMPARE(shot.pixel(80, 60), QColor(Qt::yellow).rgb());
    QCOMPARE(shot.pixel(60, 60), QColor(Qt::darkGreen).rgb());
}

void tst_ucScrollPic::theEditOutlineOutlivesRedraws()
{
    ScratchDir dir;
    ucScrollPic view;
    view.resize(300, 300);
    view.LoadOnePicture(bitmap(dir, 1));
    view.setZoomFactor(3);
    const QPolygon rectangle({{10, 20}, {40, 20}, {40, 35}, {10, 35}});
    view.DrawEditOutline(rectangle, Qt::cyan);
    ucScrollPicCanvas& canvas = *view.Picture1();
    view.RefreshPicture();
    view.setZoomFactor(5);
    view.setZoomFactor(3);
    QCOMPARE(canvas.editOutline(), rectangle);

    // Drawn over the picture in bitmap pixels times the zoom.
    QImage shot(canvas.size(), QImage::Format_RGB32);
    QPainter painter(&shot);
    canvas.paintView(painter, shot.rect());
    painter.end();
    for (int x = 30; x <= 120; ++x)
        QCOMPARE(QColor(shot.pixel(x, 60)), QColor(Qt::cyan));
    QCOMPARE(QColor(shot.pixel(60, 80)), QColor(Qt::darkGreen));
    QCOMPARE(QColor(shot.pixel(120, 80)), QColor(Qt::cyan));

    view.NoPicture();
    QVERIFY(canvas.editOutline().isEmpty());
}

void tst_ucScrollPic::shapesKeepTheirOwnColours_data()
{
    QTest::addColumn<QList<QColor>>("colours");
    QTest::newRow("one colour") << QList<QColor>{Qt::yellow, Qt::yellow, Qt::yellow};
    QTest::newRow("a colour and back") << QList<QColor>{Qt::yellow, Qt::cyan, Qt::yellow};
    QTest::newRow("each its own") << QList<QColor>{Qt::magenta, Qt::cyan, Qt::yellow};
}

// Outlines and labels of one text drawn in turn: each shows in the colour it
// was drawn with, whatever was drawn before it and however often its label
// has been painted.
void tst_ucScrollPic::shapesKeepTheirOwnColours()
{
    QFETCH(QList<QColor>, colours);
    ScratchDir dir;
    ucScrollPic view;
    view.resize(300, 300);
    view.LoadOnePicture(bitmap(dir, 1));
    for (int i = 0; i < colours.size(); ++i) {
        view.DrawContour(10 + 80 * i, 10, 70 + 80 * i, 70, colours[i]);
        view.PutText(20 + 80 * i, 100, QStringLiteral("17"), colours[i]);
    }
    for (int paint = 0; paint < 2; ++paint) {
        QImage shot(view.Picture1()->size(), QImage::Format_RGB32);
        QPainter painter(&shot);
        view.Picture1()->paintView(painter, shot.rect());
        painter.end();
        for (int i = 0; i < colours.size(); ++i) {
            QCOMPARE(QColor(shot.pixel(10 + 80 * i, 40)), colours[i]);
            QCOMPARE(QColor(shot.pixel(70 + 80 * i, 40)), colours[i]);
            QCOMPARE(QColor(shot.pixel(40 + 80 * i, 70)), colours[i]);
            QSet<QRgb> label;
            for (int y = 100; y < 120; ++y) {
                for (int x = 20 + 80 * i; x < 50 + 80 * i; ++x)
                    label.insert(shot.pixel(x, y));
            }
            for (const QColor& other : colours)
                QCOMPARE(label.contains(other.rgb()), other == colours[i]);
        }
    }
}

void tst_ucScrollPic::numberedOutlinesLookAsOutlinesAndTexts_data()
{
    QTest::addColumn<QList<QPoint>>("corners");
    QTest::addColumn<qint32>("number");
    QTest::addColumn<int>("width");
    const QList<QPoint> square{{20, 30}, {90, 100}}, odd{{21, 31}, {90, 100}}, flipped{{90, 100}, {21, 30}};
    const QList<QPoint> triangle{{20, 30}, {120, 30}, {20, 131}};
    QTest::newRow("zero padded") << square << 0 << 4;
    QTest::newRow("padded") << odd << 17 << 4;
    QTest::newRow("corners the other way round") << flipped << 5 << 2;
    QTest::newRow("wider than its width") << square << 32767 << 2;
    QTest::newRow("every digit") << square << 1234567890 << 0;
    QTest::newRow("below zero") << square << -5 << 3;
    QTest::newRow("triangle") << triangle << 42 << 4;
    QTest::newRow("triangle, centroid rounded down") << QList<QPoint>{{20, 30}, {121, 31}, {22, 130}} << 7 << 0;
    QTest::newRow("label past the view's edge") << QList<QPoint>{{150, 170}, {199, 199}} << 1234 << 4;
}

// An outline drawn with its number shows the pixels, and counts the shapes,
// of the outline drawn and its number's text put in its middle.
void tst_ucScrollPic::numberedOutlinesLookAsOutlinesAndTexts()
{
    QFETCH(QList<QPoint>, corners);
    QFETCH(qint32, number);
    QFETCH(int, width);
    ScratchDir dir;
    const QString file = bitmap(dir, 1);
    std::array<QImage, 2> shots;
    std::array<int, 2> counts{};
    for (size_t spelt = 0; spelt < 2; ++spelt) {
        ucScrollPic view;
        view.resize(200, 200);
        view.LoadOnePicture(file);
        view.DrawContour(0, 0, 60, 60, Qt::cyan); // drawn over
        const QPoint a = corners[0], b = corners[1];
        const QString label = NumberText::padded(number, width);
        if (corners.size() == 2 && spelt) {
            view.DrawContour(a.x(), a.y(), b.x(), b.y(), Qt::yellow);
            view.PutText((a.x() + b.x()) / 2, (a.y() + b.y()) / 2, label, Qt::yellow);
        } else if (corners.size() == 2) {
            view.DrawNumberedContour(a, b, number, width, Qt::yellow);
        } else if (spelt) {
            const QPoint c = corners[2];
            view.DrawLine(a.x(), a.y(), b.x(), b.y(), Qt::yellow);
            view.DrawLine(b.x(), b.y(), c.x(), c.y(), Qt::yellow);
            view.DrawLine(c.x(), c.y(), a.x(), a.y(), Qt::yellow);
            view.PutText((a.x() + b.x() + c.x()) / 3, (a.y() + b.y() + c.y()) / 3, label, Qt::yellow);
        } else {
            view.DrawNumberedTriangle(a, b, corners[2], number, width, Qt::yellow);
        }
        counts[spelt] = view.ShapeCount();
        shots[spelt] = QImage(view.Picture1()->size(), QImage::Format_RGB32);
        QPainter painter(&shots[spelt]);
        view.Picture1()->paintView(painter, shots[spelt].rect());
    }
    QCOMPARE(counts[0], counts[1]);
    QCOMPARE(shots[0], shots[1]);
}

QTEST_MAIN(tst_ucScrollPic)
#include "tst_ucScrollPic.moc"
