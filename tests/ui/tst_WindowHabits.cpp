#include "ui/about/HelpWindow.h"
#include "ui/common/EditorSettings.h"
#include "ui/common/EditorState.h"
#include "ui/common/FolderMemoryPrompts.h"
#include "ui/common/ListView.h"
#include "ui/main/RecentListsMenu.h"
#include "ui/main/frmMain.h"
#include "uisupport/EditorFixture.h"
#include "uisupport/UserActions.h"
#include "support/ScratchDir.h"

#include <QAction>
#include <QDir>
#include <QLabel>
#include <QDialog>
#include <QFile>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QScrollBar>
#include <QSettings>
#include <QSignalSpy>
#include <QSplitter>
#include <QStatusBar>
#include <QTest>
#include <QTextBrowser>
#include <QUrl>

// What the window does as a desktop editor: its title, keys, recent lists,
// the folders its dialogs start in, the files dropped on it, the settings it
// keeps between runs, and its help.
class tst_WindowHabits : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void titleNamesTheListAndMarksChanges();
    void menuKeysRunTheirCommands_data();
    void menuKeysRunTheirCommands();
    void deleteKeyRemovesTheChosenRow_data();
    void deleteKeyRemovesTheChosenRow();
    void zoomKeysStepTheZoom();
    void recentListsKeepEightNewestFirst();
    void aRecentListThatIsGoneIsRemoved();
    void dialogsStartWhereTheyWereLastUsed();
    void untrustedSettingsAreIgnored_data();
    void untrustedSettingsAreIgnored();
    void windowSizeAndSplitterAreRemembered();
    void droppedFilesOpenOrStartANewList_data();
    void droppedFilesOpenOrStartANewList();
    void numberBoxesSelectTheirTextWhenClicked_data();
    void numberBoxesSelectTheirTextWhenClicked();
    void helpShowsTheUserSection();
    void userSectionEndsAtTheNextHeading_data();
    void userSectionEndsAtTheNextHeading();
};

namespace {

QString SettingsFile()
{
    return EditorSettings::DefaultFileName();
}

void Press(QWidget* target, QKeySequence keys)
{
    QTest::keySequence(target, keys);
}

} // namespace

void tst_WindowHabits::init()
{
    // Each test starts with nothing remembered.
    QSettings(SettingsFile(), QSettings::IniFormat).clear();
}

void tst_WindowHabits::titleNamesTheListAndMarksChanges()
{
    EditorFixture f;
    QCOMPARE(f.window->windowTitle(), QStringLiteral("Brindle[*]"));
    f.openList(f.listPath());
    const QString name = QFileInfo(f.listPath()).fileName();
    QCOMPARE(f.window->windowTitle(), name + QStringLiteral("[*] \u2014 Brindle"));
    QVERIFY(!f.window->isWindowModified());
    QVERIFY(f.editTexture());
    QVERIFY(f.window->isWindowModified());
    // The mark follows the history back to the state the file holds.
    f.find<QAction>("mnuEditUndo")->trigger();
    QVERIFY(!f.window->isWindowModified());
    f.find<QAction>("mnuEditRedo")->trigger();
    QVERIFY(f.window->isWindowModified());
    f.find<QAction>("mnuFileSaveList")->trigger();
    QVERIFY(!f.window->isWindowModified());
    f.find<QAction>("mnuEditUndo")->trigger();
    QVERIFY(f.window->isWindowModified());
    f.find<QAction>("mnuEditRedo")->trigger();
    QVERIFY(!f.window->isWindowModified());
    f.find<QAction>("mnuFileCloseList")->trigger();
    QCOMPARE(f.window->windowTitle(), QStringLiteral("Brindle[*]"));
}

void tst_WindowHabits::menuKeysRunTheirCommands_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QKeySequence>("keys");
    QTest::newRow("new") << "mnuFileNewList" << QKeySequence("Ctrl+N");
    QTest::newRow("open") << "mnuFileOpen" << QKeySequence("Ctrl+O");
    QTest::newRow("save") << "mnuFileSaveList" << QKeySequence("Ctrl+S");
    QTest::newRow("save as") << "mnuFileSaveAsList" << QKeySequence("Ctrl+Shift+S");
    QTest::newRow("close") << "mnuFileCloseList" << QKeySequence("Ctrl+W");
    QTest::newRow("insert") << "mnuListInser" << QKeySequence("Ctrl+I");
}

void tst_WindowHabits::menuKeysRunTheirCommands()
{
    QFETCH(QString, action);
    QFETCH(QKeySequence, keys);
    EditorFixture f;
    f.openList(f.listPath());
    QVERIFY(f.editTexture());
    f.window->show();
    QVERIFY(QTest::qWaitForWindowActive(f.window.get()));
    QAction* item = f.window->findChild<QAction*>(action);
    QCOMPARE(item->shortcut(), keys);
    QSignalSpy ran(item, &QAction::triggered);
    // The forms a command shows are closed unanswered.
    f.prompts.formScripts = {[](QDialog& form) { form.reject(); }};
    Press(f.window.get(), keys);
    QCOMPARE(ran.count(), 1);
}

