#include "list/rows/ListViewModel.h"
#include "list/ListDocument.h"
#include "list/ObjectTextureRow.h"
#include "list/SpriteTextureRow.h"
#include "ui/bitmap/ucScrollPic.h"
#include "ui/bitmap/ucScrollPicCanvas.h"
#include "ui/common/DrawChecklist.h"
#include "ui/common/EditorState.h"
#include "ui/common/ListView.h"
#include "ui/main/BitmapPicker.h"
#include "ui/main/frmMain.h"
#include "ui/textures/ObjectTexturePage.h"
#include "ui/textures/SpriteTexturePage.h"
#include "uisupport/EditorFixture.h"
#include "uisupport/UserActions.h"

#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QStatusBar>
#include "support/TableRows.h"

#include <QTest>
#include <QUndoStack>

// The bitmap and the lists answer each other: a chosen row is outlined and
// shown, a click on the bitmap chooses what lies under it, Draw brings its
// outlines into view, and the draw checklists tick many rows at once.
class tst_BitmapPicker : public QObject
{
    Q_OBJECT

private slots:
    void aChosenRowIsOutlinedAndShown_data();
    void aChosenRowIsOutlinedAndShown();
    void aClickChoosesWhatLiesUnderIt();
    void aClickBesideTheBitmapSaysNothingOfPixels_data();
    void aClickBesideTheBitmapSaysNothingOfPixels();
    void aClickWhileEnteringChoosesNothing_data();
    void aClickWhileEnteringChoosesNothing();
    void drawShowsItsOutlines_data();
    void drawShowsItsOutlines();
    void drawOfARangeOrSequenceShowsIt_data();
    void drawOfARangeOrSequenceShowsIt();
    void checklistCommandsTickManyRows_data();
    void checklistCommandsTickManyRows();

private:
    struct Window
    {
        EditorFixture f;
        Window();
        ucScrollPic* view() const { return f.find<ucScrollPic>("ucScrollPic1"); }
        ListView* list(const char* name) const { return f.find<ListView>(name); }
        QString status() const { return f.window->statusBar()->currentMessage(); }
        void clickBitmap(QPoint pixel) const;
        bool shows(const QRect& bitmapArea) const;
        // The geometry of a row of the open list, from its record.
        ObjectTextureRow textureRow(int row) const
        {
            return ObjectTextureRow::Of(f.window->document().tables().textures.at(row));
        }
        SpriteTextureRow spriteRow(int row) const
        {
            return SpriteTextureRow::Of(f.window->document().tables().sprites.at(row));
        }
    };
};

tst_BitmapPicker::Window::Window()
{
    f.openList(f.listPath());
    f.window->show();
    QVERIFY(QTest::qWaitForWindowExposed(f.window.get()));
    // At zoom 2 most of the bitmap lies out of view.
    f.find<QScrollBar>("hscrlZoom")->setValue(2);
}

void tst_BitmapPicker::Window::clickBitmap(QPoint pixel) const
{
    const int zoom = view()->ZoomFactor();
    const QRect zoomed(pixel * zoom, QSize(zoom, zoom));
    view()->ShowArea(zoomed.left(), zoomed.top(), zoomed.right(), zoomed.bottom());
    const QPoint at = zoomed.center() - view()->VisibleArea().topLeft();
    UserActions::Drag(view()->Picture1(), at, at);
}

bool tst_BitmapPicker::Window::shows(const QRect& bitmapArea) const
{
    const int zoom = view()->ZoomFactor();
    const QRect zoomed(bitmapArea.topLeft() * zoom, bitmapArea.size() * zoom);
    return view()->VisibleArea().contains(zoomed);
}

void tst_BitmapPicker::aChosenRowIsOutlinedAndShown_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<bool>("sprite");
    QTest::addColumn<bool>("lastRow");
    QTest::newRow("first texture") << 1 << false << false;
    QTest::newRow("last texture, far down") << 1 << false << true;
    QTest::newRow("last sprite, far down") << 3 << true << true;
}

