#include "list/C_ListInfo.h"
#include "uisupport/EditorFixture.h"
#include "ui/common/EditorState.h"
#include "support/ListFixture.h"
#include "list/ListViewSet.h"
#include "ui/main/frmMain.h"
#include "ui/bitmap/ucScrollPic.h"

#include <QAction>
#include <QDialog>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QTest>

#include <cerrno>

#ifdef Q_OS_UNIX
#include <sys/resource.h>
#include <sys/stat.h>
#endif

// New, Open, Save, Save As, Close, Exit and Insert, as a user runs them from
// the menus, with every dialog answered through the scripted prompts.
class tst_DocumentLife : public QObject
{
    Q_OBJECT

private slots:
    void newListFromLevelWritesTheLevelsTables();
    void newStandAloneListTakesTheChosenVersion_data();
    void newStandAloneListTakesTheChosenVersion();
    void newListDialogRefusesMissingFiles();
    void editSaveAndReopen();
    void saveAsMovesTheListToTheNewName();
    void closeEmptiesEverythingAndSaveWritesNothing();
    void openingOverAChangedListAsksFirst_data();
    void openingOverAChangedListAsksFirst();
    void exitAsksOnlyWhenChanged_data();
    void exitAsksOnlyWhenChanged();
    void insertWritesTemplevelWithProgress();
    void insertOfAnotherVersionWritesNothing();
    void badFilesGetOneMessageAndChangeNothing_data();
    void badFilesGetOneMessageAndChangeNothing();
    void listWithMissingBitmapAndLevelOpensWithWhatItHas();
    void listSavedWithoutRangesSaysWhyItsSpritesAreNotRead();
#ifdef Q_OS_UNIX
    void saveThatCannotWriteSaysWhyAndKeepsTheFile_data();
    void saveThatCannotWriteSaysWhyAndKeepsTheFile();
#endif
    void helpAndAbout();

private:
    static void trigger(EditorFixture& f, const char* action) { f.find<QAction>(action)->trigger(); }
};

void tst_DocumentLife::newListFromLevelWritesTheLevelsTables()
{
    EditorFixture f;
    const QString list = f.dir.filePath("new.trt");
    f.newList(list, f.levelPath(), f.bitmapPath());

    // The demo list was extracted from the same level with the same names.
    QCOMPARE(ScratchDir::read(list), ScratchDir::read(f.listPath()));
    EditorState& s = f.window->state();
    QCOMPARE(s.views.lsvTextures.count(), 30);
    QCOMPARE(s.lsvObjects.count(), 32);
    QCOMPARE(f.find<QLabel>("lblLevelFile")->text(), QDir::toNativeSeparators(f.levelPath()));
    QCOMPARE(f.find<QLabel>("lblListFile")->text(), QDir::toNativeSeparators(list));
    QVERIFY(s.IsListOpen && !s.IsDirty);
    QVERIFY(!f.find<QAction>("mnuFileSaveList")->isEnabled());
    QVERIFY(f.find<QAction>("mnuFileSaveAsList")->isEnabled());
    QCOMPARE(f.prompts.fileRequests[0].title, QStringLiteral("Create New TombRaider List File"));
    QCOMPARE(f.prompts.fileRequests[1].title, QStringLiteral("Open TombRaider Level"));
    QCOMPARE(f.prompts.fileRequests[2].title, QStringLiteral("Open Texture Bitmap"));
    QCOMPARE(f.prompts.fileRequests[2].filter.split(QLatin1Char('|')).mid(0, 2),
             (QStringList{"Bitmap or PNG (*.bmp;*.png)", "*.bmp;*.png"}));
}

void tst_DocumentLife::newStandAloneListTakesTheChosenVersion_data()
{
    QTest::addColumn<int>("option");
    QTest::addColumn<quint32>("version");
    QTest::newRow("TR 1") << 0 << 0x20u;
    QTest::newRow("TR 2 untouched") << -1 << 0x2Du;
    QTest::newRow("TR 3") << 2 << 0xFF180038u;
}