void tst_WindowHabits::deleteKeyRemovesTheChosenRow_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("list");
    QTest::newRow("textures") << 1 << "lsvTextures";
    QTest::newRow("ranges") << 2 << "lsvAnims";
    QTest::newRow("sprites") << 3 << "lsvSprites";
    QTest::newRow("sequences") << 4 << "lsvSequences";
}

void tst_WindowHabits::deleteKeyRemovesTheChosenRow()
{
    QFETCH(int, tab);
    QFETCH(QString, list);
    EditorFixture f;
    f.openList(f.listPath());
    f.window->show();
    QVERIFY(QTest::qWaitForWindowActive(f.window.get()));
    f.window->ShowPage(tab);
    auto* view = f.window->findChild<ListView*>(list);
    const int before = view->listModel()->count();
    QVERIFY(before > 1);
    // Nothing chosen: the key removes nothing.
    view->setFocus();
    QTest::keyClick(view, Qt::Key_Delete);
    QCOMPARE(view->listModel()->count(), before);
    // Where a deletion asks first, the scripted answer is OK.
    UserActions::ClickRow(view, 1);
    const QString gone = view->listModel()->key(1);
    QTest::keyClick(view, Qt::Key_Delete);
    QCOMPARE(view->listModel()->count(), before - 1);
    QCOMPARE(view->listModel()->findKey(gone), -1);
    // The key deletes as the list's edits do: one step of the history.
    QVERIFY(f.window->isWindowModified());
    f.find<QAction>("mnuEditUndo")->trigger();
    QCOMPARE(view->listModel()->count(), before);
    QCOMPARE(view->listModel()->findKey(gone), 1);
    QVERIFY(!f.window->isWindowModified());
}

void tst_WindowHabits::zoomKeysStepTheZoom()
{
    EditorFixture f;
    auto* zoom = f.find<QScrollBar>("hscrlZoom");
    f.window->show();
    QVERIFY(QTest::qWaitForWindowActive(f.window.get()));
    // No bitmap: the zoom is off and stays at 1.
    Press(f.window.get(), QKeySequence(QKeySequence::ZoomIn));
    QCOMPARE(zoom->value(), 1);
    f.openList(f.listPath());
    for (const auto& [keys, expected] : {std::pair{QKeySequence(QKeySequence::ZoomIn), 2},
                                          std::pair{QKeySequence("Ctrl+="), 3},
                                          std::pair{QKeySequence(QKeySequence::ZoomOut), 2}}) {
        Press(f.window.get(), keys);
        QCOMPARE(zoom->value(), expected);
    }
    QCOMPARE(f.find<QLabel>("lblZoomFactor")->text(), QStringLiteral("Zoom Factor: 2"));
}

void tst_WindowHabits::recentListsKeepEightNewestFirst()
{
    ScratchDir dir;
    EditorSettings settings(dir.filePath("s.ini"));
    QStringList paths;
    for (int i = 0; i < 10; ++i)
        paths << dir.filePath(QStringLiteral("list%1.trt").arg(i));
    for (const QString& path : paths)
        settings.AddRecentList(path);
    settings.AddRecentList(paths[4]); // again: it moves to the top, once
    const QStringList expected{paths[4], paths[9], paths[8], paths[7], paths[6], paths[5], paths[3], paths[2]};
    QCOMPARE(settings.RecentLists(), expected);
    // A new run reads what this one wrote.
    QCOMPARE(EditorSettings(dir.filePath("s.ini")).RecentLists(), expected);
    RecentListsMenu menu(settings);
    QCOMPARE(menu.actions().size(), 8);
    QVERIFY(menu.actions().first()->text().startsWith(QStringLiteral("&1 ")));
}

void tst_WindowHabits::aRecentListThatIsGoneIsRemoved()
{
    EditorFixture f;
    const QString copy = f.dir.filePath("copy.trt");
    QVERIFY(QFile::copy(f.listPath(), copy));
    f.openList(copy);
    f.openList(f.listPath());
    QCOMPARE(f.window->settings().RecentLists(), (QStringList{f.listPath(), copy}));
    QMenu& recent = f.window->recentMenu();
    QCOMPARE(recent.actions().size(), 2);

    QVERIFY(QFile::remove(copy));
    recent.actions().at(1)->trigger();
    QVERIFY(f.window->statusBar()->currentMessage().contains(QStringLiteral("no longer exists")));
    QCOMPARE(f.window->settings().RecentLists(), QStringList{f.listPath()});
    QCOMPARE(recent.actions().size(), 1);
    // The list that was open stays open.
    QCOMPARE(f.window->document().ListFileName(), f.listPath());
}

