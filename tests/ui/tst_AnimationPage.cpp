#include "AnimationPage.h"
#include "EditorFixture.h"
#include "EditorState.h"
#include "ListView.h"
#include "PageUser.h"
#include "UserActions.h"
#include "m_TextureList.h"

#include <QAbstractButton>
#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QTest>

// The "...and Animations" page driven as a user would: building, editing,
// reordering and deleting animated texture ranges.
//
// The demo list has 30 object textures (available as 1 to 30) and two
// animations: 00 with textures 16 to 19 (water) and 01 with 20 to 22 (lava)
// on tile 1, in 64-pixel squares; 23 to 28 are triangles.
class tst_AnimationPage : public QObject
{
    Q_OBJECT

    struct Page
    {
        EditorFixture f;
        PageUser user{f};
        EditorState& state = f.window->state();
        ListViewModel& anims = state.views.lsvAnims;
        ListViewModel& details = state.views.lsvAnimDetails;
        ListViewModel& next = f.window->animationPage().lsvNextAnim();
        ListViewModel& oneAnim = f.window->animationPage().lsvOneAnim();

        Page()
        {
            f.openList(f.listPath());
            UserActions::showTab(f, 2);
        }
        QString caption(const char* name) const { return user.button(name).text(); }
        bool enabled(const char* name) const { return user.button(name).isEnabled(); }
        QString label(const char* name) const { return user.label(name).text(); }
        QStringList texts(const ListViewModel& model) const
        {
            QStringList all;
            for (int row = 0; row < model.count(); ++row)
                all << model.text(row);
            return all;
        }
        QStringList column(const ListViewModel& model, int subItem) const
        {
            QStringList all;
            for (int row = 0; row < model.count(); ++row)
                all << model.subItem(row, subItem);
            return all;
        }
        // The textures of animation number, as the detail rows hold them.
        QStringList texturesOf(const QString& number) const
        {
            QStringList textures;
            for (int row : details.rowsWithTextLike(QString(number + QStringLiteral("-*"))))
                textures << details.subItem(row, 1);
            return textures;
        }
    };

private slots:
    void addStoresTheAnimationUnderTheNextNumber();
    void acceptWantsTwoTextures_data();
    void acceptWantsTwoTextures();
    void orderButtonsMoveOneStepPerChoice_data();
    void orderButtonsMoveOneStepPerChoice();
    void removingATextureRenumbersTheOrder();
    void editReplacesTheDetailsAtTheEnd_data();
    void editReplacesTheDetailsAtTheEnd();
    void deleteLeavesAGapAndTheTotal();
    void choosingAnAnimationShowsItsTextures_data();
    void choosingAnAnimationShowsItsTextures();
    void numbersPast99MatchByPrefix();
    void closingTheListResetsThePage();
};

void tst_AnimationPage::addStoresTheAnimationUnderTheNextNumber()
{
    Page p;
    QVERIFY(!p.user.list("lsvAvailTextures").isEnabled());
    p.user.press("cmdAddAnim");
    QCOMPARE(p.caption("cmdAddAnim"), QStringLiteral("Accept"));
    QCOMPARE(p.label("lblNextAnim"), QStringLiteral("2"));
    // While building, Edit and Delete are enabled with the lists.
    for (const char* name : {"cmdEditAnim", "cmdDelAnim"})
        QVERIFY2(p.enabled(name), name);

    p.user.choose("lsvAvailTextures", QStringLiteral("5"));
    QVERIFY(p.enabled("cmdAddText"));
    QVERIFY(!p.enabled("cmdDelText"));
    p.user.press("cmdAddText");
    // Each ">>" wants a new choice first; a texture may come twice.
    QVERIFY(!p.enabled("cmdAddText"));
    p.user.sendTextures({QStringLiteral("9"), QStringLiteral("5")});
    QCOMPARE(p.texts(p.next), QStringList({"5", "9", "5"}));
    QCOMPARE(p.column(p.next, 1), QStringList({"0001", "0002", "0003"}));

    p.user.press("cmdAddAnim");
    QCOMPARE(p.anims.count(), 3);
    QCOMPARE(p.anims.text(2), QStringLiteral("02"));
    QCOMPARE(p.anims.key(2), QStringLiteral("A02"));
    QCOMPARE(p.anims.subItem(2, 1), QStringLiteral("3"));
    QCOMPARE(p.anims.subItem(2, 2), QStringLiteral("5"));
    const int first = p.details.count() - 3;
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(p.details.text(first + i), QStringLiteral("02-%1").arg(i));
        QCOMPARE(p.details.key(first + i), QStringLiteral("A02%1").arg(i));
    }
    QCOMPARE(p.texturesOf(QStringLiteral("02")), QStringList({"5", "9", "5"}));
    QCOMPARE(p.caption("cmdAddAnim"), QStringLiteral("Add"));
    QCOMPARE(p.label("lblAnimTotal"), QStringLiteral("3"));
    QVERIFY(p.label("lblNextAnim").isEmpty());
    QCOMPARE(p.next.count(), 0);
    QVERIFY(!p.user.list("lsvNextAnim").isEnabled());
    QVERIFY(p.state.IsDirty);
    QVERIFY(p.f.find<QAction>("mnuFileSaveList")->isEnabled());
}

