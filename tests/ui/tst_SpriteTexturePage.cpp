#include "level/TextureUsage.h"
#include "uisupport/EditorFixture.h"
#include "ui/common/EditorState.h"
#include "ui/common/ListView.h"
#include "uisupport/UserActions.h"
#include "ui/main/frmMain.h"
#include "ui/bitmap/ucScrollPic.h"

#include <QAction>
#include <QApplication>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTest>

using Cells = QStringList;

// The "Sprites Textures" page driven as a user would, over the demo list
// (29 sprites, S0 to S28, in tiles 2 and 3).
class tst_SpriteTexturePage : public QObject
{
    Q_OBJECT

private slots:
    void startsViewing();
    void validationNamesTheFirstFault_data();
    void validationNamesTheFirstFault();
    void spriteStoredInTile3LoadsAgain();
    void editChangesOnlyTheLoadedRow();
    void deletionAsksFirst_data();
    void deletionAsksFirst();
    void txtNumShowsTheCountBeforeAnAdd_data();
    void txtNumShowsTheCountBeforeAnAdd();
    void addAfterDeletionTakesAFreeNumber();
    void drawOutlinesTickedSprites();
    void editsSurviveSaveAndReopen();

private:
    struct Page
    {
        EditorFixture f;
        Page();
        EditorState& state() const { return f.window->state(); }
        ListRows& sprites() const { return state().views.lsvSprites; }
        QLineEdit* box(const char* name) const { return f.find<QLineEdit>(name); }
        QPushButton* button(const char* name) const { return f.find<QPushButton>(name); }
        void click(const char* name) const { QTest::mouseClick(button(name), Qt::LeftButton); }
        void type(const char* name, const QString& text) const { UserActions::TypeInto(box(name), text); }
        void load(int row) const { UserActions::ClickRow(f.find<ListView>("lsvSprites"), row); }
        // Tile, X1, Y1, X2, Y2, Top, Bottom, Left, Right into their boxes.
        void fill(const Cells& values) const;
        Cells boxes() const;
    };
};

namespace {

const char* const FrameBoxes[] = {"txtTileSNo", "txtS_X_0", "txtS_Y_0", "txtS_X_1", "txtS_Y_1",
                                  "txtTop",     "txtBottom", "txtLeft", "txtRight"};
constexpr int OkCancelExclamation = 49;

} // namespace

tst_SpriteTexturePage::Page::Page()
{
    f.openList(f.listPath());
    f.window->show();
    QVERIFY(QTest::qWaitForWindowExposed(f.window.get()));
    f.window->ShowPage(3);
}

void tst_SpriteTexturePage::Page::fill(const Cells& values) const
{
    for (int i = 0; i < values.size(); ++i)
        type(FrameBoxes[i], values[i]);
}

Cells tst_SpriteTexturePage::Page::boxes() const
{
    Cells texts;
    for (const char* name : FrameBoxes)
        texts << box(name)->text();
    return texts;
}

void tst_SpriteTexturePage::startsViewing()
{
    Page p;
    for (const auto& [name, caption] : QList<std::pair<const char*, const char*>>{
             {"cmdSpriteAdd", "Add"}, {"cmdSpriteEdit", "Edit"}, {"cmdSpriteDelete", "Delete"},
             {"cmdSpriteCancel", "Cancel"}, {"cmdDrawSprite", "Draw"}, {"cmdSpriteColor", "Color"}})
        QCOMPARE(p.button(name)->text(), QString::fromLatin1(caption));
    QVERIFY(!p.button("cmdSpriteEdit")->isEnabled() && !p.button("cmdSpriteDelete")->isEnabled());
    for (const char* name : FrameBoxes) {
        QVERIFY2(!p.box(name)->isEnabled(), name);
        QCOMPARE(p.box(name)->palette().color(QPalette::Base), QColor(0xE0, 0xE0, 0xE0));
    }
    QCOMPARE(p.box("txtNum")->text(), QStringLiteral("29"));
    QVERIFY(p.f.find<QLabel>("lblKey")->isHidden());

    p.click("cmdSpriteAdd");
    QCOMPARE(p.button("cmdSpriteAdd")->text(), QStringLiteral("Accept"));
    for (const char* name : FrameBoxes)
        QVERIFY2(p.box(name)->isEnabled(), name);
    QCOMPARE(p.box("txtNo")->text(), QStringLiteral("29"));
    p.click("cmdSpriteCancel");
    QCOMPARE(p.button("cmdSpriteAdd")->text(), QStringLiteral("Add"));
    QVERIFY(!p.box("txtTop")->isEnabled());
    QCOMPARE(p.sprites().count(), 29);
}

