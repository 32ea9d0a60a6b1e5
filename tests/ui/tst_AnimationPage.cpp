#include "ui/animation/AnimationPage.h"
#include "uisupport/EditorFixture.h"
#include "ui/common/EditorState.h"
#include "ui/common/ListView.h"
#include "uisupport/PageUser.h"
#include "list/m_TextureList.h"
#include "support/TableRows.h"

#include <QAbstractButton>
#include <QAction>
#include <QStatusBar>

#include <QTest>

// The "...and Animations" page as a user drives it. The demo list has 30
// object textures (available as 1 to 30) and two animations: 00 holds 16 to
// 19, 01 holds 20 to 22, 64-pixel squares on tile 1; 23 to 28 are triangles.
class tst_AnimationPage : public QObject
{
    Q_OBJECT

    struct Page
    {
        EditorFixture f;
        PageUser user{f, 2};
        EditorState& state = f.window->state();
        ListRows& anims = state.views.lsvAnims;
        ListRows& details = state.views.lsvAnimDetails;
        ListRows& next = f.window->animationPage().lsvNextAnim();
        ListRows& oneAnim = f.window->animationPage().lsvOneAnim();

        bool enabled(const char* name) const { return user.button(name).isEnabled(); }
        // Range 00 chosen: each frame of lsvOneAnim, then the outlines Draw
        // Anim. draws from the checklist, all unticked first.
        QStringList shownAndDrawn() const
        {
            user.choose("lsvAnims", QStringLiteral("00"));
            QStringList seen;
            for (int row = 0; row < oneAnim.count(); ++row)
                seen << oneAnim.text(row) + u' ' + oneAnim.row(row).subItems.join(u' ');
            for (int row = 0; row < state.lsvObjects.count(); ++row)
                state.lsvObjects.setCheckState(row, Qt::Unchecked);
            user.press("cmdDrawAnim");
            for (int row = 0; row < state.lsvDrawList.count(); ++row)
                seen << state.lsvDrawList.row(row).subItems.join(u' ');
            return seen;
        }
        QStringList texturesOf(const QString& number) const
        {
            return TableRows::texturesOf(state.document().tables(), number.toInt());
        }
    };

private slots:
    void buildingAnAnimation();
    void acceptWantsTwoTextures_data();
    void acceptWantsTwoTextures();
    void orderButtonsMoveOneStepPerChoice_data();
    void orderButtonsMoveOneStepPerChoice();
    void editReplacesTheDetailsAtTheEnd_data();
    void editReplacesTheDetailsAtTheEnd();
    void deleteLeavesAGapAndCountsWhatIsLeft();
    void choosingAnAnimationShowsItsFrames_data();
    void choosingAnAnimationShowsItsFrames();
    void numbersPast99MatchByPrefix();
    void aRangeShowsWhatItSavesAfterADelete_data();
    void aRangeShowsWhatItSavesAfterADelete();
};

void tst_AnimationPage::buildingAnAnimation()
{
    Page p;
    QVERIFY(!p.user.list("lsvAvailTextures").isEnabled());
    p.user.press("cmdAddAnim");
    QCOMPARE(p.user.button("cmdAddAnim").text(), QStringLiteral("Accept"));
    QCOMPARE(p.user.text("lblNextAnim"), QStringLiteral("2"));
    QVERIFY(p.enabled("cmdEditAnim") && p.enabled("cmdDelAnim"));
    p.user.choose("lsvAvailTextures", QStringLiteral("5"));
    QVERIFY(p.enabled("cmdAddText") && !p.enabled("cmdDelText"));
    p.user.press("cmdAddText");
    QVERIFY(!p.enabled("cmdAddText")); // each ">>" wants a new choice
    p.user.sendTextures({"9", "5", "7"});
    p.user.chooseRow("lsvNextAnim", 1);
    p.user.press("cmdDelText");
    QCOMPARE(PageUser::column(p.next), QStringList({"5", "5", "7"}));
    QCOMPARE(PageUser::column(p.next, 1), QStringList({"0001", "0002", "0003"}));

    p.user.press("cmdAddAnim");
    QCOMPARE(PageUser::column(p.anims), QStringList({"00", "01", "02"}));
    QCOMPARE(p.anims.key(2), QStringLiteral("A02"));
    QCOMPARE(p.anims.row(2).subItems, QStringList({"3", "5"}));
    QCOMPARE(PageUser::column(p.details).mid(7), QStringList({"02-0", "02-1", "02-2"}));
    QCOMPARE(p.details.key(9), QStringLiteral("A022"));
    QCOMPARE(p.texturesOf(QStringLiteral("02")), QStringList({"5", "5", "7"}));
    QCOMPARE(p.user.button("cmdAddAnim").text(), QStringLiteral("Add"));
    QCOMPARE(p.user.text("lblAnimTotal"), QStringLiteral("3"));
    QVERIFY(p.user.text("lblNextAnim").isEmpty() && p.next.count() == 0);
    QVERIFY(!p.user.list("lsvNextAnim").isEnabled());
    QVERIFY(p.state.document().isModified() && p.f.find<QAction>("mnuFileSaveList")->isEnabled());
}

