#include "list/ListDocument.h"
#include "ui/bitmap/ucScrollPic.h"
#include "ui/bitmap/ucScrollPicCanvas.h"
#include "ui/common/EditorState.h"
#include "ui/common/ListView.h"
#include "ui/main/frmMain.h"
#include "uisupport/EditorFixture.h"
#include "uisupport/PageUser.h"

#include <QAbstractButton>
#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QStatusBar>
#include <QTest>

#include <functional>

// One thing a user does to a window, before or as the change under test.
using Step = std::function<void(EditorFixture&, PageUser&)>;
Q_DECLARE_METATYPE(Step)

// Whatever a user had on show or half entered on any page, New, Open,
// Close, a deletion, Undo and Redo leave the window as a window that never
// saw it would be after the same steps: every caption, box, colour, count,
// check box and outline belongs to the list now open, or to none.
class tst_ListTransitions : public QObject
{
    Q_OBJECT

private slots:
    void nothingOfTheEarlierStateStays_data();
    void nothingOfTheEarlierStateStays();
};

namespace {

constexpr int TriangleRow = 25;
const QString OldLine = QStringLiteral("a line about the earlier state");

// A sprite, an animation and a sequence half entered on their pages.
void BeBusyBesideTextures(PageUser& user)
{
    user.showTab(3);
    user.press("cmdSpriteAdd");
    user.type("txtS_X_0", "5");
    user.showTab(2);
    user.press("cmdAddAnim");
    user.sendTextures({"3", "4"});
    user.showTab(4);
    user.chooseRow("lsvSequences", 0);
    user.press("cmdSeqEdit");
}

void Trigger(EditorFixture& f, const char* action)
{
    f.find<QAction>(action)->trigger();
}

// Everything a user can see of the window's state, one line per control.
QStringList Snapshot(EditorFixture& f)
{
    QStringList seen;
    frmMain& window = *f.window;
    for (const QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
        if (button->objectName().isEmpty())
            continue;
        seen << QStringLiteral("%1 '%2' %3 %4")
                    .arg(button->objectName(), button->text())
                    .arg(button->isEnabled())
                    .arg(button->isChecked());
    }
    for (const QLineEdit* box : window.findChildren<QLineEdit*>()) {
        if (box->objectName().isEmpty())
            continue;
        seen << QStringLiteral("%1 '%2' %3 %4 %5 %6")
                    .arg(box->objectName(), box->text())
                    .arg(box->isEnabled())
                    .arg(box->isReadOnly())
                    .arg(box->palette().color(QPalette::Base).name(), box->palette().color(QPalette::Text).name());
    }
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        if (label->objectName().startsWith(QLatin1String("lbl")))
            seen << QStringLiteral("%1 '%2'").arg(label->objectName(), label->text());
    // The two windows work in scratch folders of their own.
    seen.replaceInStrings(QDir::toNativeSeparators(f.dir.path()), QStringLiteral("DIR"));
    }
    // The rows chosen in the list's own tables; an index list's choice is
    // only where the user left it.
    const QList<ListRows*> tables = window.document().views().all();
    for (const ListView* list : window.findChildren<ListView*>()) {
        const ListRows* rows = list->listModel();
        seen << QStringLiteral("%1 rows %2 chosen %3")
                    .arg(list->objectName())
                    .arg(rows->count())
                    .arg(tables.contains(rows) ? rows->selectedRow() : 0);
    }
    const ucScrollPicCanvas& canvas = *window.state().picture()->Picture1();
    const auto points = [](const QPolygon& polygon) {
        QStringList xy;
        for (const QPoint& point : polygon)
            xy << QStringLiteral("%1,%2").arg(point.x()).arg(point.y());
        return xy.join(QLatin1Char(' '));
    };
    seen << QStringLiteral("highlight %1").arg(points(canvas.highlight()));
    seen << QStringLiteral("edit outline %1").arg(points(canvas.editOutline()));
    seen << QStringLiteral("title '%1' %2").arg(window.windowTitle()).arg(window.isWindowModified());
    // Controls are found in no set order.
    seen.sort();
    return seen;
}

