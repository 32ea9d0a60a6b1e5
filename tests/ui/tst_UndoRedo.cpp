#include "list/ListDocument.h"
#include "list/ObjectTextureRow.h"
#include "ui/bitmap/ucScrollPic.h"
#include "ui/common/EditorState.h"
#include "ui/common/ListView.h"
#include "ui/main/frmMain.h"
#include "uisupport/EditorFixture.h"
#include "uisupport/PageUser.h"

#include <QAbstractButton>
#include <QAction>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QRandomGenerator>
#include <QTabBar>
#include <QTest>
#include <QUndoStack>

// Edit, Undo and Edit, Redo over the pages as a user works them: whatever
// the user changed on whichever page, taking it all back gives the list
// that was opened, and making it again gives the edited one, byte for byte.
class tst_UndoRedo : public QObject
{
    Q_OBJECT

private slots:
    void randomEditsOnEveryPageComeAndGo_data();
    void randomEditsOnEveryPageComeAndGo();
    void theMenuNamesWhatItTakesBack();
    void undoBringsBackCountsIndexListsAndOutlines();
};

namespace {

// A user making random edits on the four editing pages.
class RandomUser
{
public:
    RandomUser(EditorFixture& f, PageUser& user, quint32 seed) : f(f), user(user), random(seed) {}

    void edit()
    {
        switch (random.bounded(7)) {
        case 0: deleteTexture(); break;
        case 1: sortTextures(); break;
        case 2: addAnimation(); break;
        case 3: deleteAnimation(); break;
        case 4: addSprite(); break;
        case 5: deleteSprite(); break;
        default: editSequence(); break;
        }
    }

private:
    const EditorState& state() const { return f.window->state(); }
    int anyRow(const ListRows& view) { return int(random.bounded(qMax(1, view.count()))); }

    void deleteTexture()
    {
        user.showTab(1);
        if (state().views.lsvTextures.count() == 0)
            return;
        user.chooseRow("lsvTextures", anyRow(state().views.lsvTextures));
        user.press("cmdDel");
    }
    void sortTextures()
    {
        user.showTab(1);
        QHeaderView& header = *user.list("lsvTextures").header();
        const int column = int(random.bounded(4));
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                          QPoint(header.sectionViewportPosition(column) + 4, header.height() / 2));
    }
    void addAnimation()
    {
        user.showTab(2);
        const int textures = state().lsvAvailTextures.count();
        if (textures < 2)
            return;
        const auto any = [&] { return QString::number(1 + random.bounded(textures)); };
        user.addAnimation({any(), any()});
    }
    void deleteAnimation()
    {
        user.showTab(2);
        if (state().views.lsvAnims.count() == 0)
            return;
        user.chooseRow("lsvAnims", anyRow(state().views.lsvAnims));
        user.press("cmdDelAnim");
    }
    void addSprite()
    {
        user.showTab(3);
        user.press("cmdSpriteAdd");
        const int x = int(random.bounded(200)), y = int(random.bounded(200));
        const QStringList values{"0", QString::number(x), QString::number(y), QString::number(x + 9),
                                 QString::number(y + 5), "-3", "3", "-2", "2"};
        const char* boxes[] = {"txtTileSNo", "txtS_X_0", "txtS_Y_0", "txtS_X_1", "txtS_Y_1",
                               "txtTop",     "txtBottom", "txtLeft", "txtRight"};
        for (int i = 0; i < 9; ++i)
            user.type(boxes[i], values[i]);
        user.press("cmdSpriteAdd");
    }
    void deleteSprite()
    {
        user.showTab(3);
        if (state().views.lsvSprites.count() == 0)
            return;
        user.chooseRow("lsvSprites", anyRow(state().views.lsvSprites));
        user.press("cmdSpriteDelete");
    }
    void editSequence()
    {
        user.showTab(4);
        if (state().views.lsvSequences.count() == 0)
            return;
        user.chooseRow("lsvSequences", anyRow(state().views.lsvSequences));
        user.press("cmdSeqEdit");
        user.type("txtSeqObject", QString::number(random.bounded(500)));
        user.press("cmdSeqEdit");
    }

    EditorFixture& f;
    PageUser& user;
    QRandomGenerator random;
};

QByteArray SaveAs(EditorFixture& f, const QString& name)
{
    const QString path = f.dir.filePath(name);
    f.prompts.fileNames << path;
    f.find<QAction>("mnuFileSaveAsList")->trigger();
    return ScratchDir::read(path);
}

} // namespace

void tst_UndoRedo::randomEditsOnEveryPageComeAndGo_data()
{
    QTest::addColumn<quint32>("seed");
    QTest::addColumn<int>("edits");
    QTest::addColumn<bool>("keys"); // the keyboard's shortcuts, else the menu
    QTest::newRow("menu") << 1u << 25 << false;
    QTest::newRow("keys") << 2u << 25 << true;
    QTest::newRow("menu, longer") << 3u << 60 << false;
}