void tst_AnimationPage::acceptWantsTwoTextures_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QStringList>("textures");
    QTest::newRow("add, none") << "cmdAddAnim" << QStringList();
    QTest::newRow("add, one") << "cmdAddAnim" << QStringList({"7"});
    QTest::newRow("edit down to one") << "cmdEditAnim" << QStringList({"7"});
}

void tst_AnimationPage::acceptWantsTwoTextures()
{
    QFETCH(QString, button);
    QFETCH(QStringList, textures);
    Page p;
    const QByteArray name = button.toLatin1();
    if (name == "cmdEditAnim")
        p.user.choose("lsvAnims", QStringLiteral("01"));
    p.user.press(name);
    while (p.next.count() > 0) {
        p.user.chooseRow("lsvNextAnim", 0);
        p.user.press("cmdDelText");
    }
    p.user.sendTextures(textures);
    const QStringList details = PageUser::column(p.details);
    p.user.press(name);

    QCOMPARE(p.f.prompts.messages.size(), 1);
    QCOMPARE(p.f.prompts.messages[0].text, QStringLiteral("There has to be at least two textures in an animations"));
    QCOMPARE(p.f.prompts.messages[0].style, 48);
    QVERIFY(p.f.prompts.messages[0].title.isEmpty());
    QCOMPARE(p.user.button(name).text(), QStringLiteral("Accept"));
    QCOMPARE(p.anims.count(), 2);
    QCOMPARE(PageUser::column(p.details), details);
    QCOMPARE(PageUser::column(p.next), textures);
}

void tst_AnimationPage::orderButtonsMoveOneStepPerChoice_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("chosen");
    QTest::addColumn<QStringList>("after");
    QTest::newRow("up from the last") << "cmdUp" << 2 << QStringList({"3", "8", "1"});
    QTest::newRow("down from the first") << "cmdDown" << 0 << QStringList({"1", "3", "8"});
    QTest::newRow("up on the first") << "cmdUp" << 0 << QStringList({"3", "1", "8"});
    QTest::newRow("down on the last") << "cmdDown" << 2 << QStringList({"3", "1", "8"});
}

void tst_AnimationPage::orderButtonsMoveOneStepPerChoice()
{
    QFETCH(QString, button);
    QFETCH(int, chosen);
    QFETCH(QStringList, after);
    Page p;
    p.user.press("cmdAddAnim");
    p.user.sendTextures({"3", "1", "8"});
    p.state.document().markSaved();
    p.user.chooseRow("lsvNextAnim", chosen);
    QVERIFY(p.enabled("cmdUp") && p.enabled("cmdDown"));
    // The second press does nothing: every move needs a new choice.
    p.user.press(button.toLatin1());
    p.user.press(button.toLatin1());
    QCOMPARE(PageUser::column(p.next), after);
    QCOMPARE(PageUser::column(p.next, 1), QStringList({"0001", "0002", "0003"}));
    // The range being built is no edit of the list until it is accepted.
    QVERIFY(!p.state.document().isModified());
    for (const char* name : {"cmdUp", "cmdDown", "cmdAddText", "cmdDelText"})
        QVERIFY2(!p.enabled(name), name);
    p.user.press("cmdAddAnim");
    QCOMPARE(p.texturesOf(QStringLiteral("02")), after);
    QCOMPARE(p.anims.subItem(2, 2), after.first());
}