void tst_SpriteTexturePage::validationNamesTheFirstFault_data()
{
    QTest::addColumn<Cells>("values"); // tile, X1, Y1, X2, Y2, Top, Bottom, Left, Right
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("caret");

    const Cells good{"0", "10", "20", "42", "52", "-10", "10", "-5", "5"};
    auto with = [&good](int at, const QString& value, int at2 = -1, const QString& value2 = {}) {
        Cells values = good;
        values[at] = value;
        if (at2 >= 0)
            values[at2] = value2;
        return values;
    };
    const QString blank = QStringLiteral("Some values have been left blank:\r\nAll edit boxes must have values.");
    const QString notNumber = QStringLiteral("Some values are not numerical:\r\nAll entries must be numerical values.");
    const QString range = QStringLiteral("Some values are over the limit of possible coordinates:\r\n"
                                         "All entries must be between -32768 and 32767.");
    QTest::newRow("blank before a letter") << with(8, "", 2, "abc") << "Missing Coordinate" << blank << "txtRight";
    QTest::newRow("not a number") << with(7, "5px") << "Wrong Value Type" << notNumber << "txtLeft";
    QTest::newRow("beyond 16 bits") << with(6, "40000") << "Wrong Value Type" << range << "txtBottom";
    QTest::newRow("just beyond, once rounded") << with(3, "32767.5") << "Wrong Value Type" << range << "txtS_X_1";
    QTest::newRow("negative corner") << with(2, "-1") << "Wrong Coordinate Values"
                                     << "All X and Y coordinates must be positive." << "txtS_Y_0";
    QTest::newRow("X1 = X2") << with(3, "10") << "Wrong Coordinate Values" << "X1 must be smaller than X2"
                             << "txtS_X_0";
    QTest::newRow("Y1 = Y2") << with(4, "20") << "Wrong Coordinate Values" << "Y1 must be smaller than Y2"
                             << "txtS_Y_0";
    QTest::newRow("Top = Bottom") << with(5, "10") << "Wrong Offset Values" << "Top must be smaller than Bottom"
                                  << "txtTop";
    QTest::newRow("Left > Right") << with(7, "6") << "Wrong Offset Values" << "Left must be smaller than Right"
                                  << "txtLeft";
    // The tile is not checked; negative offsets are fine.
    QTest::newRow("valid, tile not a number") << with(0, "x") << "" << "" << "";
}

void tst_SpriteTexturePage::validationNamesTheFirstFault()
{
    QFETCH(Cells, values);
    QFETCH(QString, title);
    QFETCH(QString, text);
    QFETCH(QString, caret);
    Page p;
    p.click("cmdSpriteAdd");
    p.fill(values);
    p.click("cmdSpriteAdd");
    if (title.isEmpty()) {
        QVERIFY(p.f.prompts.messages.isEmpty());
        QCOMPARE(p.sprites().count(), 30);
        QCOMPARE(p.button("cmdSpriteAdd")->text(), QStringLiteral("Add"));
        return;
    }
    QCOMPARE(p.f.prompts.messages.size(), 1);
    QCOMPARE(p.f.prompts.messages[0].title, title);
    QCOMPARE(p.f.prompts.messages[0].text, text);
    QCOMPARE(p.f.prompts.messages[0].style, OkCancelExclamation);
    QCOMPARE(QApplication::focusWidget()->objectName(), caret);
    // Nothing stored; the frame stays as typed, still adding.
    QCOMPARE(p.sprites().count(), 29);
    QCOMPARE(p.button("cmdSpriteAdd")->text(), QStringLiteral("Accept"));
    QCOMPARE(p.boxes(), values);
    QVERIFY(!p.state().document().isModified());
}