void tst_BitmapPicker::aChosenRowIsOutlinedAndShown()
{
    QFETCH(int, tab);
    QFETCH(bool, sprite);
    QFETCH(bool, lastRow);
    Window w;
    w.f.window->ShowPage(tab);
    ListView* list = w.list(sprite ? "lsvSprites" : "lsvTextures");
    const ListRows& rows = *list->listModel();
    const int row = lastRow ? rows.count() - 1 : 0;
    UserActions::ClickRow(list, row);

    QRect area;
    QPolygon outline;
    if (sprite) {
        const SpriteTextureRow s = w.spriteRow(row);
        area = QRect(s.FirstCorner(), s.SecondCorner());
        outline = {s.FirstCorner(), s.SecondCorner()};
    } else {
        const ObjectTextureRow t = w.textureRow(row);
        area = t.Bounds();
        outline = t.IsTriangle() ? QPolygon{t.BitmapCorner(0), t.BitmapCorner(1), t.BitmapCorner(2)}
                                 : QPolygon{t.BitmapCorner(0), t.BitmapCorner(2)};
    }
    QCOMPARE(w.view()->Highlight(), outline);
    QCOMPARE(w.view()->Picture1()->highlightColor(), BitmapPicker::SelectionColor);
    QVERIFY2(w.shows(area), qPrintable(QStringLiteral("row %1 not in view").arg(row)));
    // The outline follows the zoom and outlives a redraw; Cancel removes it.
    w.f.find<QScrollBar>("hscrlZoom")->setValue(3);
    QCOMPARE(w.view()->Highlight(), outline);
    list->listModel()->setSelectedRow(-1);
    QVERIFY(w.view()->Highlight().isEmpty());
    // A deleted row takes its outline with it; its undo does not choose it.
    UserActions::ClickRow(list, row);
    ListDocument& document = w.f.window->document();
    const QString key = rows.key(row);
    QVERIFY(sprite ? document.DeleteSprite(TableRows::numberOf(key)) : document.DeleteTexture(TableRows::numberOf(key)));
    QVERIFY(w.view()->Highlight().isEmpty());
    document.undoStack()->undo();
    QVERIFY(w.view()->Highlight().isEmpty());
}

void tst_BitmapPicker::aClickChoosesWhatLiesUnderIt()
{
    Window w;
    const ListRows& textures = w.f.window->state().views.lsvTextures;
    const int last = textures.count() - 1;
    const QPoint pixel = w.textureRow(last).Bounds().center();
    w.clickBitmap(pixel);
    const int chosen = textures.selectedRow();
    QVERIFY(chosen >= 0);
    QVERIFY(w.textureRow(chosen).Bounds().contains(pixel));
    // The page shows the row as after a click on it.
    QCOMPARE(w.f.find<QLineEdit>("txtTextureNo")->text(), textures.text(chosen));
    QVERIFY2(w.status().contains(QStringLiteral("texture")) && w.status().contains(textures.text(chosen)),
             qPrintable(w.status()));

    // Every texture under the pixel is reached by clicking again.
    QSet<int> reached{chosen};
    const int listed = int(w.status().section(QStringLiteral("texture"), 1).section(QLatin1Char(' '), 1)
                               .section(QLatin1Char(';'), 0, 0).split(QStringLiteral(", ")).size());
    for (int i = 1; i < listed; ++i) {
        w.clickBitmap(pixel);
        reached.insert(textures.selectedRow());
    }
    QCOMPARE(reached.size(), listed);

    // A pixel that nothing covers: said so, and the choice stays.
    const int before = textures.selectedRow();
    w.clickBitmap(QPoint(255, w.view()->PictureHeight() - 1));
    if (w.status().contains(QStringLiteral("no texture or sprite")))
        QCOMPARE(textures.selectedRow(), before);
}

void tst_BitmapPicker::aClickBesideTheBitmapSaysNothingOfPixels_data()
{
    QTest::addColumn<int>("x"); // a column of the view at zoom 1; the bitmap has 256
    QTest::newRow("just past the last column") << 256;
    QTest::newRow("far to the right") << 380;
}

