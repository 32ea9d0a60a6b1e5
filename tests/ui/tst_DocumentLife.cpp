#include "list/C_ListInfo.h"
#include "uisupport/EditorFixture.h"
#include "ui/common/EditorState.h"
#include "support/ListFixture.h"
#include "list/ListViewSet.h"
#include "ui/main/frmMain.h"
#include "ui/bitmap/ucScrollPic.h"
#include "synthetic/SyntheticLevel.h"

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
    void newListFromALevelWithoutRangesSaysAtOnce_data();
    void newListFromALevelWithoutRangesSaysAtOnce();
    void editSaveAndReopen();
    void saveAsMovesTheListToTheNewName();
    void closeEmptiesEverythingAndSaveWritesNothing();
    void theSaveQuestionOnEveryWayOut_data();
    void theSaveQuestionOnEveryWayOut();
    void aSaveThatFailsKeepsTheListOpen();
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
    QVERIFY(s.document().IsListOpen() && !s.document().isModified());
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
    QVERIFY(s.document().IsBitmapLoaded());
    QVERIFY(f.window->state().picture()->HasPicture());
    C_ListInfo written;
    QCOMPARE(written.InitForInsert(list), C_ListInfo::Success);
    QCOMPARE(written.Version(), version);
    QCOMPARE(written.LevelFileName(), QString());
    QCOMPARE(written.BitMapName(), f.bitmapPath());
    QCOMPARE(s.document().ListVersion(), version);
}

void tst_DocumentLife::newListFromALevelWithoutRangesSaysAtOnce_data()
{
    QTest::addColumn<int>("ranges");
    QTest::addColumn<int>("sprites");
    QTest::addColumn<int>("sequences");
    QTest::addColumn<bool>("warned");
    QTest::newRow("ranges and sprites") << 2 << 3 << 1 << false;
    QTest::newRow("no range, sprites") << 0 << 3 << 1 << true;
    QTest::newRow("no range, a sequence only") << 0 << 0 << 1 << true;
    QTest::newRow("no range, no sprite tables") << 0 << 0 << 0 << false;
}

// A list without ranges keeps its sprite tables where the insertion cannot
// take them: the user hears of it while adding a range still mends it.
void tst_DocumentLife::newListFromALevelWithoutRangesSaysAtOnce()
{
    QFETCH(int, ranges);
    QFETCH(int, sprites);
    QFETCH(int, sequences);
    QFETCH(bool, warned);
    EditorFixture f;
    const ListFixture tables = ListFixture::random(6, ranges, 2, sprites, sequences, 11);
    SyntheticLevel level(LevelVersion::Game::TR2);
    level.setRooms({{12, 1, 2, 2, 1, 1}});
    level.setObjectTextures(tables.objectTextures);
    level.setSpriteTextures(tables.sprites);
    level.setSpriteSequences(tables.sequences);
    level.setAnimatedTextures(tables.animations);
    const QString levelPath = f.dir.write("plain.tr2", level.build());
    f.newList(f.dir.filePath("plain.trt"), levelPath, f.bitmapPath());

    QVERIFY(f.window->document().IsListOpen());
    const QString status = f.window->statusBar()->currentMessage();
    QCOMPARE(f.prompts.messages.size(), warned ? 1 : 0);
    QCOMPARE(status.contains(QStringLiteral("cannot carry its sprite tables back into the level")), warned);
    if (!warned)
        return;
    QCOMPARE(f.prompts.messages[0].text, status);
    QCOMPARE(f.prompts.messages[0].style, int(IPromptService::vbExclamation));
    QVERIFY(status.contains(QDir::toNativeSeparators(levelPath)));
    QVERIFY(status.contains(QStringLiteral("Add an animation range before saving")));
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
    QVERIFY(!f.window->state().document().IsListOpen());
}