void tst_DocumentLife::newStandAloneListTakesTheChosenVersion()
{
    QFETCH(int, option);
    QFETCH(quint32, version);
    EditorFixture f;
    f.openList(f.listPath());
    const QString list = f.dir.filePath("alone.trt");
    f.scriptNewList(list, {}, f.bitmapPath());
    f.prompts.formScripts << [option](QDialog& form) {
        if (option >= 0)
            form.findChild<QRadioButton*>(QStringLiteral("optVersion_%1").arg(option))->click();
        EditorFixture::click(form, "cmdOK");
    };
    trigger(f, "mnuFileNewList");

    QCOMPARE(f.prompts.formsShown, QStringList({"frmNewList", "frmVersion"}));
    EditorState& s = f.window->state();
    QCOMPARE(s.views.lsvTextures.count(), 0);
    QCOMPARE(s.lsvObjects.count(), 2);
    QVERIFY(s.IsBitmapLoaded);
    QVERIFY(f.window->state().picture()->HasPicture());
    C_ListInfo written;
    QCOMPARE(written.InitForInsert(list), C_ListInfo::Success);
    QCOMPARE(written.Version(), version);
    QCOMPARE(written.LevelFileName(), QString());
    QCOMPARE(written.BitMapName(), f.bitmapPath());
    QCOMPARE(s.ListVersion, version);
}

void tst_DocumentLife::newListDialogRefusesMissingFiles()
{
    EditorFixture f;
    f.prompts.formScripts << [&f](QDialog& form) {
        EditorFixture::click(form, "cmdOK"); // no list: focus on the list box
        QCOMPARE(f.prompts.beeps, 1);
        f.prompts.fileNames << f.dir.filePath("x.trt");
        EditorFixture::click(form, "cmdList");
        EditorFixture::click(form, "cmdOK"); // no bitmap: focus on the bitmap box
        QCOMPARE(f.prompts.beeps, 2);
        QVERIFY(form.isVisible() || !form.result());
        EditorFixture::click(form, "cmdCancel");
    };
    trigger(f, "mnuFileNewList");
    QVERIFY(!QFile::exists(f.dir.filePath("x.trt")));
    QVERIFY(!f.window->state().IsListOpen);
}

void tst_DocumentLife::editSaveAndReopen()
{
    EditorFixture f;
    f.openList(f.listPath());
    EditorState& s = f.window->state();
    const QByteArray before = ScratchDir::read(f.listPath());
    s.views.lsvTextures.setSubItem(3, 1, QStringLiteral("2"));
    s.MarkDirty();
    QVERIFY(f.find<QAction>("mnuFileSaveList")->isEnabled());
    trigger(f, "mnuFileSaveList");
    QVERIFY(!s.IsDirty);
    QVERIFY(!f.find<QAction>("mnuFileSaveList")->isEnabled());
    const QByteArray after = ScratchDir::read(f.listPath());
    QCOMPARE(after.size(), before.size());
    QVERIFY(after != before);

    f.openList(f.listPath());
    QVERIFY(f.prompts.messages.isEmpty());
    QCOMPARE(s.views.lsvTextures.subItem(3, 1), QStringLiteral("2"));
}

void tst_DocumentLife::saveAsMovesTheListToTheNewName()
{
    EditorFixture f;
    f.openList(f.listPath());
    f.window->state().MarkDirty();
    const QString copy = f.dir.filePath("copy.trt");
    f.prompts.fileNames << copy;
    trigger(f, "mnuFileSaveAsList");
    const IPromptService::FileRequest& request = f.prompts.fileRequests.last();
    QVERIFY(request.save);
    QCOMPARE(request.title, QStringLiteral("Save List Information into New TombRaider List File"));
    QCOMPARE(request.flags, 2050);
    QCOMPARE(ScratchDir::read(copy), ScratchDir::read(f.listPath()));
    QCOMPARE(f.find<QLabel>("lblListFile")->text(), QDir::toNativeSeparators(copy));
    QCOMPARE(f.window->state().ListFileName, copy);
    QVERIFY(!f.window->state().IsDirty);

    // A cancelled dialog keeps the name.
    trigger(f, "mnuFileSaveAsList");
    QCOMPARE(f.window->state().ListFileName, copy);
}