void tst_WindowHabits::dialogsStartWhereTheyWereLastUsed()
{
    EditorFixture f;
    QVERIFY(QDir(f.dir.path()).mkdir("elsewhere"));
    const QString elsewhere = f.dir.filePath("elsewhere");
    // First use, no list open: the home folder.
    f.find<QAction>("mnuFileOpen")->trigger();
    QCOMPARE(f.prompts.fileRequests.last().initDir, QDir::homePath());
    // A list naming a level: its level's folder, for a dialog not used yet.
    f.openList(f.listPath());
    f.prompts.fileNames << QString();
    f.find<QAction>("mnuFileSaveAsList")->trigger();
    QCOMPARE(f.prompts.fileRequests.last().initDir, f.dir.path());
    // Each dialog remembers its own folder, also in the next run.
    QVERIFY(QFile::copy(f.listPath(), elsewhere + "/moved.trt"));
    f.openList(elsewhere + "/moved.trt");
    f.window.reset();
    f.window = std::make_unique<frmMain>(&f.prompts);
    f.find<QAction>("mnuFileOpen")->trigger();
    QCOMPARE(f.prompts.fileRequests.last().initDir, elsewhere);
    // A caller that names the folder keeps it.
    FolderMemoryPrompts remembering(f.prompts, f.window->settings(), [] { return QString(); });
    IPromptService::FileRequest request;
    request.title = QStringLiteral("Open TombRaider List File");
    request.initDir = f.dir.path();
    remembering.GetFileName(request);
    QCOMPARE(f.prompts.fileRequests.last().initDir, f.dir.path());
}

void tst_WindowHabits::untrustedSettingsAreIgnored_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("another version") << QByteArray("[General]\nVersion=2\nRecentLists=/a/b.trt\n"
                                                   "Folders/OpenTombRaiderListFile=/\n");
    QTest::newRow("no version") << QByteArray("[General]\nRecentLists=/a/b.trt\nFolders/OpenTombRaiderListFile=/\n");
    QTest::newRow("binary rubbish") << QByteArray("\x00\xff[\x01=\x02\n\x7f]]Version=1\n", 18);
    QTest::newRow("wrong types") << QByteArray("[General]\nVersion=1\nRecentLists=relative/path.trt\n"
                                               "Folders/OpenTombRaiderListFile=/no/such/folder\n"
                                               "[Window]\nGeometry=42\nSplitter=@Invalid()\n");
}

void tst_WindowHabits::untrustedSettingsAreIgnored()
{
    QFETCH(QByteArray, content);
    ScratchDir dir;
    const QString file = dir.filePath("s.ini");
    QFile out(file);
    QVERIFY(out.open(QIODevice::WriteOnly));
    out.write(content);
    out.close();
    EditorSettings settings(file);
    QVERIFY(settings.RecentLists().isEmpty());
    QVERIFY(settings.LastFolder(QStringLiteral("Open TombRaider List File")).isEmpty());
    QVERIFY(settings.WindowGeometry().isEmpty());
    QVERIFY(settings.SplitterState().isEmpty());
    // The next write starts over in this version's shape.
    settings.AddRecentList(dir.filePath("x.trt"));
    QCOMPARE(EditorSettings(file).RecentLists(), QStringList{dir.filePath("x.trt")});
    QVERIFY(EditorSettings(file).WasTrusted());
}

void tst_WindowHabits::windowSizeAndSplitterAreRemembered()
{
    EditorFixture f;
    f.window->show();
    f.window->resize(900, 640);
    auto* splitter = f.find<QSplitter>("splitter");
    splitter->setSizes({300, 580});
    const QList<int> sizes = splitter->sizes();
    f.window->close();
    EditorFixture again;
    again.window->show();
    QCOMPARE(again.window->size(), QSize(900, 640));
    QCOMPARE(again.find<QSplitter>("splitter")->sizes(), sizes);
}

void tst_WindowHabits::droppedFilesOpenOrStartANewList_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("opened");
    QTest::addColumn<QString>("levelBox");
    QTest::newRow("a list opens") << "demo.trt" << "demo.trt" << "";
    QTest::newRow("a level starts New List") << "demo.tr2" << "" << "demo.tr2";
    QTest::newRow("a bitmap is refused") << "demo.bmp" << "" << "";
}