void tst_BitmapPicker::aClickBesideTheBitmapSaysNothingOfPixels()
{
    QFETCH(int, x);
    Window w;
    w.f.find<QScrollBar>("hscrlZoom")->setValue(1);
    const ListRows& textures = w.f.window->state().views.lsvTextures;
    w.clickBitmap(w.textureRow(0).Bounds().center());
    const int chosen = textures.selectedRow();
    QVERIFY(w.status().startsWith(QStringLiteral("Pixel")));
    QCOMPARE(w.view()->PictureWidth(), 256);
    QVERIFY(w.view()->Picture1()->width() > x);
    UserActions::Drag(w.view()->Picture1(), QPoint(x, 5), QPoint(x, 5));
    QVERIFY2(!w.status().contains(QStringLiteral("Pixel")), qPrintable(w.status()));
    QCOMPARE(textures.selectedRow(), chosen);
}

void tst_BitmapPicker::aClickWhileEnteringChoosesNothing_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("button");
    QTest::newRow("adding a texture") << 1 << "cmdAdd";
    QTest::newRow("adding a sprite") << 3 << "cmdSpriteAdd";
}

void tst_BitmapPicker::aClickWhileEnteringChoosesNothing()
{
    QFETCH(int, tab);
    QFETCH(QString, button);
    Window w;
    w.f.window->ShowPage(tab);
    w.f.window->findChild<QPushButton*>(button)->click();
    const ListRows& textures = w.f.window->state().views.lsvTextures;
    const QString status = w.status();
    w.clickBitmap(w.textureRow(0).Bounds().center());
    QCOMPARE(textures.selectedRow(), -1);
    QCOMPARE(w.f.window->state().views.lsvSprites.selectedRow(), -1);
    QCOMPARE(w.status(), status);
    QVERIFY(w.f.window->picker().IsEntering());
}

void tst_BitmapPicker::drawShowsItsOutlines_data()
{
    QTest::addColumn<QString>("checklist");
    QTest::addColumn<QString>("draw");
    QTest::addColumn<int>("tab");
    QTest::addColumn<bool>("withFirst");
    QTest::addColumn<bool>("scrolls");
    QTest::newRow("textures, all out of view") << "lsvObjects" << "cmdDraw" << 1 << false << true;
    QTest::newRow("textures, one in view") << "lsvObjects" << "cmdDraw" << 1 << true << false;
    QTest::newRow("sprites, all out of view") << "lsvSpriteIndex" << "cmdDrawSprite" << 3 << false << true;
}

void tst_BitmapPicker::drawShowsItsOutlines()
{
    QFETCH(QString, checklist);
    QFETCH(QString, draw);
    QFETCH(int, tab);
    QFETCH(bool, withFirst);
    QFETCH(bool, scrolls);
    Window w;
    w.f.window->ShowPage(tab);
    auto* list = w.f.window->findChild<ListView*>(checklist);
    // The row lowest on the bitmap; checklist row Tk draws the row keyed Tk.
    const EditorState& s = w.f.window->state();
    const bool sprites = tab == 3;
    const ListRows& rows = sprites ? static_cast<const ListRows&>(s.views.lsvSprites) : s.views.lsvTextures;
    int lowest = 0;
    const auto top = [&](int row) {
        return sprites ? w.spriteRow(row).FirstCorner().y()
                       : w.textureRow(row).Bounds().top();
    };
    for (int row = 1; row < rows.count(); ++row) {
        if (top(row) > top(lowest))
            lowest = row;
    }
    QVERIFY(top(lowest) * w.view()->ZoomFactor() > w.view()->VisibleArea().height());
    QWidget* page = sprites ? static_cast<QWidget*>(&w.f.window->spritePage()) : &w.f.window->objectPage();
    page->findChild<DrawChecklist*>()->UntickAll();
    if (withFirst)
        UserActions::ClickCheckBox(list, 3);
    UserActions::ClickCheckBox(list, list->listModel()->findKey(rows.key(lowest)));
    w.view()->VScroll1()->setValue(0);
    QTest::mouseClick(w.f.window->findChild<QPushButton*>(draw), Qt::LeftButton);
    QCOMPARE(w.view()->VScroll1()->value() > 0, scrolls);
    QVERIFY(w.f.window->state().IsAnyOutlineInView());
}

