#include "uisupport/EditorFixture.h"
#include "ui/common/EditorState.h"
#include "ui/common/ListView.h"
#include "uisupport/UserActions.h"
#include "ui/main/frmMain.h"
#include "ui/bitmap/ucScrollPic.h"
#include "ui/bitmap/ucScrollPicCanvas.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QStatusBar>
#include "support/TableRows.h"

#include <QTest>

using Cells = QStringList;

// Dragging a rectangle on the bitmap view of the demo list (four tiles,
// 1024 pixels high): the object corner boxes, the sprite boxes and the
// rectangle outlined on the view.
class tst_BitmapSelection : public QObject
{
    Q_OBJECT

private slots:
    void dragPicksARectangle_data();
    void dragPicksARectangle();
    void aDragLeavesOneOutline();
    void aDragOverALoadedTextureLeavesNoMarkers();
    void spriteAddedFromADrag();
    void drawingWhileAddingOrEditing_data();
    void drawingWhileAddingOrEditing();
    void theEditedOutlineFollowsTheMouseAndTheZoom();
    void aClickWithoutADragChangesNothing();
    void freeCornersDraggedOneByOne();

private:
    struct Window
    {
        EditorFixture f;
        Window();
        ucScrollPic* view() const { return f.find<ucScrollPic>("ucScrollPic1"); }
        void zoom(int factor) const { f.find<QScrollBar>("hscrlZoom")->setValue(factor); }
        void drag(QPoint from, QPoint to) const { UserActions::Drag(view()->Picture1(), from, to); }
        Cells texts(const QStringList& names) const;
        void click(const char* name) const { QTest::mouseClick(f.find<QPushButton>(name), Qt::LeftButton); }
    };
};

tst_BitmapSelection::Window::Window()
{
    f.openList(f.listPath());
    f.window->show();
    QVERIFY(QTest::qWaitForWindowExposed(f.window.get()));
}

Cells tst_BitmapSelection::Window::texts(const QStringList& names) const
{
    Cells texts;
    for (const QString& name : names)
        texts << f.window->findChild<QLineEdit*>(name)->text();
    return texts;
}

namespace {

const QStringList ObjectBoxes{"txtTileNo", "txtX_0", "txtY_0", "txtX_2", "txtY_2"};
const QStringList SpriteBoxes{"txtTileSNo", "txtS_X_0", "txtS_Y_0", "txtS_X_1", "txtS_Y_1"};

} // namespace

void tst_BitmapSelection::dragPicksARectangle_data()
{
    QTest::addColumn<int>("zoom");
    QTest::addColumn<int>("scroll"); // of the vertical bar, in zoomed pixels
    QTest::addColumn<QPoint>("from"); // in the viewport
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<Cells>("corners"); // tile, X1, Y1, X2, Y2 as the boxes show them
    QTest::addColumn<QRect>("outline"); // zoomed picture coordinates; null for none

    QTest::newRow("end held in the start tile") << 1 << 0 << QPoint(10, 300) << QPoint(60, 600)
                                                << Cells{"1", "10", "300", "60", "512"}
                                                << QRect(QPoint(10, 300), QPoint(60, 512));
    QTest::newRow("zoom 3 across a tile border") << 3 << 600 << QPoint(30, 150) << QPoint(300, 300)
                                                 << Cells{"0", "10", "250", "100", "256"}
                                                 << QRect(QPoint(30, 750), QPoint(300, 768));
    QTest::newRow("zoom 3, fractions cut down") << 3 << 0 << QPoint(32, 8) << QPoint(35, 14)
                                                << Cells{"0", "10", "2", "11", "4"}
                                                << QRect(QPoint(30, 6), QPoint(33, 12));
    QTest::newRow("zoom 2, up and left, scrolled") << 2 << 400 << QPoint(200, 300) << QPoint(40, 140)
                                                   << Cells{"1", "20", "270", "100", "350"}
                                                   << QRect(QPoint(40, 540), QPoint(200, 700));
    QTest::newRow("past the right edge") << 1 << 0 << QPoint(250, 10) << QPoint(400, 50)
                                         << Cells{"0", "250", "10", "256", "50"}
                                         << QRect(QPoint(250, 10), QPoint(256, 50));
    QTest::newRow("above the picture, from tile 1") << 1 << 100 << QPoint(10, 200) << QPoint(60, -140)
                                                    << Cells{"1", "10", "256", "60", "300"}
                                                    << QRect(QPoint(10, 256), QPoint(60, 300));
    QTest::newRow("no width") << 1 << 0 << QPoint(10, 300) << QPoint(10, 400) << Cells{"1", "", "", "", ""}
                              << QRect();
    QTest::newRow("no height") << 2 << 0 << QPoint(10, 300) << QPoint(90, 301) << Cells{"0", "", "", "", ""}
                               << QRect();
}

