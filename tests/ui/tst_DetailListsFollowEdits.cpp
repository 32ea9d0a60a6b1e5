#include "list/rows/ListViewModel.h"
#include "ui/common/EditorState.h"
#include "ui/common/ListView.h"
#include "ui/main/frmMain.h"
#include "uisupport/EditorFixture.h"
#include "uisupport/PageUser.h"

#include <QAbstractButton>
#include <QAction>
#include <QTest>

// A detail list shows what its chosen row holds: the sprites of a sequence,
// the textures of a range, with their places on the bitmap. After an edit
// of any list it is made from, it shows at once what choosing that row again
// would show, never what it showed before the edit.
class tst_DetailListsFollowEdits : public QObject
{
    Q_OBJECT

public:
    enum class Edit { SequenceShortened, SpriteMoved, RangeTextureMoved, RangeTextureDeleted, SequenceUndone };
    Q_ENUM(Edit)

private slots:
    void shownRowFollowsTheEdit_data();
    void shownRowFollowsTheEdit();

private:
    static QStringList Rows(const ListRows& list);
    static void MakeEdit(EditorFixture& f, PageUser& user, Edit edit, const ListRows& shown);
};

QStringList tst_DetailListsFollowEdits::Rows(const ListRows& list)
{
    QStringList rows;
    for (int row = 0; row < list.count(); ++row)
        rows << (QStringList{list.text(row)} + list.row(row).subItems).join(QLatin1Char(' '));
    return rows;
}

void tst_DetailListsFollowEdits::MakeEdit(EditorFixture& f, PageUser& user, Edit edit, const ListRows& shown)
{
    switch (edit) {
    case Edit::SequenceShortened:
    case Edit::SequenceUndone:
        // The demo's sequence 00006 holds sprites 16 to 20; the next starts at 21.
        user.press("cmdSeqEdit");
        user.type("txtSeqStop", QStringLiteral("19"));
        user.press("cmdSeqEdit");
        if (edit == Edit::SequenceUndone) {
            f.window->findChild<QAction*>(QStringLiteral("mnuEditUndo"))->trigger();
            user.choose("lsvSequences", QStringLiteral("00006"));
            user.press("cmdSeqEdit");
            user.type("txtSeqStop", QStringLiteral("18"));
            user.press("cmdSeqEdit");
        }
        return;
    case Edit::SpriteMoved:
        user.showTab(3);
        user.choose("lsvSprites", QStringLiteral("17"));
        user.press("cmdSpriteEdit");
        user.type("txtS_X_0", QStringLiteral("3"));
        user.type("txtS_X_1", QStringLiteral("40"));
        user.press("cmdSpriteEdit");
        return;
    case Edit::RangeTextureMoved:
    case Edit::RangeTextureDeleted: {
        // The range's second texture, found in the texture list by its number.
        const qint64 texture = shown.text(1).toLongLong();
        user.showTab(1);
        const ListRows& textures = f.window->state().views.lsvTextures;
        for (int row = 0; row < textures.count(); ++row) {
            if (textures.text(row).toLongLong() == texture)
                user.chooseRow("lsvTextures", row);
        }
        if (edit == Edit::RangeTextureDeleted) {
            user.press("cmdDel");
            return;
        }
        user.press("cmdEdit");
        user.type("txtX_0", QStringLiteral("3"));
        user.press("cmdEdit");
        return;
    }
    }
}

void tst_DetailListsFollowEdits::shownRowFollowsTheEdit_data()
{
    QTest::addColumn<Edit>("edit");
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("chosenList");
    QTest::addColumn<QString>("chosenRow");
    QTest::addColumn<QString>("detailList");
    QTest::newRow("sequence shortened by one") << Edit::SequenceShortened << 4 << "lsvSequences" << "00006"
                                               << "lsvOneSequence";
    QTest::newRow("sequence edited, undone, edited again") << Edit::SequenceUndone << 4 << "lsvSequences" << "00006"
                                                           << "lsvOneSequence";
    QTest::newRow("a sprite of the sequence moved") << Edit::SpriteMoved << 4 << "lsvSequences" << "00006"
                                                    << "lsvOneSequence";
    QTest::newRow("a texture of the range moved") << Edit::RangeTextureMoved << 2 << "lsvAnims" << "00"
                                                  << "lsvOneAnim";
    QTest::newRow("a texture of the range deleted") << Edit::RangeTextureDeleted << 2 << "lsvAnims" << "00"
                                                    << "lsvOneAnim";
}

void tst_DetailListsFollowEdits::shownRowFollowsTheEdit()
{
    QFETCH(Edit, edit);
    QFETCH(int, tab);
    QFETCH(QString, chosenList);
    QFETCH(QString, chosenRow);
    QFETCH(QString, detailList);
    EditorFixture f;
    PageUser user(f, tab);
    user.choose(qPrintable(chosenList), chosenRow);
    const ListRows& shown = *f.find<ListView>(qPrintable(detailList))->listModel();
    const QStringList before = Rows(shown);
    QVERIFY(shown.count() >= 2);

    MakeEdit(f, user, edit, shown);
    QTest::qWait(0);
    const QStringList followed = Rows(shown);
    QVERIFY2(followed != before, qPrintable(followed.join(QLatin1String(" | "))));

    // Choosing the row again shows nothing else.
    user.showTab(tab);
    user.choose(qPrintable(chosenList), chosenRow);
    QCOMPARE(followed, Rows(shown));
}

QTEST_MAIN(tst_DetailListsFollowEdits)
#include "tst_DetailListsFollowEdits.moc"