void tst_AnimationPage::acceptWantsTwoTextures_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QStringList>("textures");
    QTest::newRow("add, none") << "cmdAddAnim" << QStringList();
    QTest::newRow("add, one") << "cmdAddAnim" << QStringList({"7"});
    QTest::newRow("edit, one left") << "cmdEditAnim" << QStringList({"7"});
}

void tst_AnimationPage::acceptWantsTwoTextures()
{
    QFETCH(QString, button);
    QFETCH(QStringList, textures);
    Page p;
    const QByteArray name = button.toLatin1();
    if (name == "cmdEditAnim") {
        p.user.choose("lsvAnims", QStringLiteral("01"));
        p.user.press("cmdEditAnim");
        // Take the three lava textures out, leaving none, then add one.
        for (int i = 0; i < 3; ++i) {
            UserActions::chooseRow(p.user.list("lsvNextAnim"), 0);
            p.user.press("cmdDelText");
        }
    } else {
        p.user.press(name);
    }
    p.user.sendTextures(textures);
    const QStringList detailsBefore = p.texts(p.details);

    p.user.press(name);
    QCOMPARE(p.f.prompts.messages.size(), 1);
    QCOMPARE(p.f.prompts.messages[0].text, QStringLiteral("There has to be at least two textures in an animations"));
    QCOMPARE(p.f.prompts.messages[0].style, 48);
    QVERIFY(p.f.prompts.messages[0].title.isEmpty());
    QCOMPARE(p.caption(name), QStringLiteral("Accept"));
    QCOMPARE(p.anims.count(), 2);
    QCOMPARE(p.texts(p.details), detailsBefore);
    QCOMPARE(p.texts(p.next), textures);
}

void tst_AnimationPage::orderButtonsMoveOneStepPerChoice_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("chosen");
    QTest::addColumn<QStringList>("after");
    QTest::addColumn<bool>("moved");
    QTest::newRow("up from the last") << "cmdUp" << 2 << QStringList({"3", "8", "1"}) << true;
    QTest::newRow("down from the first") << "cmdDown" << 0 << QStringList({"1", "3", "8"}) << true;
    QTest::newRow("up on the first") << "cmdUp" << 0 << QStringList({"3", "1", "8"}) << false;
    QTest::newRow("down on the last") << "cmdDown" << 2 << QStringList({"3", "1", "8"}) << false;
}

void tst_AnimationPage::orderButtonsMoveOneStepPerChoice()
{
    QFETCH(QString, button);
    QFETCH(int, chosen);
    QFETCH(QStringList, after);
    QFETCH(bool, moved);
    Page p;
    p.user.press("cmdAddAnim");
    p.user.sendTextures({"3", "1", "8"});
    p.state.SetDirty(false);

    UserActions::chooseRow(p.user.list("lsvNextAnim"), chosen);
    for (const char* name : {"cmdUp", "cmdDown", "cmdAddText", "cmdDelText"})
        QVERIFY2(p.enabled(name), name);
    p.user.press(button.toLatin1());
    QCOMPARE(p.texts(p.next), after);
    QCOMPARE(p.column(p.next, 1), QStringList({"0001", "0002", "0003"}));
    QCOMPARE(p.state.IsDirty, moved);
    // A second press does nothing until a row is chosen again.
    for (const char* name : {"cmdUp", "cmdDown", "cmdAddText", "cmdDelText"})
        QVERIFY2(!p.enabled(name), name);
    p.user.press(button.toLatin1());
    QCOMPARE(p.texts(p.next), after);

    p.user.press("cmdAddAnim");
    QCOMPARE(p.texturesOf(QStringLiteral("02")), after);
    QCOMPARE(p.anims.subItem(2, 2), after.first());
}

void tst_AnimationPage::removingATextureRenumbersTheOrder()
{
    Page p;
    p.user.press("cmdAddAnim");
    p.user.sendTextures({"3", "1", "8", "2"});
    UserActions::chooseRow(p.user.list("lsvNextAnim"), 1);
    p.user.press("cmdDelText");
    QCOMPARE(p.texts(p.next), QStringList({"3", "8", "2"}));
    QCOMPARE(p.column(p.next, 1), QStringList({"0001", "0002", "0003"}));
    QVERIFY(!p.enabled("cmdDelText"));
}