void tst_SpriteTexturePage::spriteStoredInTile3LoadsAgain()
{
    Page p;
    p.click("cmdSpriteAdd");
    p.fill({"3", "10", "800", "42", "830", "-16", "16", "-8", "8"});
    p.click("cmdSpriteAdd");

    const ListRows& sprites = p.sprites();
    QCOMPARE(sprites.count(), 30);
    QCOMPARE(sprites.key(29), QStringLiteral("S29"));
    QCOMPARE(sprites.text(29), QStringLiteral("29"));
    // Y within the tile; the spans as n x 256 + 255.
    QCOMPARE(sprites.row(29).subItems, (Cells{"3", "10", "32", "8447", "7935", "-8", "-16", "8", "16"}));
    // The count is the one taken before the addition, which formed the key.
    QCOMPARE(p.box("txtNum")->text(), QStringLiteral("29"));
    QCOMPARE(p.state().lsvSpriteIndex.count(), 32);
    QCOMPARE(p.state().lsvSpriteIndex.checkState(31), Qt::Checked);
    QCOMPARE(p.f.find<QLabel>("lblAvailSTextures")->text(), QStringLiteral("30"));
    QVERIFY(p.state().document().isModified() && p.f.find<QAction>("mnuFileSaveList")->isEnabled());
    QCOMPARE(p.boxes(), Cells(9));

    p.load(29);
    QCOMPARE(p.boxes(), (Cells{"3", "10", "800", "42", "830", "-16", "16", "-8", "8"}));
    QCOMPARE(p.box("txtNo")->text(), QStringLiteral("29"));
    QVERIFY(p.button("cmdSpriteEdit")->isEnabled() && p.button("cmdSpriteDelete")->isEnabled());
    QVERIFY(!p.box("txtS_X_0")->isEnabled());
}

void tst_SpriteTexturePage::editChangesOnlyTheLoadedRow()
{
    Page p;
    const Cells before = p.sprites().row(5).subItems;
    p.load(4);
    // S4: tile 2, X 3, Y 75, corners 25 pixels apart ((6655 - 255) / 256).
    QCOMPARE(p.boxes(), (Cells{"2", "3", "587", "28", "612", "-104", "0", "-52", "52"}));
    p.click("cmdSpriteEdit");
    QCOMPARE(p.button("cmdSpriteEdit")->text(), QStringLiteral("Accept"));
    p.type("txtRight", "60");
    p.type("txtS_X_1", "3");
    p.click("cmdSpriteEdit");
    QCOMPARE(p.f.prompts.messages.value(0).text, QStringLiteral("X1 must be smaller than X2"));
    QCOMPARE(p.button("cmdSpriteEdit")->text(), QStringLiteral("Accept"));
    p.type("txtS_X_1", "30");
    p.click("cmdSpriteEdit");
    QCOMPARE(p.sprites().row(4).subItems, (Cells{"2", "3", "75", "7167", "6655", "-52", "-104", "60", "0"}));
    QCOMPARE(p.sprites().row(5).subItems, before);
    QCOMPARE(p.sprites().count(), 29);
    QCOMPARE(p.button("cmdSpriteEdit")->text(), QStringLiteral("Edit"));
    QVERIFY(!p.button("cmdSpriteEdit")->isEnabled());
    QVERIFY(p.state().document().isModified());
}