void tst_DocumentLife::closeEmptiesEverythingAndSaveWritesNothing()
{
    EditorFixture f;
    f.openList(f.listPath());
    const QByteArray before = ScratchDir::read(f.listPath());
    trigger(f, "mnuFileCloseList");
    EditorState& s = f.window->state();
    for (ListViewModel* view : s.views.all())
        QCOMPARE(view->count(), 0);
    QCOMPARE(s.lsvObjects.count(), 0);
    QCOMPARE(s.lsvSpriteIndex.count(), 0);
    QVERIFY(!s.picture()->HasPicture());
    QVERIFY(f.find<QLabel>("lblListFile")->text().isEmpty());
    QVERIFY(f.find<QLineEdit>("txtNum")->text().isEmpty());
    QVERIFY(f.find<QLabel>("lblAvailSTextures")->text().isEmpty());
    QVERIFY(s.IsListOpen); // stays set once a list was loaded

    // The menus stay enabled, but no document is left: nothing is written.
    s.MarkDirty();
    trigger(f, "mnuFileSaveList");
    trigger(f, "mnuFileSaveAsList");
    QCOMPARE(ScratchDir::read(f.listPath()), before);
    QVERIFY(f.window->statusBar()->currentMessage().contains("nothing was saved"));
    QVERIFY(f.prompts.fileRequests.size() == 1);
}

void tst_DocumentLife::openingOverAChangedListAsksFirst_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("saved");
    QTest::newRow("OK saves") << int(IPromptService::vbOK) << true;
    QTest::newRow("Cancel discards") << int(IPromptService::vbCancel) << false;
}

void tst_DocumentLife::openingOverAChangedListAsksFirst()
{
    QFETCH(int, answer);
    QFETCH(bool, saved);
    EditorFixture f;
    f.openList(f.listPath());
    const QByteArray before = ScratchDir::read(f.listPath());
    EditorState& s = f.window->state();
    s.views.lsvTextures.removeAt(0);
    s.MarkDirty();
    f.prompts.answers << answer;
    f.openList(f.listPath());

    QCOMPARE(f.prompts.messages.size(), 1);
    QCOMPARE(f.prompts.messages[0].text, QStringLiteral("Do you want to save the changes before closing?"));
    QCOMPARE(f.prompts.messages[0].title, QStringLiteral("Save List Changes?"));
    QCOMPARE(f.prompts.messages[0].style, 49);
    QCOMPARE(ScratchDir::read(f.listPath()) != before, saved);
    QCOMPARE(s.views.lsvTextures.count(), saved ? 29 : 30);
    QVERIFY(!s.IsDirty);
}

void tst_DocumentLife::exitAsksOnlyWhenChanged_data()
{
    QTest::addColumn<bool>("dirty");
    QTest::newRow("clean") << false;
    QTest::newRow("changed") << true;
}

void tst_DocumentLife::exitAsksOnlyWhenChanged()
{
    QFETCH(bool, dirty);
    EditorFixture f;
    f.openList(f.listPath());
    if (dirty)
        f.window->state().MarkDirty();
    f.prompts.answers << IPromptService::vbCancel;
    f.window->show();
    trigger(f, "mnuFileExit");
    QVERIFY(!f.window->isVisible());
    QCOMPARE(f.prompts.messages.size(), dirty ? 1 : 0);
}

void tst_DocumentLife::insertWritesTemplevelWithProgress()
{
    EditorFixture f;
    QList<int> progress;
    bool shownWhileCopying = false;
    f.prompts.formScripts << [&](QDialog& form) {
        QCOMPARE(form.windowTitle(), QStringLiteral("Insert a List into a Level"));
        auto* insert = form.findChild<QPushButton*>(QStringLiteral("cmdInsert"));
        QVERIFY(!insert->isEnabled());
        f.prompts.fileNames << f.listPath();
        EditorFixture::click(form, "cmdGetList");
        QVERIFY(insert->isEnabled());
        QCOMPARE(form.findChild<QLabel*>(QStringLiteral("lblLevel"))->text(), QDir::toNativeSeparators(f.levelPath()));
        auto* bar = form.findChild<QProgressBar*>(QStringLiteral("ProgressBar1"));
        connect(bar, &QProgressBar::valueChanged, [&](int value) {
            progress << value;
            shownWhileCopying = shownWhileCopying || !bar->isHidden();
        });
        insert->click();
        QVERIFY(bar->isHidden());
    };
    trigger(f, "mnuListInser");
    const QString output = f.dir.filePath("templevel.tr2");
    // The list carries the level's own tables: the level comes back unchanged.
    QCOMPARE(ScratchDir::read(output), ScratchDir::read(f.levelPath()));
    QVERIFY(shownWhileCopying);
    QVERIFY(progress.contains(100));
    QVERIFY(f.window->statusBar()->currentMessage().contains(QDir::toNativeSeparators(output)));
}