// A user in the middle of things: a triangle being edited with flips, its
// attribute and free corners, its outline on the bitmap; an old status line;
// with everyPage, a sprite, an animation and a sequence half entered too.
void BeBusy(EditorFixture& f, PageUser& user, bool everyPage)
{
    if (everyPage)
        BeBusyBesideTextures(user);
    user.showTab(1);
    user.chooseRow("lsvTextures", TriangleRow);
    user.press("cmdEdit");
    user.press("cmdFlipHor");
    user.press("cmdFlipVert");
    user.press("cmdAttrib");
    f.window->statusBar()->showMessage(OldLine);
    QVERIFY(f.find<QCheckBox>("chkFreeCorners")->isChecked());
    QVERIFY(!f.window->state().picture()->Picture1()->editOutline().isEmpty());
}

} // namespace

void tst_ListTransitions::nothingOfTheEarlierStateStays_data()
{
    QTest::addColumn<Step>("before"); // what both windows do first
    QTest::addColumn<Step>("change"); // the step after which nothing old shows
    // Whether what the other pages were entering goes too, or only the
    // object page's (a deletion there leaves the other pages at their work).
    QTest::addColumn<bool>("everyPage");
    const Step nothing = [](EditorFixture&, PageUser&) {};
    const Step edit = [](EditorFixture& f, PageUser&) { QVERIFY(f.editTexture(3)); };
    const Step editAndUndo = [](EditorFixture& f, PageUser&) {
        QVERIFY(f.editTexture(3));
        Trigger(f, "mnuEditUndo");
    };
    const auto discard = [](EditorFixture& f) {
        if (f.window->document().isModified())
            f.prompts.saveAnswers << IPromptService::SaveAnswer::Discard;
    };
    const Step open = [discard](EditorFixture& f, PageUser&) {
        discard(f);
        f.openList(f.listPath());
    };
    const Step close = [discard](EditorFixture& f, PageUser&) {
        discard(f);
        Trigger(f, "mnuFileCloseList");
    };
    const Step undo = [](EditorFixture& f, PageUser&) { Trigger(f, "mnuEditUndo"); };
    const Step undoByKey = [](EditorFixture& f, PageUser& user) {
        user.list("lsvTextures").setFocus();
        QTest::keySequence(f.window.get(), QKeySequence(Qt::CTRL | Qt::Key_Z));
    };
    const Step deleteByKey = [](EditorFixture&, PageUser& user) {
        user.list("lsvTextures").setFocus();
        QTest::keyClick(&user.list("lsvTextures"), Qt::Key_Delete);
    };
    QTest::newRow("open") << nothing << open << true;
    QTest::newRow("open over changes") << edit << open << true;
    QTest::newRow("new from a level") << nothing << Step([](EditorFixture& f, PageUser&) {
        f.newList(f.dir.filePath("new.trt"), f.levelPath(), f.bitmapPath());
    }) << true;
    QTest::newRow("new stand-alone") << nothing << Step([](EditorFixture& f, PageUser&) {
        f.newList(f.dir.filePath("alone.trt"), QString(), f.bitmapPath());
    }) << true;
    QTest::newRow("close") << nothing << close << true;
    QTest::newRow("close over changes") << edit << close << true;
    QTest::newRow("delete key") << nothing << deleteByKey << false;
    QTest::newRow("undo") << edit << undo << true;
    QTest::newRow("undo by key") << edit << undoByKey << true;
    QTest::newRow("redo") << editAndUndo << Step([](EditorFixture& f, PageUser&) { Trigger(f, "mnuEditRedo"); })
                          << true;
}

void tst_ListTransitions::nothingOfTheEarlierStateStays()
{
    QFETCH(Step, before);
    QFETCH(Step, change);
    QFETCH(bool, everyPage);

    // The same rows chosen, nothing entered.
    EditorFixture fresh;
    PageUser freshUser(fresh, 4);
    before(fresh, freshUser);
    if (everyPage)
        freshUser.chooseRow("lsvSequences", 0);
    freshUser.showTab(1);
    freshUser.chooseRow("lsvTextures", TriangleRow);
    change(fresh, freshUser);

    EditorFixture busy;
    PageUser busyUser(busy, 1);
    before(busy, busyUser);
    BeBusy(busy, busyUser, everyPage);
    change(busy, busyUser);

    const QStringList seen = Snapshot(busy);
    const QStringList expected = Snapshot(fresh);
    for (qsizetype i = 0; i < qMin(seen.size(), expected.size()); ++i)
        QCOMPARE(seen[i], expected[i]);
    QCOMPARE(seen.size(), expected.size());
    QVERIFY2(busy.window->statusBar()->currentMessage() != OldLine, "the status line still tells of before");
}

QTEST_MAIN(tst_ListTransitions)
#include "tst_ListTransitions.moc"
