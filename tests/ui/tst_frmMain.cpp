#include "ui/animation/AnimationPage.h"
#include "support/ScratchDir.h"
#include "uisupport/EditorFixture.h"
#include "ui/common/EditorState.h"
#include "ui/common/ListView.h"
#include "ui/textures/ObjectTexturePage.h"
#include "ui/main/frmMain.h"
#include "ui/bitmap/ucScrollPic.h"

#include <QAction>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QTabBar>
#include <QStatusBar>
#include <QTest>
#include <QUndoStack>

// The main window as a user meets it: its controls at start, opening a list,
// the pages and the index lists.
class tst_frmMain : public QObject
{
    Q_OBJECT

private slots:
    void startsWithNoList();
    void menusCarryTheirCaptions_data();
    void menusCarryTheirCaptions();
    void separatorsShowNoCaption();
    void openFillsViewsIndexListsAndCounters();
    void tabsShowOnePageAtATime();
    void headerClicksSortOnlyWhatIsShown_data();
    void headerClicksSortOnlyWhatIsShown();
    void sortingAnEmptyListSaysSo();
};

void tst_frmMain::startsWithNoList()
{
    EditorFixture f;
    QCOMPARE(f.window->size(), QSize(1030, 702));
    for (const char* name : {"mnuFileCloseList", "mnuFileSaveList", "mnuFileSaveAsList", "mnuBitmapsShowTiles"})
        QVERIFY2(!f.find<QAction>(name)->isEnabled(), name);
    for (const char* name : {"mnuFileNewList", "mnuFileOpen", "mnuListInser", "mnuFileExit"})
        QVERIFY2(f.find<QAction>(name)->isEnabled(), name);
    QVERIFY(!f.find<QAction>("mnuBitmapsShowTiles")->isChecked());
    QVERIFY(!f.find<QScrollBar>("hscrlZoom")->isEnabled());
    QCOMPARE(f.find<QLabel>("lblZoomFactor")->text(), QStringLiteral("Zoom Factor: 1"));
    for (const char* name : {"lblHeight", "lblWidth", "lblNbTiles", "lblTileShow", "lblMousePosX", "lblMousePosY"})
        QCOMPARE(f.find<QLabel>(name)->text(), QStringLiteral("0"));
    for (const char* name : {"lblListFile", "lblTextureFile", "lblLevelFile"})
        QVERIFY(f.find<QLabel>(name)->text().isEmpty());
    for (const char* name : {"fraList_0", "fraList_1", "fraList_2", "fraList_3", "fraList_4"})
        QVERIFY2(f.find<QWidget>(name), name);
    QVERIFY(!f.find<QWidget>("fraList_0")->isHidden());
    QVERIFY(f.find<QWidget>("fraList_1")->isHidden());
}

void tst_frmMain::menusCarryTheirCaptions_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("caption");
    QTest::newRow("new") << "mnuFileNewList" << "&New List... ";
    QTest::newRow("open") << "mnuFileOpen" << "&Open List...";
    QTest::newRow("close") << "mnuFileCloseList" << "&Close List";
    QTest::newRow("save") << "mnuFileSaveList" << "&Save List";
    QTest::newRow("save as") << "mnuFileSaveAsList" << "Save &As...";
    QTest::newRow("exit") << "mnuFileExit" << "E&xit";
    QTest::newRow("tiles") << "mnuBitmapsShowTiles" << "Show &Tiles";
    QTest::newRow("insert") << "mnuListInser" << "&Insert List Into Level...";
    QTest::newRow("help") << "mnuHelpHelp" << "H&elp";
    QTest::newRow("about") << "mnuHelpAbout" << "A&bout";
    QTest::newRow("separator 1") << "mnuFileSep1" << "-";
    QTest::newRow("separator 2") << "mnuFileSep2" << "-";
}