void tst_BitmapSelection::dragPicksARectangle()
{
    QFETCH(int, zoom);
    QFETCH(int, scroll);
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    QFETCH(Cells, corners);
    QFETCH(QRect, outline);
    Window w;
    w.zoom(zoom);
    w.view()->VScroll1()->setValue(scroll);
    w.drag(from, to);

    QCOMPARE(w.texts(ObjectBoxes), corners);
    const bool made = !outline.isNull();
    // The sprite boxes take the same corners and tile, or are emptied.
    QCOMPARE(w.texts(SpriteBoxes), made ? corners : Cells(5));
    QCOMPARE(w.view()->Picture1()->selection(), outline);
    if (made)
        QCOMPARE(w.view()->Picture1()->selectionColor(), w.f.window->state().OutlineColor);
    // No markers are left after the press, so every corner is locked.
    QCOMPARE(w.texts({"txtHiLo_0", "txtHiLo_1", "txtHiLo_2", "txtHiLo_3"}), Cells(4));
    QVERIFY(w.f.find<QLineEdit>("txtX_0")->isReadOnly());
}

void tst_BitmapSelection::aDragLeavesOneOutline()
{
    Window w;
    w.zoom(2);
    w.click("cmdDraw");
    const int outlines = w.view()->ShapeCount();
    QVERIFY(outlines > 0);
    ucScrollPicCanvas* canvas = w.view()->Picture1();
    QTest::mousePress(canvas, Qt::LeftButton, {}, QPoint(10, 10));
    for (int step = 1; step <= 5; ++step) {
        const QPoint at(10 + 20 * step, 10 + 10 * step);
        QMouseEvent move(QEvent::MouseMove, QPointF(at), canvas->mapToGlobal(QPointF(at)), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(canvas, &move);
        QCOMPARE(canvas->selection(), QRect(QPoint(10, 10), QPoint(at.x() / 2 * 2, at.y() / 2 * 2)));
    }
    QTest::mouseRelease(canvas, Qt::LeftButton, {}, QPoint(110, 60));
    QCOMPARE(w.view()->ShapeCount(), outlines);
    // The next Draw wipes the picked rectangle with the old outlines.
    w.click("cmdDraw");
    QVERIFY(canvas->selection().isNull());
}

void tst_BitmapSelection::aDragOverALoadedTextureLeavesNoMarkers()
{
    Window w;
    UserActions::ClickRow(w.f.find<ListView>("lsvTextures"), 5);
    QCOMPARE(w.texts({"txtHiLo_0", "txtHiLo_2"}), (Cells{"Lo", "Hi"}));
    w.drag({20, 20}, {40, 50});
    QCOMPARE(w.texts({"txtX_0", "txtX_1", "txtX_2", "txtY_0", "txtY_2"}), (Cells{"20", "127", "40", "20", "50"}));
    // Accept finds no Lo and Hi corner, stores nothing and says why.
    const Cells before = w.f.window->state().views.lsvTextures.row(5).subItems;
    w.click("cmdEdit");
    w.click("cmdEdit");
    QCOMPARE(w.f.window->state().views.lsvTextures.row(5).subItems, before);
    QVERIFY(w.f.window->statusBar()->currentMessage().startsWith(QLatin1String("Nothing was stored")));
    QVERIFY(!w.f.window->state().document().isModified());
}

void tst_BitmapSelection::spriteAddedFromADrag()
{
    Window w;
    // A texture half added on its own page is no business of the sprite page's drag.
    w.click("cmdAdd");
    const Cells texture = w.texts({"txtHiLo_0", "txtHiLo_2", "txtX_0", "txtTileNo"});
    w.f.window->ShowPage(3);
    w.click("cmdSpriteAdd");
    w.drag({10, 300}, {60, 340});
    for (const auto& [name, value] : QList<std::pair<const char*, const char*>>{
             {"txtTop", "-20"}, {"txtBottom", "20"}, {"txtLeft", "-25"}, {"txtRight", "25"}})
        UserActions::TypeInto(w.f.find<QLineEdit>(name), QString::fromLatin1(value));
    w.click("cmdSpriteAdd");
    const ListRows& sprites = w.f.window->state().views.lsvSprites;
    QCOMPARE(sprites.count(), 30);
    QCOMPARE(sprites.row(29).subItems, (Cells{"1", "10", "44", "13055", "10495", "-25", "-20", "25", "20"}));
    QCOMPARE(w.texts({"txtHiLo_0", "txtHiLo_2", "txtX_0", "txtTileNo"}), texture);
}

void tst_BitmapSelection::drawingWhileAddingOrEditing_data()
{
    QTest::addColumn<Cells>("edited"); // the row loaded and edited; empty to Add
    QTest::addColumn<int>("zoom");
    QTest::addColumn<int>("scroll");
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<Cells>("boxes"); // tile, Lo X and Y, Hi X and Y
    QTest::addColumn<Cells>("stored");

    QTest::newRow("add at zoom 1") << Cells{} << 1 << 0 << QPoint(10, 300) << QPoint(60, 340)
                                   << Cells{"1", "10", "300", "60", "340"}
                                   << Cells{"1", "0", "10", "44", "60", "44", "60", "84", "10", "84",
                                            "1", "1", "255", "1", "255", "255", "1", "255"};
    // Zoom 4 with tile 2 at the top: the press is at (50, 552), the release at (10, 522).
    QTest::newRow("add at zoom 4 in tile 2, dragged up and left")
        << Cells{} << 4 << 2048 << QPoint(200, 160) << QPoint(40, 40) << Cells{"2", "10", "522", "50", "552"}
        << Cells{"2", "0", "10", "10", "50", "10", "50", "40", "10", "40", "1", "1", "255", "1", "255", "255", "1", "255"};
    QTest::newRow("the far corner held in the press's tile")
        << Cells{} << 1 << 0 << QPoint(10, 300) << QPoint(60, 600) << Cells{"1", "10", "300", "60", "511"}
        << Cells{"1", "0", "10", "44", "60", "44", "60", "255", "10", "255", "1", "1", "255", "1", "255", "255", "1", "255"};
    // A row whose bytes are all 0, flipped both ways: Lo on corner 3, bytes kept.
    QTest::newRow("edit a row of zeros at zoom 2")
        << Cells{"0", "0", "50", "60", "10", "60", "10", "20", "50", "20", "0", "0", "0", "0", "0", "0", "0", "0"} << 2
        << 0 << QPoint(40, 60) << QPoint(200, 100) << Cells{"0", "20", "30", "100", "50"}
        << Cells{"0", "0", "100", "50", "20", "50", "20", "30", "100", "30", "0", "0", "0", "0", "0", "0", "0", "0"};
}

void tst_BitmapSelection::drawingWhileAddingOrEditing()
{
    QFETCH(Cells, edited);
    QFETCH(int, zoom);
    QFETCH(int, scroll);
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    QFETCH(Cells, boxes);
    QFETCH(Cells, stored);
    Window w;
    ListRows& textures = w.f.window->state().views.lsvTextures;
    const int row =
        edited.isEmpty() ? textures.count() : TableRows::addTexture(w.f.window->document().tables(), 30, edited);
    if (edited.isEmpty()) {
        w.click("cmdAdd");
    } else {
        UserActions::ClickRow(w.f.find<ListView>("lsvTextures"), row);
        w.click("cmdEdit");
    }
    const Cells markers = w.texts({"txtHiLo_0", "txtHiLo_1", "txtHiLo_2", "txtHiLo_3"});
    const Cells sprites = w.texts(SpriteBoxes);
    w.zoom(zoom);
    w.view()->VScroll1()->setValue(scroll);
    w.drag(from, to);

    // The boxes of the Lo and Hi corners, wherever they sit.
    const int lo = markers.indexOf(QStringLiteral("Lo")), hi = markers.indexOf(QStringLiteral("Hi"));
    QCOMPARE(w.texts({"txtTileNo", QStringLiteral("txtX_%1").arg(lo), QStringLiteral("txtY_%1").arg(lo),
                      QStringLiteral("txtX_%1").arg(hi), QStringLiteral("txtY_%1").arg(hi)}),
             boxes);
    QCOMPARE(w.texts({"txtHiLo_0", "txtHiLo_1", "txtHiLo_2", "txtHiLo_3"}), markers);
    // The drag was the texture's: the sprite page and the picked rectangle saw nothing of it.
    QCOMPARE(w.texts(SpriteBoxes), sprites);
    QVERIFY(w.view()->Picture1()->selection().isNull());
    w.click(edited.isEmpty() ? "cmdAdd" : "cmdEdit");
    QCOMPARE(textures.row(row).subItems, stored);
    QVERIFY(w.view()->Picture1()->editOutline().isEmpty());
}

void tst_BitmapSelection::theEditedOutlineFollowsTheMouseAndTheZoom()
{
    Window w;
    w.zoom(3);
    w.click("cmdAdd");
    ucScrollPicCanvas* canvas = w.view()->Picture1();
    QVERIFY(canvas->editOutline().isEmpty());
    QTest::mousePress(canvas, Qt::LeftButton, {}, QPoint(30, 60));
    for (int step = 1; step <= 3; ++step) {
        const QPoint at(30 + 30 * step, 60 + 15 * step);
        QMouseEvent move(QEvent::MouseMove, QPointF(at), canvas->mapToGlobal(QPointF(at)), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(canvas, &move);
        const QPoint hi(at.x() / 3, at.y() / 3);
        QCOMPARE(canvas->editOutline(), QPolygon({{10, 20}, {hi.x(), 20}, hi, {10, hi.y()}}));
    }
    QTest::mouseRelease(canvas, Qt::LeftButton, {}, QPoint(120, 105));
    // In bitmap pixels, it stays through a zoom and its redraw, and never
    // takes the colour of the outlines.
    w.click("cmdDraw");
    w.zoom(5);
    QCOMPARE(canvas->editOutline(), QPolygon({{10, 20}, {40, 20}, {40, 35}, {10, 35}}));
    QVERIFY(canvas->editOutlineColor() != w.f.window->state().OutlineColor);
    w.f.window->state().OutlineColor = canvas->editOutlineColor();
    w.f.find<QLineEdit>("txtX_0")->setText("11");
    QVERIFY(canvas->editOutlineColor() != w.f.window->state().OutlineColor);
    // Typing moves it too; Cancel takes it away.
    QCOMPARE(canvas->editOutline().first(), QPoint(11, 20));
    w.click("cmdCancel");
    QVERIFY(canvas->editOutline().isEmpty());
}

void tst_BitmapSelection::aClickWithoutADragChangesNothing()
{
    Window w;
    UserActions::ClickRow(w.f.find<ListView>("lsvTextures"), 5);
    w.click("cmdEdit");
    const QStringList all{"txtTileNo", "txtX_0", "txtY_0", "txtX_1", "txtY_1", "txtX_2", "txtY_2", "txtX_3",
                          "txtY_3", "txtHiLo_0", "txtHiLo_2"};
    const Cells before = w.texts(all);
    QTest::mouseClick(w.view()->Picture1(), Qt::LeftButton, {}, QPoint(100, 400));
    // Moved inside the pressed pixel, or along one axis only: still no rectangle.
    w.drag({100, 400}, {100, 480});
    QCOMPARE(w.texts(all), before);
}

void tst_BitmapSelection::freeCornersDraggedOneByOne()
{
    Window w;
    w.zoom(2);
    // Texture 23: a triangle of tile 1, corners (0, 384), (63, 384), (0, 447).
    UserActions::ClickRow(w.f.find<ListView>("lsvTextures"), 23);
    w.click("cmdEdit");
    QVERIFY(w.f.find<QCheckBox>("chkFreeCorners")->isChecked());
    w.view()->VScroll1()->setValue(668);
    // Within four screen pixels of corner 2 at (126, 768): it moves alone.
    w.drag({129, 102}, {150, 140});
    QCOMPARE(w.texts({"txtX_0", "txtY_0", "txtX_1", "txtY_1", "txtX_2", "txtY_2"}),
             (Cells{"0", "384", "75", "404", "0", "447"}));
    // Dragged below its tile, a corner stays on the tile's last pixel.
    w.drag({150, 140}, {150, 600});
    QCOMPARE(w.texts({"txtX_1", "txtY_1"}), (Cells{"75", "511"}));
    w.drag({150, 356}, {150, 140});
    // Away from every corner a press moves nothing and says how.
    w.drag({20, 300}, {60, 340});
    QVERIFY(w.f.window->statusBar()->currentMessage().startsWith(QLatin1String("Free corners: press on a corner")));
    w.click("cmdEdit");
    const Cells row = w.f.window->state().views.lsvTextures.row(23).subItems;
    // Corner 2 now the right and not the top: its bytes those of its row's edges.
    QCOMPARE(row.mid(2, 6), (Cells{"0", "128", "75", "148", "0", "191"}));
    QCOMPARE(row.mid(12, 2), (Cells{"255", "1"}));
}

QTEST_MAIN(tst_BitmapSelection)
#include "tst_BitmapSelection.moc"