void tst_DocumentLife::insertOfAnotherVersionWritesNothing()
{
    EditorFixture f;
    ListViewSet views;
    ListFixture tables = ListFixture::random(3, 0, 0, 2, 1, 7);
    const QString list = f.dir.filePath("tr3.trt");
    tables.write(views, list, f.levelPath());
    QByteArray bytes = ScratchDir::read(list);
    bytes.replace(0, 4, QByteArray::fromHex("380018FF")); // a TR 3 list for a TR 2 level
    f.dir.write("tr3.trt", bytes);
    f.prompts.formScripts << [&](QDialog& form) {
        f.prompts.fileNames << list;
        EditorFixture::click(form, "cmdGetList");
        EditorFixture::click(form, "cmdInsert");
    };
    trigger(f, "mnuListInser");
    QVERIFY(!QFile::exists(f.dir.filePath("templevel.tr2")));
    QVERIFY(f.prompts.messages.isEmpty());
    QVERIFY(f.window->statusBar()->currentMessage().contains("another game version"));
}

void tst_DocumentLife::badFilesGetOneMessageAndChangeNothing_data()
{
    QTest::addColumn<QString>("bad");
    QTest::addColumn<QString>("role"); // which file of a new list is bad
    QTest::newRow("bitmap not an image") << "junk.bmp" << "bitmap";
    QTest::newRow("bitmap missing") << "" << "bitmap";
    QTest::newRow("level cut short") << "cut.tr2" << "level";
    QTest::newRow("level of TR 1") << "tr1.tr2" << "level";
}

void tst_DocumentLife::badFilesGetOneMessageAndChangeNothing()
{
    QFETCH(QString, bad);
    QFETCH(QString, role);
    EditorFixture f;
    f.openList(f.listPath());
    const QByteArray level = ScratchDir::read(f.levelPath());
    QString path = f.dir.filePath("missing.bmp");
    if (bad == "junk.bmp")
        path = f.dir.write(bad, QByteArray("BM this is no bitmap"));
    else if (bad == "cut.tr2")
        path = f.dir.write(bad, level.left(level.size() / 2));
    else if (bad == "tr1.tr2")
        path = f.dir.write(bad, QByteArray::fromHex("20000000") + level.mid(4));
    const QString list = f.dir.filePath("new.trt");
    f.newList(list, role == "level" ? path : f.levelPath(), role == "bitmap" ? path : f.bitmapPath());

    QCOMPARE(f.prompts.messages.size(), 1);
    QVERIFY2(f.prompts.messages[0].text.contains(QDir::toNativeSeparators(path)), qPrintable(f.prompts.messages[0].text));
    QVERIFY(!QFile::exists(list));
    QCOMPARE(f.window->state().ListFileName, f.listPath());
    QCOMPARE(f.window->state().views.lsvTextures.count(), 30);
    QVERIFY(f.window->state().picture()->HasPicture());
}

void tst_DocumentLife::listSavedWithoutRangesSaysWhyItsSpritesAreNotRead()
{
    EditorFixture f;
    ListViewSet views;
    const QString list = f.dir.filePath("no-ranges.trt");
    QCOMPARE(ListFixture::random(5, 0, 0, 3, 1, 8).write(views, list, f.levelPath(), f.bitmapPath()),
             C_ListInfo::Success);
    f.openList(list);
    QVERIFY(f.prompts.messages.isEmpty());
    QCOMPARE(f.window->state().views.lsvTextures.count(), 5);
    QCOMPARE(f.window->state().views.lsvSprites.count(), 0);
    QVERIFY2(f.window->statusBar()->currentMessage().contains("saved without animation ranges"),
             qPrintable(f.window->statusBar()->currentMessage()));
}

