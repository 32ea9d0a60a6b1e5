#include "ui/main/AssignmentPage.h"
#include "uisupport/EditorFixture.h"
#include "ui/common/EditorState.h"
#include "ui/common/ListView.h"
#include "ui/main/frmMain.h"
#include "ui/bitmap/ucScrollPic.h"
#include "ui/bitmap/ucScrollPicCanvas.h"

#include <QAction>
#include <QDialog>
#include <QFile>
#include <QImage>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QStatusBar>
#include <QTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

// The "Assignation" page's usage lists and their drawing, and the level's own
// tiles as the bitmap of a new list.
class tst_AssignmentPage : public QObject
{
    Q_OBJECT

private slots:
    void findUsageFillsTheListsOnlyWhenAsked();
    void findUsageWithoutAUsableLevelSaysWhy_data();
    void findUsageWithoutAUsableLevelSaysWhy();
    void drawOutlinesTheChosenNumbers();
    void drawBringsTheFirstOutlineIntoView_data();
    void drawBringsTheFirstOutlineIntoView();
    void newListTakesTheLevelsTilesAsItsBitmap();
    void tilesOfABadLevelGetOneMessage();

private:
    static void choose(ListView* view, const QList<int>& rows);
    static void click(EditorFixture& f, const char* button) { f.find<QPushButton>(button)->click(); }
};