void tst_AnimationPage::editReplacesTheDetailsAtTheEnd_data()
{
    QTest::addColumn<bool>("onlyOne");
    QTest::addColumn<QString>("edited");
    QTest::addColumn<QStringList>("textures");
    QTest::addColumn<QString>("number"); // the summary's "Number" afterwards
    QTest::newRow("first of two: summary kept") << false << "00" << QStringList({"16", "17", "18", "19"}) << "4";
    QTest::newRow("last of two: summary kept") << false << "01" << QStringList({"20", "21", "22"}) << "3";
    QTest::newRow("the only one: summary refreshed") << true << "01" << QStringList({"20", "21", "22"}) << "4";
}

void tst_AnimationPage::editReplacesTheDetailsAtTheEnd()
{
    QFETCH(bool, onlyOne);
    QFETCH(QString, edited);
    QFETCH(QStringList, textures);
    QFETCH(QString, number);
    Page p;
    if (onlyOne) {
        p.user.choose("lsvAnims", QStringLiteral("00"));
        p.user.press("cmdDelAnim");
    }
    p.user.choose("lsvAnims", edited);
    QCOMPARE(p.label("lblNextAnim"), QString::number(edited.toInt()));
    QCOMPARE(p.texts(p.next), textures);
    p.user.press("cmdEditAnim");
    QCOMPARE(p.caption("cmdEditAnim"), QStringLiteral("Accept"));
    p.user.choose("lsvNextAnim", textures.first());
    p.user.press("cmdDelText");
    p.user.sendTextures({"2", "4"});
    p.user.press("cmdEditAnim");

    const int row = p.anims.findKey(QLatin1Char('A') + edited);
    QCOMPARE(p.anims.text(row), edited);
    QCOMPARE(p.anims.subItem(row, 1), number);
    QCOMPARE(p.anims.subItem(row, 2), onlyOne ? textures[1] : textures[0]);
    QCOMPARE(p.texturesOf(edited), textures.mid(1) + QStringList({"2", "4"}));
    // The edited animation's detail rows now come last.
    QCOMPARE(p.details.text(p.details.count() - 1), QStringLiteral("%1-%2").arg(edited).arg(textures.size()));
    QCOMPARE(p.caption("cmdEditAnim"), QStringLiteral("Edit"));
    QVERIFY(!p.enabled("cmdEditAnim"));
    QCOMPARE(p.oneAnim.count(), 0);
    QCOMPARE(p.label("lblAnimTotal"), QString::number(p.anims.count()));
}

void tst_AnimationPage::deleteLeavesAGapAndTheTotal()
{
    Page p;
    for (const QString& first : {"1", "3", "5", "7"})
        p.user.addAnimation({first, QString::number(first.toInt() + 1)});
    QCOMPARE(p.texts(p.anims), QStringList({"00", "01", "02", "03", "04", "05"}));

    p.user.choose("lsvAnims", QStringLiteral("03"));
    QCOMPARE(p.texts(p.next), QStringList({"3", "4"}));
    p.user.press("cmdDelAnim");
    QVERIFY(p.f.prompts.messages.isEmpty());
    QCOMPARE(p.texts(p.anims), QStringList({"00", "01", "02", "04", "05"}));
    QVERIFY(p.texturesOf(QStringLiteral("03")).isEmpty());
    QCOMPARE(p.texturesOf(QStringLiteral("04")), QStringList({"5", "6"}));
    QCOMPARE(p.label("lblAnimTotal"), QStringLiteral("6"));
    QVERIFY(!p.enabled("cmdDelAnim"));

    // The row count, 5, is taken by an animation that kept its number: the
    // new one gets the next free number.
    p.user.press("cmdAddAnim");
    QCOMPARE(p.label("lblNextAnim"), QStringLiteral("6"));
    p.user.sendTextures({"11", "12"});
    p.user.press("cmdAddAnim");
    QCOMPARE(p.texts(p.anims), QStringList({"00", "01", "02", "04", "05", "06"}));
    QCOMPARE(p.texturesOf(QStringLiteral("05")), QStringList({"7", "8"}));
    QCOMPARE(p.texturesOf(QStringLiteral("06")), QStringList({"11", "12"}));
    QCOMPARE(p.label("lblAnimTotal"), QStringLiteral("6"));
}