void tst_UndoRedo::randomEditsOnEveryPageComeAndGo()
{
    QFETCH(quint32, seed);
    QFETCH(int, edits);
    QFETCH(bool, keys);
    EditorFixture f;
    PageUser user(f, 1);
    const QByteArray original = ScratchDir::read(f.listPath());
    QUndoStack& stack = *f.window->document().undoStack();
    RandomUser editor(f, user, seed);
    for (int i = 0; i < edits; ++i)
        editor.edit();
    QVERIFY2(stack.count() >= edits / 2, qPrintable(QString::number(stack.count())));
    const QByteArray edited = SaveAs(f, "edited.trt");
    QVERIFY(edited != original);

    // Back to the start, switching pages on the way.
    QRandomGenerator pages(seed);
    const auto step = [&](QAction* action, QKeySequence key) {
        user.showTab(1 + int(pages.bounded(5)));
        if (!keys) {
            action->trigger();
            return;
        }
        f.window->tbsStrip()->setFocus();
        QTest::keySequence(f.window.get(), key);
    };
    for (int guard = 0; stack.canUndo() && guard < 1000; ++guard)
        step(f.find<QAction>("mnuEditUndo"), QKeySequence(Qt::CTRL | Qt::Key_Z));
    QVERIFY(!stack.canUndo());
    QCOMPARE(SaveAs(f, "undone.trt"), original);
    for (int guard = 0; stack.canRedo() && guard < 1000; ++guard)
        step(f.find<QAction>("mnuEditRedo"),
             guard % 2 ? QKeySequence(Qt::CTRL | Qt::Key_Y) : QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z));
    QVERIFY(!stack.canRedo());
    QCOMPARE(SaveAs(f, "redone.trt"), edited);
}

void tst_UndoRedo::theMenuNamesWhatItTakesBack()
{
    EditorFixture f;
    PageUser user(f, 1);
    QAction& undo = *f.find<QAction>("mnuEditUndo");
    QAction& redo = *f.find<QAction>("mnuEditRedo");
    QVERIFY(!undo.isEnabled() && !redo.isEnabled());
    QCOMPARE(undo.text(), QStringLiteral("&Undo"));
    QCOMPARE(redo.text(), QStringLiteral("&Redo"));
    QCOMPARE(undo.shortcuts(), QList<QKeySequence>({QKeySequence(Qt::CTRL | Qt::Key_Z)}));
    QCOMPARE(redo.shortcuts(), QList<QKeySequence>({QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z),
                                                    QKeySequence(Qt::CTRL | Qt::Key_Y)}));
    user.chooseRow("lsvTextures", 12);
    user.press("cmdDel");
    QCOMPARE(undo.text(), QStringLiteral("&Undo Delete Texture 12"));
    // The deleted row's choice went with it, not to the row after it.
    QCOMPARE(f.window->state().views.lsvTextures.selectedRow(), -1);
    QVERIFY(!user.list("lsvTextures").currentIndex().isValid());
    QVERIFY(undo.isEnabled() && f.find<QAction>("mnuFileSaveList")->isEnabled());
    undo.trigger();
    QCOMPARE(undo.text(), QStringLiteral("&Undo"));
    QCOMPARE(redo.text(), QStringLiteral("&Redo Delete Texture 12"));
    QVERIFY(!undo.isEnabled() && redo.isEnabled());
    // Back at the opened state: nothing to save.
    QVERIFY(!f.window->document().isModified() && !f.find<QAction>("mnuFileSaveList")->isEnabled());

    // Another list opened: the history went with the list it was made on.
    redo.trigger();
    f.prompts.saveAnswers << IPromptService::SaveAnswer::Discard;
    f.openList(f.listPath());
    QVERIFY(!undo.isEnabled() && !redo.isEnabled());
    QCOMPARE(f.window->state().views.lsvTextures.count(), 30);
}

void tst_UndoRedo::undoBringsBackCountsIndexListsAndOutlines()
{
    EditorFixture f;
    PageUser user(f, 1);
    EditorState& s = f.window->state();
    user.press("cmdDraw");
    const int outlines = s.lsvDrawList.count();
    QVERIFY(outlines > 0);
    s.lsvObjects.setCheckState(5, Qt::Unchecked); // a choice of the user's, kept
    for (int row : {29, 3})
        user.chooseRow("lsvTextures", row), user.press("cmdDel");
    QCOMPARE(user.text("txtTextureQty"), QStringLiteral("28"));
    QCOMPARE(s.lsvObjects.count(), 30);
    QCOMPARE(s.lsvAvailTextures.count(), 28);
    QCOMPARE(s.lsvDrawList.count(), outlines - 2);

    QAction& undo = *f.find<QAction>("mnuEditUndo");
    undo.trigger();
    undo.trigger();
    QCOMPARE(user.text("txtTextureQty"), QStringLiteral("30"));
    QCOMPARE(s.lsvObjects.count(), 32);
    QCOMPARE(s.lsvAvailTextures.count(), 30);
    QCOMPARE(s.lsvObjects.checkState(5), Qt::Unchecked);
    QCOMPARE(s.lsvObjects.checkState(31), Qt::Checked);
    QCOMPARE(s.lsvDrawList.count(), outlines);

    // An undone texture edit moves its outline back.
    ListRows& textures = s.views.lsvTextures;
    const QString before = s.lsvDrawList.row(0).subItems.join(QLatin1Char(' '));
    const int drawn = textures.findKey(QStringLiteral("T1"));
    ObjectTexture moved = f.window->document().tables().textures.at(drawn).record;
    moved.setColumn(ObjectTextureRow::XColumn(0), moved.column(ObjectTextureRow::XColumn(0)) + 7);
    QVERIFY(f.window->document().EditTexture(1, moved));
    QVERIFY(s.lsvDrawList.row(0).subItems.join(QLatin1Char(' ')) != before);
    undo.trigger();
    QCOMPARE(s.lsvDrawList.row(0).subItems.join(QLatin1Char(' ')), before);

    // Animation and sprite counts follow their rows too.
    user.showTab(2);
    user.addAnimation({"1", "2"});
    QCOMPARE(user.text("lblAnimTotal"), QString::number(s.views.lsvAnims.count()));
    undo.trigger();
    QCOMPARE(user.text("lblAnimTotal"), QString::number(s.views.lsvAnims.count()));
}

QTEST_MAIN(tst_UndoRedo)
#include "tst_UndoRedo.moc"