void tst_SpriteTexturePage::deletionAsksFirst_data()
{
    // The question with the level's counts comes first, then the warning
    // every deletion of a sprite gives.
    QTest::addColumn<bool>("deleteAnswer");
    QTest::addColumn<int>("warningAnswer");
    QTest::addColumn<Cells>("keys"); // the first six after the answers
    QTest::addColumn<Cells>("asked");
    const Cells both{"Delete Sprite", "Delicate Deletion"};
    QTest::newRow("Delete, OK") << true << 1 << Cells{"S0", "S1", "S2", "S4", "S5", "S6"} << both;
    QTest::newRow("Delete, Cancel") << true << 2 << Cells{"S0", "S1", "S2", "S3", "S4", "S5"} << both;
    QTest::newRow("Cancel") << false << 1 << Cells{"S0", "S1", "S2", "S3", "S4", "S5"} << Cells{"Delete Sprite"};
}

void tst_SpriteTexturePage::deletionAsksFirst()
{
    QFETCH(bool, deleteAnswer);
    QFETCH(int, warningAnswer);
    QFETCH(Cells, keys);
    QFETCH(Cells, asked);
    Page p;
    p.load(3);
    p.f.prompts.confirmAnswers = {deleteAnswer};
    p.f.prompts.answers = {warningAnswer};
    p.click("cmdSpriteDelete");
    Cells titles;
    for (const ScriptedPrompts::Message& message : p.f.prompts.messages)
        titles << message.title;
    QCOMPARE(titles, asked);
    const std::optional<TextureUsage> usage = TextureUsage::ofLevel(p.f.levelPath());
    QVERIFY(usage && usage->roomSprites.from(3) + usage->sequenceEnds.from(3) > 0);
    QVERIFY2(p.f.prompts.messages[0].text.startsWith(
                 QStringLiteral("%1 room sprites and %2 sequences of %3 use sprite 03 or the sprites after it")
                     .arg(usage->roomSprites.from(3))
                     .arg(usage->sequenceEnds.from(3))
                     .arg(QFileInfo(p.f.levelPath()).fileName())),
             qPrintable(p.f.prompts.messages[0].text));
    if (asked.size() > 1) {
        QCOMPARE(p.f.prompts.messages[1].text,
                 QStringLiteral("Deleting any sprite texture will make the Sprite Sequence List useless. \r\n"
                                "Make very sure to remove in the Sequence List the textures that no longer exists!"));
        QCOMPARE(p.f.prompts.messages[1].style, OkCancelExclamation);
    }
    Cells got;
    for (int row = 0; row < 6; ++row)
        got << p.sprites().key(row);
    QCOMPARE(got, keys);
    const bool deleted = keys[3] == QLatin1String("S4");
    // Remaining rows keep their numbers.
    QCOMPARE(p.sprites().text(3), deleted ? QStringLiteral("04") : QStringLiteral("03"));
    QCOMPARE(p.box("txtNum")->text(), deleted ? QStringLiteral("28") : QStringLiteral("29"));
    QCOMPARE(p.state().lsvSpriteIndex.count(), deleted ? 30 : 31);
    QCOMPARE(p.f.find<QLabel>("lblAvailSTextures")->text(), deleted ? QStringLiteral("28") : QStringLiteral("29"));
    QCOMPARE(p.state().document().isModified(), deleted);
}

void tst_SpriteTexturePage::txtNumShowsTheCountBeforeAnAdd_data()
{
    QTest::addColumn<bool>("deleteFirst");
    QTest::addColumn<QString>("shown");
    QTest::newRow("added to the demo's 29") << false << "29";
    QTest::newRow("added after a deletion") << true << "28";
}