void tst_DocumentLife::editSaveAndReopen()
{
    EditorFixture f;
    f.openList(f.listPath());
    EditorState& s = f.window->state();
    const QByteArray before = ScratchDir::read(f.listPath());
    ObjectTexture edited = s.document().tables().textures.at(3).record;
    edited.setColumn(ObjectTexture::TileColumn, 2);
    QVERIFY(s.document().EditTexture(s.document().tables().textures.at(3).number, edited));
    QVERIFY(f.find<QAction>("mnuFileSaveList")->isEnabled());
    trigger(f, "mnuFileSaveList");
    QVERIFY(!s.document().isModified());
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
    QVERIFY(f.window->document().DeleteTexture(4));
    const QString copy = f.dir.filePath("copy.trt");
    f.prompts.fileNames << copy;
    trigger(f, "mnuFileSaveAsList");
    const IPromptService::FileRequest& request = f.prompts.fileRequests.last();
    QVERIFY(request.save);
    QCOMPARE(request.title, QStringLiteral("Save List Information into New TombRaider List File"));
    QCOMPARE(request.flags, 2050);
    C_ListInfo written;
    QCOMPARE(written.InitForInsert(copy), C_ListInfo::Success);
    QCOMPARE(written.NumberObjectTexture(), 29);
    QCOMPARE(f.find<QLabel>("lblListFile")->text(), QDir::toNativeSeparators(copy));
    QCOMPARE(f.window->state().document().ListFileName(), copy);
    QVERIFY(!f.window->state().document().isModified());

    // A cancelled dialog keeps the name.
    trigger(f, "mnuFileSaveAsList");
    QCOMPARE(f.window->state().document().ListFileName(), copy);
}

void tst_DocumentLife::closeEmptiesEverythingAndSaveWritesNothing()
{
    EditorFixture f;
    f.openList(f.listPath());
    const QByteArray before = ScratchDir::read(f.listPath());
    trigger(f, "mnuFileCloseList");
    EditorState& s = f.window->state();
    for (ListRows* view : s.views.all())
        QCOMPARE(view->count(), 0);
    QCOMPARE(s.lsvObjects.count(), 0);
    QCOMPARE(s.lsvSpriteIndex.count(), 0);
    QVERIFY(!s.picture()->HasPicture());
    QVERIFY(f.find<QLabel>("lblListFile")->text().isEmpty());
    QVERIFY(f.find<QLineEdit>("txtNum")->text().isEmpty());
    QVERIFY(f.find<QLabel>("lblAvailSTextures")->text().isEmpty());
    QVERIFY(!s.document().IsListOpen());
    QVERIFY(f.find<QLabel>("lblNbTiles")->text() == "0" && f.find<QLabel>("lblHeight")->text() == "0");

    // No document is left: the list menus are off and write nothing.
    for (const char* action : {"mnuFileSaveList", "mnuFileSaveAsList", "mnuFileCloseList", "mnuEditUndo"}) {
        QVERIFY2(!f.find<QAction>(action)->isEnabled(), action);
        trigger(f, action);
    }
    QCOMPARE(ScratchDir::read(f.listPath()), before);
    QCOMPARE(f.prompts.fileRequests.size(), 1);
}

void tst_DocumentLife::theSaveQuestionOnEveryWayOut_data()
{
    using Answer = IPromptService::SaveAnswer;
    QTest::addColumn<QString>("way");
    QTest::addColumn<int>("chosen");
    QTest::addColumn<QString>("question"); // names the list and what is about to happen
    const QList<std::pair<const char*, const char*>> ways = {
        {"open", "Save the changes to demo.trt before opening another list?"},
        {"new", "Save the changes to demo.trt before making a new list?"},
        {"close", "Save the changes to demo.trt before closing it?"},
        {"exit", "Save the changes to demo.trt before quitting?"},
    };
    for (const auto& [way, question] : ways) {
        QTest::addRow("%s, Save", way) << QString(way) << int(Answer::Save) << QString(question);
        QTest::addRow("%s, Discard", way) << QString(way) << int(Answer::Discard) << QString(question);
        QTest::addRow("%s, Cancel", way) << QString(way) << int(Answer::Cancel) << QString(question);
    }
}