void tst_AnimationPage::editReplacesTheDetailsAtTheEnd_data()
{
    QTest::addColumn<bool>("onlyOne");
    QTest::addColumn<QString>("edited");
    QTest::addColumn<QStringList>("summary"); // "Number" and "First" afterwards
    QTest::newRow("first of two: summary kept") << false << "00" << QStringList({"4", "16"});
    QTest::newRow("last of two: summary kept") << false << "01" << QStringList({"3", "20"});
    QTest::newRow("the only one: summary refreshed") << true << "01" << QStringList({"4", "21"});
}

void tst_AnimationPage::editReplacesTheDetailsAtTheEnd()
{
    QFETCH(bool, onlyOne);
    QFETCH(QString, edited);
    QFETCH(QStringList, summary);
    Page p;
    if (onlyOne) {
        p.user.choose("lsvAnims", QStringLiteral("00"));
        p.user.press("cmdDelAnim");
    }
    p.user.choose("lsvAnims", edited);
    QCOMPARE(p.user.text("lblNextAnim"), QString::number(edited.toInt()));
    const QStringList textures = PageUser::column(p.next);
    p.user.press("cmdEditAnim");
    p.user.chooseRow("lsvNextAnim", 0);
    p.user.press("cmdDelText");
    p.user.sendTextures({"2", "4"});
    p.user.press("cmdEditAnim");

    const int row = p.anims.findKey(QLatin1Char('A') + edited);
    QCOMPARE(p.anims.row(row).subItems, summary);
    QCOMPARE(p.texturesOf(edited), textures.mid(1) + QStringList({"2", "4"}));
    const QString status = p.f.window->statusBar()->currentMessage();
    QCOMPARE(status.contains(QStringLiteral("saves its %1 textures from %2").arg(textures.size() + 1).arg(textures[1])),
             !onlyOne);
    QCOMPARE(p.details.text(p.details.count() - 1), QStringLiteral("%1-%2").arg(edited).arg(textures.size()));
    QCOMPARE(p.user.button("cmdEditAnim").text(), QStringLiteral("Edit"));
    QVERIFY(!p.enabled("cmdEditAnim") && p.oneAnim.count() == 0);
}

void tst_AnimationPage::deleteLeavesAGapAndCountsWhatIsLeft()
{
    Page p;
    for (const QString first : {"1", "3", "5", "7"})
        p.user.addAnimation({first, QString::number(first.toInt() + 1)});
    p.user.choose("lsvAnims", QStringLiteral("03"));
    p.user.press("cmdDelAnim");
    QVERIFY(p.f.prompts.messages.isEmpty());
    QCOMPARE(PageUser::column(p.anims), QStringList({"00", "01", "02", "04", "05"}));
    QVERIFY(p.texturesOf(QStringLiteral("03")).isEmpty());
    QCOMPARE(p.texturesOf(QStringLiteral("04")), QStringList({"5", "6"}));
    QCOMPARE(p.user.text("lblAnimTotal"), QStringLiteral("5"));
    QVERIFY(!p.enabled("cmdDelAnim"));

    // The row count, 5, still names an animation: the new one takes 6.
    p.user.addAnimation({"11", "12"});
    QCOMPARE(PageUser::column(p.anims), QStringList({"00", "01", "02", "04", "05", "06"}));
    QCOMPARE(p.texturesOf(QStringLiteral("05")), QStringList({"7", "8"}));
    QCOMPARE(p.texturesOf(QStringLiteral("06")), QStringList({"11", "12"}));
}

void tst_AnimationPage::choosingAnAnimationShowsItsFrames_data()
{
    QTest::addColumn<QStringList>("textures"); // empty: the demo's 01
    QTest::addColumn<QStringList>("frames");   // X, Y, Xwid, YHi, IsTriad of each
    QTest::newRow("lava squares") << QStringList()
                                  << QStringList({"0 320 64 64 ", "64 320 64 64 ", "128 320 64 64 "});
    QTest::newRow("triangle first") << QStringList({"23", "29"}) << QStringList({"0 384 64 64 Triad", "0 448 128 64 "});
    QTest::newRow("no such texture") << QStringList({"30", "16"}) << QStringList({"    ", "0 256 64 64 "});
}