void tst_frmMain::menusCarryTheirCaptions()
{
    QFETCH(QString, name);
    QFETCH(QString, caption);
    EditorFixture f;
    QAction* action = f.window->findChild<QAction*>(name);
    QVERIFY(action);
    QCOMPARE(action->text(), caption);
}

// A separator's caption is "-", yet the menu shows a bare line: nothing as
// dark as text on the separator's row.
void tst_frmMain::separatorsShowNoCaption()
{
    EditorFixture f;
    auto* menu = f.find<QMenu>("mnuFile");
    const QImage image = menu->grab().toImage();
    for (const char* name : {"mnuFileSep1", "mnuFileSep2"}) {
        const QRect row = menu->actionGeometry(f.window->findChild<QAction*>(name)) & image.rect();
        QVERIFY2(!row.isEmpty(), name);
        for (int y = row.top(); y <= row.bottom(); ++y) {
            for (int x = row.left(); x <= row.right(); ++x)
                QVERIFY2(qGray(image.pixel(x, y)) > 128, name);
        }
    }
}

void tst_frmMain::openFillsViewsIndexListsAndCounters()
{
    EditorFixture f;
    f.openList(f.listPath());
    EditorState& s = f.window->state();
    QCOMPARE(f.prompts.fileRequests.size(), 1);
    QCOMPARE(f.prompts.fileRequests[0].title, QStringLiteral("Open TombRaider List File"));
    QCOMPARE(f.prompts.fileRequests[0].filter, QStringLiteral("TR Texture List (*.trt)|*.trt"));
    QVERIFY(f.prompts.messages.isEmpty());

    const int textures = s.views.lsvTextures.count();
    QVERIFY(textures > 0);
    QCOMPARE(s.lsvObjects.count(), textures + 2);
    QCOMPARE(s.lsvObjects.key(0), QStringLiteral("None"));
    QCOMPARE(s.lsvObjects.key(2), QStringLiteral("T1"));
    QCOMPARE(s.lsvAvailTextures.count(), textures);
    QCOMPARE(s.lsvAvailTextures.key(0), QStringLiteral("A1"));
    QCOMPARE(s.lsvSpriteIndex.count(), s.views.lsvSprites.count() + 2);
    QCOMPARE(f.find<QLineEdit>("txtTextureQty")->text(), QString::number(textures));
    QCOMPARE(f.find<QLineEdit>("txtTileQty")->text(), QStringLiteral("4"));
    QCOMPARE(f.find<QLabel>("lblNbTiles")->text(), QStringLiteral("4"));
    QCOMPARE(f.find<QLabel>("lblHeight")->text(), QStringLiteral("1024"));
    QCOMPARE(f.find<QLabel>("lblAnimTotal")->text(), QString::number(s.views.lsvAnims.count()));
    QCOMPARE(f.find<QLineEdit>("txtNum")->text(), QString::number(s.views.lsvSprites.count()));
    QCOMPARE(f.find<QLabel>("lblAvailSTextures")->text(), QString::number(s.views.lsvSprites.count()));
    QVERIFY(s.document().IsListOpen() && s.document().IsBitmapLoaded() && !s.document().isModified());
    QCOMPARE(s.document().ListVersion(), 0x2Du);
    QVERIFY(f.find<QAction>("mnuFileCloseList")->isEnabled());
    QVERIFY(!f.find<QAction>("mnuFileSaveList")->isEnabled());
    QVERIFY(f.find<QScrollBar>("hscrlZoom")->isEnabled());
}

void tst_frmMain::tabsShowOnePageAtATime()
{
    EditorFixture f;
    QTabBar* tabs = f.window->tbsStrip();
    QCOMPARE(tabs->count(), 5);
    const QStringList captions = {"Object Textures", "...and Animations", "Sprites Textures", "... and Sequences",
                                  "Assignation"};
    const QStringList frames = {"Object Textures", "Object Texture Animations", "Sprite Textures",
                                "Sprite Texture Sequence", "Texture Assignment"};
    for (int tab = 0; tab < 5; ++tab) {
        QCOMPARE(tabs->tabText(tab), captions[tab]);
        tabs->setCurrentIndex(tab);
        for (int frame = 0; frame < 5; ++frame) {
            auto* page = f.find<QGroupBox>(qPrintable(QStringLiteral("fraList_%1").arg(frame)));
            QCOMPARE(page->isHidden(), frame != tab);
            QCOMPARE(page->title(), frames[frame]);
        }
    }
}