void tst_DocumentLife::theSaveQuestionOnEveryWayOut()
{
    QFETCH(QString, way);
    QFETCH(int, chosen);
    QFETCH(QString, question);
    const auto answer = IPromptService::SaveAnswer(chosen);
    EditorFixture f;
    f.openList(f.listPath());
    f.window->show();
    const QByteArray before = ScratchDir::read(f.listPath());
    EditorState& s = f.window->state();
    QVERIFY(s.document().DeleteTexture(0));
    f.prompts.saveAnswers << answer;
    const QString other = f.dir.filePath("other.trt");
    if (way == "open")
        f.openList(f.listPath());
    else if (way == "new")
        f.newList(other, f.levelPath(), f.bitmapPath());
    else
        trigger(f, way == "close" ? "mnuFileCloseList" : "mnuFileExit");

    QCOMPARE(f.prompts.messages.size(), 1);
    QCOMPARE(f.prompts.messages[0].text, question);
    QCOMPARE(f.prompts.messages[0].title, QStringLiteral("Save List Changes?"));
    const bool saved = answer == IPromptService::SaveAnswer::Save;
    const bool kept = answer == IPromptService::SaveAnswer::Cancel;
    QCOMPARE(ScratchDir::read(f.listPath()) != before, saved);
    QCOMPARE(f.window->isVisible(), way != "exit" || kept);
    QCOMPARE(QFile::exists(other), way == "new" && !kept);
    if (kept) {
        // The list stays as it was, changes and history included.
        QCOMPARE(s.document().ListFileName(), f.listPath());
        QCOMPARE(s.views.lsvTextures.count(), 29);
        QVERIFY(s.document().isModified() && f.find<QAction>("mnuEditUndo")->isEnabled());
    } else if (way != "exit") {
        QVERIFY(!s.document().isModified());
    }
    // A list already set aside is not asked about again.
    f.prompts.clearRecords();
    if (!kept && way != "exit") {
        trigger(f, "mnuFileCloseList");
        f.openList(f.listPath());
        QVERIFY(f.prompts.messages.isEmpty());
        QCOMPARE(s.views.lsvTextures.count(), saved ? 29 : 30);
    }
}

void tst_DocumentLife::aSaveThatFailsKeepsTheListOpen()
{
    EditorFixture f;
    const QString list = f.dir.write("mine.trt", ScratchDir::read(f.listPath()));
    f.openList(list);
    QVERIFY(f.window->document().DeleteTexture(3));
    // The file's place is taken by a folder: nothing can be written there.
    QVERIFY(QFile::remove(list) && QDir().mkdir(list));
    f.prompts.saveAnswers << IPromptService::SaveAnswer::Save;
    trigger(f, "mnuFileCloseList");
    QCOMPARE(f.prompts.messages.size(), 2);
    QCOMPARE(f.prompts.messages[1].style, int(IPromptService::vbCritical));
    QVERIFY(f.prompts.messages[1].text.contains(QDir::toNativeSeparators(list)));
    QCOMPARE(f.window->document().ListFileName(), list);
    QCOMPARE(f.window->state().views.lsvTextures.count(), 29);
    QVERIFY(f.window->document().isModified());
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
        f.window->document().DeleteTexture(0);
    f.prompts.saveAnswers << IPromptService::SaveAnswer::Discard;
    f.window->show();
    trigger(f, "mnuFileExit");
    QVERIFY(!f.window->isVisible());
    QCOMPARE(f.prompts.saveAnswers.size(), dirty ? 0 : 1);
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
    QCOMPARE(f.window->state().document().ListFileName(), f.listPath());
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
    QVERIFY(f.editTexture(3));
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
    QVERIFY(s.document().isModified());
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
    f.openList(f.listPath());
    f.openList(list);
    EditorState& s = f.window->state();
    QCOMPARE(s.views.lsvTextures.count(), 4);
    QCOMPARE(f.prompts.messages.size(), 1);
    QVERIFY(f.prompts.messages[0].text.contains("gone.bmp"));
    QVERIFY(f.window->statusBar()->currentMessage().contains("gone.tr2"));
    QVERIFY(!s.document().IsBitmapLoaded());
    QVERIFY(!f.find<QAction>("mnuBitmapsShowTiles")->isEnabled());
    // Nothing of the list open before stays on show.
    for (const char* label : {"lblNbTiles", "lblHeight", "lblWidth"})
        QCOMPARE(f.find<QLabel>(label)->text(), QStringLiteral("0"));
    QCOMPARE(f.find<QLineEdit>("txtTextureQty")->text(), QStringLiteral("4"));
    QCOMPARE(s.lsvObjects.count(), 6);

    // A file that cannot be opened at all leaves the open list as it was.
    f.prompts.clearRecords();
    f.openList(f.dir.filePath("nowhere.trt"));
    QCOMPARE(f.prompts.messages.size(), 1);
    QVERIFY(f.prompts.messages[0].text.contains("nowhere.trt"));
    QCOMPARE(s.document().ListFileName(), list);
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