void tst_AnimationPage::choosingAnAnimationShowsItsTextures_data()
{
    QTest::addColumn<QStringList>("textures");
    QTest::addColumn<QStringList>("frames"); // X, Y, Xwid, YHi of each texture
    QTest::addColumn<bool>("triangular");
    QTest::newRow("lava squares") << QStringList({"20", "21", "22"})
                                  << QStringList({"0 320 64 64", "64 320 64 64", "128 320 64 64"}) << false;
    QTest::newRow("triangles first") << QStringList({"23", "29"})
                                     << QStringList({"0 384 64 64", "0 448 128 64"}) << true;
    QTest::newRow("no such texture") << QStringList({"30", "16"}) << QStringList({"   ", "0 256 64 64"}) << false;
}

void tst_AnimationPage::choosingAnAnimationShowsItsTextures()
{
    QFETCH(QStringList, textures);
    QFETCH(QStringList, frames);
    QFETCH(bool, triangular);
    Page p;
    if (textures.first() != QLatin1String("20"))
        p.user.addAnimation(textures);
    QVERIFY(!p.enabled("cmdAnim"));
    p.user.choose("lsvAnims", p.anims.text(textures.first() == QLatin1String("20") ? 1 : 2));

    QCOMPARE(p.texts(p.oneAnim), textures);
    QStringList shown;
    for (int row = 0; row < p.oneAnim.count(); ++row)
        shown << QStringList({p.oneAnim.subItem(row, 1), p.oneAnim.subItem(row, 2), p.oneAnim.subItem(row, 3),
                              p.oneAnim.subItem(row, 4)})
                     .join(QLatin1Char(' '));
    QCOMPARE(shown, frames);
    QCOMPARE(p.oneAnim.subItem(0, 5), triangular ? QStringLiteral("Triad") : QString());
    QCOMPARE(p.user.button("chkTriad").isChecked(), triangular);
    for (int column : {3, 4, 5})
        QVERIFY(p.user.list("lsvOneAnim").isColumnHidden(column));
    QVERIFY(p.enabled("cmdAnim"));
    QVERIFY(p.enabled("cmdEditAnim") && p.enabled("cmdDelAnim"));
    QCOMPARE(p.texts(p.next), textures);
}

void tst_AnimationPage::numbersPast99MatchByPrefix()
{
    Page p;
    AnimatedTextureBlock block;
    for (int range = 0; range < 112; ++range)
        block.ranges.append({quint16(range % 30), quint16((range + 1) % 30)});
    m_TextureList::FillAnimations(block, p.anims, p.details);

    p.user.addAnimation({"4", "5"});
    QCOMPARE(p.anims.text(112), QStringLiteral("112"));
    QCOMPARE(p.anims.key(112), QStringLiteral("A112"));
    QCOMPARE(p.texturesOf(QStringLiteral("112")), QStringList({"4", "5"}));

    // Animation 10 reaches the textures of 100 to 109 too.
    p.user.choose("lsvAnims", QStringLiteral("10"));
    QCOMPARE(p.oneAnim.count(), 2 * 11);
    QCOMPARE(p.label("lblNextAnim"), QStringLiteral("10"));

    // Delete takes the last row matching 10*, 109, and every detail of 10
    // and 100 to 109.
    p.user.press("cmdDelAnim");
    QCOMPARE(p.anims.count(), 112);
    QVERIFY(p.anims.findKey(QStringLiteral("A109")) < 0);
    QVERIFY(p.anims.findKey(QStringLiteral("A10")) >= 0);
    QVERIFY(p.details.rowsWithTextLike(u"10*").isEmpty());
    QCOMPARE(p.texturesOf(QStringLiteral("11")), QStringList({"11", "12"}));

    // A three-digit number matches only itself and longer numbers.
    p.user.choose("lsvAnims", QStringLiteral("111"));
    QCOMPARE(p.label("lblNextAnim"), QStringLiteral("111"));
    p.user.press("cmdDelAnim");
    QVERIFY(p.anims.findKey(QStringLiteral("A111")) < 0);
    QCOMPARE(p.anims.count(), 111);
    QCOMPARE(p.texturesOf(QStringLiteral("112")), QStringList({"4", "5"}));
}

void tst_AnimationPage::closingTheListResetsThePage()
{
    Page p;
    p.user.choose("lsvAnims", QStringLiteral("00"));
    p.user.press("cmdEditAnim");
    p.f.find<QAction>("mnuFileCloseList")->trigger();
    for (const ListViewModel* model : {&p.anims, &p.details, &p.next, static_cast<ListViewModel*>(&p.oneAnim)})
        QCOMPARE(model->count(), 0);
    QVERIFY(p.label("lblAnimTotal").isEmpty());
    QCOMPARE(p.caption("cmdEditAnim"), QStringLiteral("Edit"));
    for (const char* name : {"cmdEditAnim", "cmdDelAnim", "cmdAnim", "cmdAddText", "cmdUp"})
        QVERIFY2(!p.enabled(name), name);
}

QTEST_MAIN(tst_AnimationPage)
#include "tst_AnimationPage.moc"