void tst_BitmapPicker::drawOfARangeOrSequenceShowsIt_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("list");
    QTest::addColumn<QString>("draw");
    // The demo's second range is in tile 1, its sequences' sprites in tile 2.
    QTest::newRow("range") << 2 << "lsvAnims" << "cmdDrawAnim";
    QTest::newRow("sequence") << 4 << "lsvSequences" << "cmdDrawSeq";
}

void tst_BitmapPicker::drawOfARangeOrSequenceShowsIt()
{
    QFETCH(int, tab);
    QFETCH(QString, list);
    QFETCH(QString, draw);
    Window w;
    // Only the frames of the chosen row are ticked for drawing.
    w.f.window->objectPage().findChild<DrawChecklist*>()->UntickAll();
    w.f.window->spritePage().findChild<DrawChecklist*>()->UntickAll();
    w.f.window->ShowPage(tab);
    UserActions::ClickRow(w.f.window->findChild<ListView*>(list), 1);
    w.view()->VScroll1()->setValue(0);
    QTest::mouseClick(w.f.window->findChild<QPushButton*>(draw), Qt::LeftButton);
    QVERIFY(w.f.window->state().IsAnyOutlineInView());
    QVERIFY(w.view()->VScroll1()->value() > 0);
}

void tst_BitmapPicker::checklistCommandsTickManyRows_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QList<int>>("selected");
    QTest::addColumn<QStringList>("ticked");
    QTest::newRow("tick all") << "TickAll" << QList<int>{} << QStringList{"T1", "T2", "T3", "T4"};
    QTest::newRow("untick all") << "UntickAll" << QList<int>{} << QStringList{};
    QTest::newRow("tick selected only") << "TickSelectedOnly" << QList<int>{3, 5} << QStringList{"T2", "T4"};
    QTest::newRow("selected markers tick nothing") << "TickSelectedOnly" << QList<int>{0, 1} << QStringList{};
}

void tst_BitmapPicker::checklistCommandsTickManyRows()
{
    QFETCH(QString, command);
    QFETCH(QList<int>, selected);
    QFETCH(QStringList, ticked);
    EditorFixture f;
    EditorState& s = f.window->state();
    // Four textures: None, All, T1 to T4; T3 and the "All" marker ticked first.
    for (int i = 0; i < 4; ++i)
        TableRows::addTexture(f.window->document().tables(), i);
    s.FillTextureIndexLists();
    s.lsvObjects.setCheckState(s.lsvObjects.findKey("T3"), Qt::Checked);
    s.lsvObjects.setCheckState(s.lsvObjects.findKey("All"), Qt::Checked);

    auto* view = f.find<ListView>("lsvObjects");
    QCOMPARE(view->contextMenuPolicy(), Qt::CustomContextMenu);
    for (int row : selected)
        view->selectionModel()->select(view->shownIndex(row),
                                       QItemSelectionModel::Select | QItemSelectionModel::Rows);
    auto* checklist = f.window->objectPage().findChild<DrawChecklist*>();
    QVERIFY(QMetaObject::invokeMethod(checklist, qPrintable(command)));
    QStringList keys;
    for (int row = 0; row < s.lsvObjects.count(); ++row) {
        if (s.lsvObjects.checkState(row) == Qt::Checked)
            keys << s.lsvObjects.key(row);
    }
    // The markers are never left ticked beside numbered rows chosen here.
    QCOMPARE(keys, ticked);
}

QTEST_MAIN(tst_BitmapPicker)
#include "tst_BitmapPicker.moc"