void tst_AnimationPage::choosingAnAnimationShowsItsFrames()
{
    QFETCH(QStringList, textures);
    QFETCH(QStringList, frames);
    Page p;
    if (!textures.isEmpty())
        p.user.addAnimation(textures);
    QVERIFY(!p.enabled("cmdAnim"));
    p.user.choose("lsvAnims", textures.isEmpty() ? QStringLiteral("01") : QStringLiteral("02"));

    QStringList shown;
    for (int row = 0; row < p.oneAnim.count(); ++row)
        shown << p.oneAnim.row(row).subItems.join(QLatin1Char(' '));
    QCOMPARE(shown, frames);
    QCOMPARE(PageUser::column(p.oneAnim), PageUser::column(p.next));
    QCOMPARE(p.user.button("chkTriad").isChecked(), frames[0].endsWith(QLatin1String("Triad")));
    for (int column : {3, 4, 5})
        QVERIFY(p.user.list("lsvOneAnim").isColumnHidden(column));
    QVERIFY(p.enabled("cmdAnim") && p.enabled("cmdEditAnim") && p.enabled("cmdDelAnim"));
}

void tst_AnimationPage::numbersPast99MatchByPrefix()
{
    Page p;
    AnimatedTextureBlock block;
    for (int range = 0; range < 112; ++range)
        block.ranges.append({quint16(range % 30), quint16((range + 1) % 30)});
    m_TextureList::FillAnimations(block, p.state.document().tables());
    p.user.addAnimation({"4", "5"});
    QCOMPARE(p.anims.key(112), QStringLiteral("A112"));
    QCOMPARE(p.texturesOf(QStringLiteral("112")), QStringList({"4", "5"}));

    // Animation 10 shows its own two textures, the ones it saves; Delete
    // still reaches the rows of 100 to 109 too: it takes the last row
    // matching, 109, and the details of all eleven.
    p.user.choose("lsvAnims", QStringLiteral("10"));
    QCOMPARE(PageUser::column(p.oneAnim), QStringList({"10", "11"}));
    p.user.press("cmdDelAnim");
    QVERIFY(p.anims.findKey(QStringLiteral("A109")) < 0 && p.anims.findKey(QStringLiteral("A10")) >= 0);
    for (int row = 0; row < p.details.count(); ++row)
        QVERIFY(!p.details.text(row).startsWith(u"10"));
    QCOMPARE(p.texturesOf(QStringLiteral("11")), QStringList({"11", "12"}));
    // A three-digit number reaches its own rows only.
    p.user.choose("lsvAnims", QStringLiteral("111"));
    QCOMPARE(p.user.text("lblNextAnim"), QStringLiteral("111"));
    p.user.press("cmdDelAnim");
    QCOMPARE(p.anims.count(), 111);
    QCOMPARE(p.texturesOf(QStringLiteral("112")), QStringList({"4", "5"}));
}

void tst_AnimationPage::aRangeShowsWhatItSavesAfterADelete_data()
{
    QTest::addColumn<int>("deleted");
    QTest::addColumn<QStringList>("textures"); // of range 00 afterwards
    QTest::newRow("before the range") << 5 << QStringList({"15", "16", "17", "18"});
    QTest::newRow("its first texture") << 16 << QStringList({"16", "17", "18"});
    QTest::newRow("inside it") << 17 << QStringList({"16", "17", "18"});
    QTest::newRow("after every range") << 25 << QStringList({"16", "17", "18", "19"});
}

void tst_AnimationPage::aRangeShowsWhatItSavesAfterADelete()
{
    QFETCH(int, deleted);
    QFETCH(QStringList, textures);
    Page p;
    ListRows& list = p.state.views.lsvTextures;
    QVERIFY(p.state.document().DeleteTexture(TableRows::numberOf(list.key(deleted))));
    const QStringList beforeSaving = p.shownAndDrawn();
    QCOMPARE(PageUser::column(p.oneAnim), textures);
    QCOMPARE(p.state.lsvDrawList.count(), textures.size());

    // The list as saved and opened again is what the page showed and drew.
    p.f.find<QAction>("mnuFileSaveList")->trigger();
    QVERIFY(!p.state.document().isModified());
    p.f.openList(p.f.listPath());
    QCOMPARE(list.count(), 29);
    QCOMPARE(p.shownAndDrawn(), beforeSaving);
}

QTEST_MAIN(tst_AnimationPage)
#include "tst_AnimationPage.moc"