void tst_SpriteTexturePage::txtNumShowsTheCountBeforeAnAdd()
{
    QFETCH(bool, deleteFirst);
    QFETCH(QString, shown);
    Page p;
    if (deleteFirst) {
        p.load(3);
        p.click("cmdSpriteDelete");
    }
    p.click("cmdSpriteAdd");
    p.fill({"2", "0", "512", "8", "520", "-1", "1", "-1", "1"});
    p.click("cmdSpriteAdd");
    QCOMPARE(p.box("txtNum")->text(), shown);
    // Undone, the count follows the rows again.
    p.f.find<QAction>("mnuEditUndo")->trigger();
    QCOMPARE(p.box("txtNum")->text(), QString::number(p.sprites().count()));
}

void tst_SpriteTexturePage::addAfterDeletionTakesAFreeNumber()
{
    Page p;
    p.load(3);
    p.click("cmdSpriteDelete");
    // 28 rows, but S28 is still in the list: the new sprite is S29.
    p.click("cmdSpriteAdd");
    QCOMPARE(p.box("txtNo")->text(), QStringLiteral("29"));
    p.fill({"2", "0", "512", "8", "520", "-1", "1", "-1", "1"});
    p.click("cmdSpriteAdd");
    QCOMPARE(p.sprites().count(), 29);
    QCOMPARE(p.sprites().key(27), QStringLiteral("S28"));
    QCOMPARE(p.sprites().key(28), QStringLiteral("S29"));
    QCOMPARE(p.sprites().row(27).subItems[1], QStringLiteral("225"));
    QVERIFY(p.f.window->statusBar()->currentMessage().contains(QLatin1String("number 29")));
}

void tst_SpriteTexturePage::drawOutlinesTickedSprites()
{
    Page p;
    const ListRows& drawn = p.state().lsvSpriteDrawLisr;
    UserActions::ClickCheckBox(p.f.find<ListView>("lsvSpriteIndex"), 3);
    p.click("cmdDrawSprite");
    // Rows S1 to S28 minus the unticked S2; S29 does not exist.
    QCOMPARE(drawn.count(), 27);
    QCOMPARE(drawn.text(0), QStringLiteral("01"));
    // S1: tile 2, X 74, Y 4, 43 x 56 pixels.
    QCOMPARE(drawn.row(0).subItems, (Cells{"4", "74", "516", "117", "572"}));
    QCOMPARE(drawn.text(1), QStringLiteral("03"));
    QCOMPARE(p.state().lsvSpriteIndex.checkState(1), Qt::Unchecked);

    // The object outlines drawn before stay with the sprites at every redraw.
    p.f.window->ShowPage(1);
    QTest::mouseClick(p.button("cmdDraw"), Qt::LeftButton);
    const int shapes = p.state().picture()->ShapeCount();
    p.f.window->ShowPage(3);
    p.f.prompts.colors = {QColor(Qt::cyan)};
    p.click("cmdSpriteColor");
    QCOMPARE(p.state().OutlineColor, QColor(Qt::cyan));
    p.click("cmdDrawSprite");
    QCOMPARE(p.state().picture()->ShapeCount(), shapes);
}

void tst_SpriteTexturePage::editsSurviveSaveAndReopen()
{
    Page p;
    p.click("cmdSpriteAdd");
    p.fill({"3", "100", "900", "164", "964", "-32", "32", "-30", "30"});
    p.click("cmdSpriteAdd");
    p.load(10);
    p.click("cmdSpriteEdit");
    p.type("txtTop", "-200");
    p.click("cmdSpriteEdit");
    p.load(0);
    p.click("cmdSpriteDelete");
    QList<Cells> made;
    for (int row = 0; row < p.sprites().count(); ++row)
        made << p.sprites().row(row).subItems;

    p.f.find<QAction>("mnuFileSaveList")->trigger();
    p.f.openList(p.f.listPath());
    QCOMPARE(p.sprites().count(), made.size());
    for (int row = 0; row < made.size(); ++row)
        QCOMPARE(p.sprites().row(row).subItems, made[row]);
}

QTEST_MAIN(tst_SpriteTexturePage)
#include "tst_SpriteTexturePage.moc"