void tst_WindowHabits::droppedFilesOpenOrStartANewList()
{
    QFETCH(QString, file);
    QFETCH(QString, opened);
    QFETCH(QString, levelBox);
    EditorFixture f;
    const QString path = QFileInfo(f.listPath()).absolutePath() + "/" + file;
    QString seenLevel;
    f.prompts.formScripts = {[&seenLevel](QDialog& form) {
        seenLevel = form.findChild<QLineEdit*>(QStringLiteral("txtLevelFile"))->text();
        form.reject();
    }};
    // Dropped as a file manager drops it.
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path)});
    f.window->show();
    QVERIFY(QTest::qWaitForWindowExposed(f.window.get()));
    QDragEnterEvent enter(QPoint(200, 200), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(f.window.get(), &enter);
    const bool taken = !opened.isEmpty() || !levelBox.isEmpty();
    QCOMPARE(enter.isAccepted(), taken);
    if (!taken) {
        // Were it dropped all the same, it would be refused in words.
        f.window->OpenDroppedFile(path);
        QVERIFY(f.window->statusBar()->currentMessage().contains(QStringLiteral("nothing was opened")));
        return;
    }
    QDropEvent drop(QPointF(200, 200), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(f.window.get(), &drop);
    QTRY_VERIFY(!f.window->document().ListFileName().isEmpty() || !seenLevel.isEmpty());
    QCOMPARE(QFileInfo(f.window->document().ListFileName()).fileName(), opened);
    QCOMPARE(QFileInfo(seenLevel).fileName(), levelBox);
}

void tst_WindowHabits::numberBoxesSelectTheirTextWhenClicked_data()
{
    QTest::addColumn<int>("tab");
    QTest::newRow("Object Textures") << 1;
    QTest::newRow("Sprites Textures") << 3;
    QTest::newRow("... and Sequences") << 4;
}

// A click into a number box selects the number, so what is typed replaces
// it, as the corner boxes have always done.
void tst_WindowHabits::numberBoxesSelectTheirTextWhenClicked()
{
    QFETCH(int, tab);
    EditorFixture f;
    f.openList(f.listPath());
    f.window->show();
    f.window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(f.window.get()));
    f.window->ShowPage(tab);
    auto* page = f.find<QWidget>(qPrintable(QStringLiteral("fraList_%1").arg(tab - 1)));
    QStringList unselected;
    int clicked = 0;
    for (QLineEdit* box : page->findChildren<QLineEdit*>()) {
        // The corner and Lo/Hi markers are captions in boxes: no click reaches them.
        if (!box->isVisible() || box->focusPolicy() == Qt::NoFocus)
            continue;
        box->setEnabled(true);
        box->setText(QStringLiteral("12"));
        f.find<QWidget>("tbsStrip")->setFocus();
        QTest::mouseClick(box, Qt::LeftButton, {}, box->rect().center());
        QTest::qWait(0);
        ++clicked;
        if (box->selectedText() != box->text() || box->text().isEmpty())
            unselected << box->objectName();
    }
    QVERIFY(clicked >= 3);
    QVERIFY2(unselected.isEmpty(), qPrintable(unselected.join(QStringLiteral(", "))));
}

void tst_WindowHabits::helpShowsTheUserSection()
{
    EditorFixture f;
    f.find<QAction>("mnuHelpHelp")->trigger();
    QVERIFY(f.prompts.messages.isEmpty());
    HelpWindow* help = f.window->helpWindow();
    QVERIFY(help && help->isVisible());
    const QString shown = help->Browser()->toPlainText();
    QVERIFY(shown.startsWith(QStringLiteral("Using the editor")));
    QVERIFY(shown.contains(QStringLiteral("Recent Lists")));
    QVERIFY(!shown.contains(QStringLiteral("brindle-cli info")));
    // Rendered, not shown as source.
    QVERIFY(!shown.contains(QStringLiteral("**")));
    f.find<QAction>("mnuHelpHelp")->trigger();
    QCOMPARE(f.window->findChildren<HelpWindow*>().size(), 1);
}

void tst_WindowHabits::userSectionEndsAtTheNextHeading_data()
{
    QTest::addColumn<QString>("markdown");
    QTest::addColumn<QString>("section");
    const QString heading = HelpWindow::SectionHeading();
    QTest::newRow("between two sections") << "# T\n\nintro\n" + heading + "\nbody\n### sub\nmore\n## next\nno"
                                          << heading + "\nbody\n### sub\nmore";
    QTest::newRow("last section") << heading + "\nbody\n" << heading + "\nbody";
    QTest::newRow("a '#' inside code") << heading + "\n```\n## not a heading\n```\nend\n# top"
                                       << heading + "\n```\n## not a heading\n```\nend";
    QTest::newRow("missing") << QString("# T\n## Other\ntext") << QString();
}

void tst_WindowHabits::userSectionEndsAtTheNextHeading()
{
    QFETCH(QString, markdown);
    QFETCH(QString, section);
    QCOMPARE(HelpWindow::UserSection(markdown), section);
}

QTEST_MAIN(tst_WindowHabits)
#include "tst_WindowHabits.moc"