void tst_frmMain::headerClicksSortOnlyWhatIsShown_data()
{
    // The page, its list and the column clicked, over the demo list.
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("list");
    QTest::addColumn<int>("column");
    QTest::newRow("textures by X1") << 1 << "lsvTextures" << 3;
    QTest::newRow("textures by Tile#") << 1 << "lsvTextures" << 1;
    QTest::newRow("sprites by Width") << 3 << "lsvSprites" << 4;
    QTest::newRow("sequences by First") << 4 << "lsvSequences" << 2;
}

void tst_frmMain::headerClicksSortOnlyWhatIsShown()
{
    QFETCH(int, page);
    QFETCH(QString, list);
    QFETCH(int, column);
    EditorFixture f;
    const QByteArray saved = ScratchDir::read(f.listPath());
    f.openList(f.listPath());
    f.window->show();
    QVERIFY(QTest::qWaitForWindowExposed(f.window.get()));
    f.window->ShowPage(page);
    const QString title = f.window->windowTitle();
    ListView* view = f.find<ListView>(qPrintable(list));
    const ListRows& model = *view->listModel();
    QStringList order;
    for (int row = 0; row < model.count(); ++row)
        order << model.key(row);
    QHeaderView* header = view->header();
    const auto columns = [header] {
        QList<int> widths;
        for (int section = 0; section < header->count(); ++section)
            widths << (header->isSectionHidden(section) ? -1 : header->sectionSize(section));
        return widths;
    };
    const QList<int> widths = columns();

    for (Qt::SortOrder sorted : {Qt::AscendingOrder, Qt::DescendingOrder}) {
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                          QPoint(header->sectionViewportPosition(column) + 4, header->height() / 2));
        // Shown by value, the list itself as it was.
        for (int shown = 1; shown < model.count(); ++shown) {
            const qint64 a = view->model()->index(shown - 1, column).data().toLongLong();
            const qint64 b = view->model()->index(shown, column).data().toLongLong();
            QVERIFY2(sorted == Qt::AscendingOrder ? a <= b : a >= b, qPrintable(QStringLiteral("%1 %2").arg(a).arg(b)));
        }
        QStringList after;
        for (int row = 0; row < model.count(); ++row)
            after << model.key(row);
        QCOMPARE(after, order);
        // The columns keep their widths and stay shown or hidden.
        QCOMPARE(columns(), widths);
    }
    // A click on the first row shown chooses that row of the list.
    const QModelIndex top = view->model()->index(0, 0);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(top).center());
    QCOMPARE(model.selectedRow(), model.findKey(top.data(ListViewModel::KeyRole).toString()));
    QVERIFY(model.selectedRow() > 0);

    QVERIFY(!f.window->document().isModified());
    QCOMPARE(f.window->document().undoStack()->count(), 0);
    QCOMPARE(f.window->windowTitle(), title);
    f.find<QAction>("mnuFileSaveList")->trigger();
    QCOMPARE(ScratchDir::read(f.listPath()), saved);
}

void tst_frmMain::sortingAnEmptyListSaysSo()
{
    EditorFixture f;
    f.openList(f.listPath());
    f.window->show();
    ListView* view = f.find<ListView>("lsvTextures");
    f.window->document().tables().textures.clear();
    emit view->header()->sectionClicked(3);
    QCOMPARE(f.window->statusBar()->currentMessage(), QStringLiteral("Textures: there are no rows to sort."));
    QCOMPARE(f.window->document().undoStack()->count(), 0);
}

QTEST_MAIN(tst_frmMain)
#include "tst_frmMain.moc"