#ifdef Q_OS_UNIX
void tst_DocumentLife::saveThatCannotWriteSaysWhyAndKeepsTheFile_data()
{
    QTest::addColumn<QString>("obstacle");
    QTest::addColumn<QString>("cause");
    QTest::newRow("write-protected list") << "protected" << "cannot be written: is write-protected";
    QTest::newRow("disk full part-way") << "limit" << QString("cannot be written: ") + qt_error_string(EFBIG);
    QTest::newRow("list turned into a FIFO") << "fifo" << "cannot be written: is a FIFO, not a regular file";
}

// The one line the core gives is the message, and the list on disk and the
// unsaved changes stay as they were.
void tst_DocumentLife::saveThatCannotWriteSaysWhyAndKeepsTheFile()
{
    QFETCH(QString, obstacle);
    QFETCH(QString, cause);
    EditorFixture f;
    const QString list = f.dir.write("copy.trt", ScratchDir::read(f.listPath()));
    f.openList(list);
    EditorState& s = f.window->state();
    s.views.lsvTextures.setSubItem(3, 1, QStringLiteral("2"));
    s.MarkDirty();
    const QByteArray before = ScratchDir::read(list);
    if (obstacle == "protected")
        QVERIFY(QFile::setPermissions(list, QFile::ReadOwner));
    if (obstacle == "fifo")
        QVERIFY(QFile::remove(list) && ::mkfifo(QFile::encodeName(list).constData(), 0644) == 0);
    rlimit unlimited {};
    ::getrlimit(RLIMIT_FSIZE, &unlimited);
    rlimit limited = unlimited;
    limited.rlim_cur = before.size() / 2;
    if (obstacle == "limit")
        ::setrlimit(RLIMIT_FSIZE, &limited);
    trigger(f, "mnuFileSaveList");
    ::setrlimit(RLIMIT_FSIZE, &unlimited);

    QCOMPARE(f.prompts.messages.size(), 1);
    QCOMPARE(f.prompts.messages[0].text, list + ": " + cause);
    QVERIFY(s.IsDirty);
    if (obstacle != "fifo")
        QCOMPARE(ScratchDir::read(list), before);
}
#endif

void tst_DocumentLife::listWithMissingBitmapAndLevelOpensWithWhatItHas()
{
    EditorFixture f;
    ListViewSet views;
    const QString list = f.dir.filePath("orphan.trt");
    ListFixture::random(4, 1, 2, 3, 1, 11).write(views, list, f.dir.filePath("gone.tr2"), f.dir.filePath("gone.bmp"));
    f.openList(list);
    EditorState& s = f.window->state();
    QCOMPARE(s.views.lsvTextures.count(), 4);
    QCOMPARE(f.prompts.messages.size(), 1);
    QVERIFY(f.prompts.messages[0].text.contains("gone.bmp"));
    QVERIFY(f.window->statusBar()->currentMessage().contains("gone.tr2"));
    QVERIFY(!s.IsBitmapLoaded);
    QVERIFY(!f.find<QAction>("mnuBitmapsShowTiles")->isEnabled());

    // A file that cannot be opened at all leaves the open list as it was.
    f.prompts.clearRecords();
    f.openList(f.dir.filePath("nowhere.trt"));
    QCOMPARE(f.prompts.messages.size(), 1);
    QVERIFY(f.prompts.messages[0].text.contains("nowhere.trt"));
    QCOMPARE(s.ListFileName, list);
    QCOMPARE(s.views.lsvTextures.count(), 4);
}

void tst_DocumentLife::helpAndAbout()
{
    EditorFixture f;
    // Help opens a window of its own: no message box.
    trigger(f, "mnuHelpHelp");
    QVERIFY(f.prompts.messages.isEmpty());
    f.prompts.clearRecords();
    f.prompts.formScripts << [](QDialog& form) {
        QVERIFY(form.windowTitle().startsWith("About "));
        QVERIFY(form.findChild<QLabel*>("lblVersion")->text().startsWith("Version "));
        QCOMPARE(form.findChild<QPushButton*>("cmdSysInfo")->text(), QStringLiteral("&System Info..."));
        EditorFixture::click(form, "cmdSysInfo");
        EditorFixture::click(form, "cmdOK");
    };
    trigger(f, "mnuHelpAbout");
#ifndef Q_OS_WIN
    QCOMPARE(f.prompts.messageTexts(), QStringList("System Information Is Unavailable At This Time"));
#endif
}

QTEST_MAIN(tst_DocumentLife)
#include "tst_DocumentLife.moc"