void tst_AssignmentPage::choose(ListView* view, const QList<int>& rows)
{
    view->clearSelection();
    for (int row : rows)
        view->selectionModel()->select(view->shownIndex(row),
                                       QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

void tst_AssignmentPage::findUsageFillsTheListsOnlyWhenAsked()
{
    EditorFixture f;
    f.openList(f.listPath());
    AssignmentPage& page = f.window->assignmentPage();
    for (ListViewModel* list : {&page.lsvPolygons(), &page.lsvMesh(), &page.lsvSprite(), &page.lsvNotAssign()})
        QCOMPARE(list->count(), 0);

    click(f, "cmdAssign");
    // The demo's rooms use most wall squares, a shared crate mesh and a roof
    // mesh three more; its sequences use every sprite. Four textures are left.
    QCOMPARE(page.lsvPolygons().count(), 19);
    QCOMPARE(page.lsvMesh().count(), 3);
    QCOMPARE(page.lsvMesh().text(1), QStringLiteral("15"));
    QCOMPARE(page.lsvSprite().count(), 29);
    QCOMPARE(page.lsvSprite().text(28), QStringLiteral("28"));
    QCOMPARE(page.lsvNotAssign().count(), 4);
    QCOMPARE(page.lsvNotAssign().text(3), QStringLiteral("28"));
    QCOMPARE(page.lsvNotAssign().columns(), QStringList("Texture #"));
    QVERIFY(f.window->statusBar()->currentMessage().contains("4 not assigned"));

    // Opening a list again leaves them empty until asked.
    f.openList(f.listPath());
    QCOMPARE(page.lsvSprite().count(), 0);
    QCOMPARE(page.lsvNotAssign().count(), 0);
}

void tst_AssignmentPage::findUsageWithoutAUsableLevelSaysWhy_data()
{
    QTest::addColumn<QString>("level");
    QTest::addColumn<QString>("said");
    QTest::addColumn<bool>("filled");
    QTest::newRow("no level") << "" << "belongs to no level" << false;
    QTest::newRow("level gone") << "gone.tr2" << "No usage found" << false;
#ifdef Q_OS_UNIX
    QTest::newRow("level is a FIFO") << "pipe.tr2" << "is a FIFO, not a regular file" << false;
#endif
    // What the bytes held is shown, and the status bar says it is partial.
    QTest::newRow("level cut short") << "cut.tr2" << "(partial: the level is cut short: it ends at byte" << true;
}

void tst_AssignmentPage::findUsageWithoutAUsableLevelSaysWhy()
{
    QFETCH(QString, level);
    QFETCH(QString, said);
    QFETCH(bool, filled);
    EditorFixture f;
    if (level.isEmpty()) {
        f.newList(f.dir.filePath("alone.trt"), {}, f.bitmapPath());
    } else {
        f.openList(f.listPath());
        f.window->state().document().setLevelFileName(f.dir.filePath(level));
    }
    if (level == QLatin1String("cut.tr2"))
        f.dir.write(level, ScratchDir::read(f.levelPath()).chopped(100));
#ifdef Q_OS_UNIX
    if (level == QLatin1String("pipe.tr2"))
        QCOMPARE(::mkfifo(QFile::encodeName(f.dir.filePath(level)).constData(), 0644), 0);
#endif
    click(f, "cmdAssign");
    QVERIFY2(f.window->statusBar()->currentMessage().contains(said),
             qPrintable(f.window->statusBar()->currentMessage()));
    QCOMPARE(f.window->assignmentPage().lsvPolygons().count() > 0, filled);
    QVERIFY(f.prompts.messages.isEmpty());
}

void tst_AssignmentPage::drawOutlinesTheChosenNumbers()
{
    EditorFixture f;
    f.openList(f.listPath());
    click(f, "cmdAssign");
    EditorState& s = f.window->state();

    choose(f.find<ListView>("lsvNotAssign"), {0, 3}); // textures 4 and 28
    click(f, "cmdAssignDraw");
    QCOMPARE(s.lsvDrawList.count(), 2);
    QCOMPARE(s.lsvDrawList.text(0), QStringLiteral("04"));
    QCOMPARE(s.lsvDrawList.text(1), QStringLiteral("28"));
    QCOMPARE(s.lsvSpriteDrawLisr.count(), 0);
    QVERIFY(s.picture()->ShapeCount() >= 4);
    QCOMPARE(f.window->statusBar()->currentMessage(), QStringLiteral("Outlined 2 textures and 0 sprites."));

    // Sprites are outlined from the sprite list; the textures' outlines go.
    f.find<ListView>("lsvNotAssign")->clearSelection();
    choose(f.find<ListView>("lsvSprite"), {3});
    click(f, "cmdAssignDraw");
    QCOMPARE(s.lsvDrawList.count(), 0);
    QCOMPARE(s.lsvSpriteDrawLisr.count(), 1);
    QCOMPARE(s.lsvSpriteDrawLisr.subItem(0, 1), QStringLiteral("4"));

    // Without a bitmap nothing is outlined, and the status bar says why.
    QVERIFY(QFile::remove(f.bitmapPath()));
    f.openList(f.listPath());
    click(f, "cmdAssign");
    choose(f.find<ListView>("lsvNotAssign"), {0});
    click(f, "cmdAssignDraw");
    QCOMPARE(s.lsvDrawList.count(), 0);
    QVERIFY(f.window->statusBar()->currentMessage().startsWith("No bitmap is loaded"));
}

void tst_AssignmentPage::drawBringsTheFirstOutlineIntoView_data()
{
    QTest::addColumn<int>("zoom");
    QTest::addColumn<QList<int>>("unused"); // rows of lsvNotAssign: textures 4, 11, 14, 28
    QTest::addColumn<bool>("scrolls");
    QTest::newRow("in view already") << 1 << QList<int>{3} << false;
    QTest::newRow("a triangle below the view") << 3 << QList<int>{3} << true;
    QTest::newRow("a rectangle below the view") << 3 << QList<int>{2} << true;
    QTest::newRow("the first of several") << 3 << QList<int>{0, 3} << false;
    QTest::newRow("none chosen") << 3 << QList<int>{} << false;
}

// Textures 4 and 14 are rectangles of the demo's first tile, 28 a triangle
// of its second.
void tst_AssignmentPage::drawBringsTheFirstOutlineIntoView()
{
    QFETCH(int, zoom);
    QFETCH(QList<int>, unused);
    QFETCH(bool, scrolls);
    EditorFixture f;
    f.openList(f.listPath());
    f.window->show();
    QVERIFY(QTest::qWaitForWindowExposed(f.window.get()));
    f.find<QScrollBar>("hscrlZoom")->setValue(zoom);
    click(f, "cmdAssign");
    choose(f.find<ListView>("lsvNotAssign"), unused);
    click(f, "cmdAssignDraw");

    ucScrollPic* view = f.window->state().picture();
    QCOMPARE(view->VScroll1()->value() > 0, scrolls);
    const ListRows& drawn = f.window->state().lsvDrawList;
    if (drawn.count() > 0) {
        const QRect outline = QRect(QPoint(drawn.subItem(0, 2).toInt(), drawn.subItem(0, 3).toInt()) * zoom,
                                    QPoint(drawn.subItem(0, 4).toInt(), drawn.subItem(0, 5).toInt()) * zoom);
        const QRect seen(view->HScroll1()->value(), view->VScroll1()->value(), view->Picture1()->width(),
                         view->Picture1()->height());
        QVERIFY2(seen.contains(outline), qPrintable(QStringLiteral("outline at y %1, view from %2")
                                                        .arg(outline.top())
                                                        .arg(seen.top())));
    }
}

void tst_AssignmentPage::newListTakesTheLevelsTilesAsItsBitmap()
{
    EditorFixture f;
    const QString list = f.dir.filePath("fromlevel.trt");
    const QString bitmap = f.dir.filePath("tiles/level.bmp");
    QDir().mkpath(f.dir.filePath("tiles"));
    f.prompts.formScripts << [&](QDialog& form) {
        auto* fromLevel = form.findChild<QPushButton*>(QStringLiteral("cmdBitmapFromLevel"));
        QCOMPARE(fromLevel->text(), QStringLiteral("From Level..."));
        QVERIFY(!fromLevel->isEnabled());
        f.prompts.fileNames << list << f.levelPath() << bitmap;
        EditorFixture::click(form, "cmdList");
        EditorFixture::click(form, "cmdLevelFile");
        QVERIFY(fromLevel->isEnabled());
        fromLevel->click();
        QCOMPARE(form.findChild<QLineEdit*>(QStringLiteral("txtBitmapFile"))->text(), bitmap);
        EditorFixture::click(form, "cmdOK");
    };
    f.find<QAction>("mnuFileNewList")->trigger();

    const IPromptService::FileRequest& request = f.prompts.fileRequests.last();
    QCOMPARE(request.title, QStringLiteral("Save Level Textures as Bitmap"));
    QVERIFY(request.filter.contains(QStringLiteral("*.png")));
    QCOMPARE(request.initDir, f.dir.path());
    QCOMPARE(request.fileName, QStringLiteral("demo.bmp"));
    QVERIFY(request.save);

    // The level's 16-bit tiles come back as the demo's pixels, each channel
    // within what five bits keep.
    const QImage tiles(bitmap), drawn(f.bitmapPath());
    QCOMPARE(tiles.size(), drawn.size());
    for (const QPoint p : {QPoint(10, 10), QPoint(200, 300), QPoint(77, 700), QPoint(255, 1023)}) {
        const QColor a = tiles.pixelColor(p), b = drawn.pixelColor(p);
        QVERIFY(qAbs(a.red() - b.red()) <= 8 && qAbs(a.green() - b.green()) <= 8 && qAbs(a.blue() - b.blue()) <= 8);
    }
    QVERIFY(f.window->state().document().IsListOpen());
    QCOMPARE(f.find<QLabel>("lblNbTiles")->text(), QStringLiteral("4"));
    QCOMPARE(f.window->state().views.lsvTextures.count(), 30);
}

void tst_AssignmentPage::tilesOfABadLevelGetOneMessage()
{
    EditorFixture f;
    const QByteArray level = ScratchDir::read(f.levelPath());
    const QString cut = f.dir.write("cut.tr2", level.left(5000));
    const QString bitmap = f.dir.filePath("cut.bmp");
    f.prompts.formScripts << [&](QDialog& form) {
        f.prompts.fileNames << cut << bitmap;
        EditorFixture::click(form, "cmdLevelFile");
        EditorFixture::click(form, "cmdBitmapFromLevel");
        QVERIFY(form.findChild<QLineEdit*>(QStringLiteral("txtBitmapFile"))->text().isEmpty());
        EditorFixture::click(form, "cmdCancel");
    };
    f.find<QAction>("mnuFileNewList")->trigger();
    QCOMPARE(f.prompts.messages.size(), 1);
    QVERIFY(f.prompts.messages[0].text.contains("cut.tr2"));
    QVERIFY(!QFile::exists(bitmap));
    QCOMPARE(ScratchDir::read(cut).size(), 5000);
}

QTEST_MAIN(tst_AssignmentPage)
#include "tst_AssignmentPage.moc"
