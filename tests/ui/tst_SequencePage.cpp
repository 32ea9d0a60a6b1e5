#include "DemoLevel.h"
#include "EditorFixture.h"
#include "EditorState.h"
#include "ListView.h"
#include "PageUser.h"
#include "SequencePage.h"
#include "UserActions.h"
#include "m_SpriteList.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

// The "... and Sequences" page driven as a user would: the checks a typed
// sequence passes, adding, editing, deleting and choosing sequences.
//
// The demo list has 29 sprite textures in 12 sequences: 00000 holds 0-3,
// 00001 4-11, 00002 to 00005 one each (12 to 15), 00006 16-20, 00007 to
// 00010 one each (21 to 24) and 00011 25-28.
class tst_SequencePage : public QObject
{
    Q_OBJECT

    struct Page
    {
        EditorFixture f;
        PageUser user{f};
        EditorState& state = f.window->state();
        ListViewModel& sequences = state.views.lsvSequences;
        ListViewModel& oneSequence = f.window->sequencePage().lsvOneSequence();

        Page()
        {
            f.openList(f.listPath());
            UserActions::showTab(f, 4);
        }
        // Sprite rows past the demo's, as the sprite page would add them.
        void addSprites(int count)
        {
            ListViewModel& sprites = state.views.lsvSprites;
            for (int i = 0; i < count; ++i) {
                const QString number = QString::number(sprites.count());
                sprites.addRow(QLatin1Char('S') + number, number, {"0", "0", "0", "255", "255", "0", "0", "0", "0"});
            }
        }
        QStringList rows() const
        {
            QStringList all;
            for (int row = 0; row < sequences.count(); ++row)
                all << QStringList({sequences.key(row), sequences.text(row), sequences.subItem(row, 1),
                                    sequences.subItem(row, 2), sequences.subItem(row, 3)})
                           .join(QLatin1Char(' '));
            return all;
        }
        QString focusName() const
        {
            return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
        }
        QString text(const char* box) const { return user.box(box).text(); }
    };

private slots:
    void rulesRejectInTheirOrder_data();
    void rulesRejectInTheirOrder();
    void acceptedSequencesAreStored_data();
    void acceptedSequencesAreStored();
    void aSingleSequenceMakesANewOneTheFirst();
    void withoutSpriteTexturesNoStartIsAvailable();
    void deleteAsksOnlyForAMiddleRow_data();
    void deleteAsksOnlyForAMiddleRow();
    void deleteWithoutAStoredSequence();
    void choosingASequenceFillsTheBoxes_data();
    void choosingASequenceFillsTheBoxes();
    void thousandsOfSequences();
};

void tst_SequencePage::rulesRejectInTheirOrder_data()
{
    QTest::addColumn<QString>("edited"); // empty for a new sequence
    QTest::addColumn<QStringList>("typed");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("focus");
    const QString texture = QStringLiteral("Texture Error");
    const QString offset = QStringLiteral("Offset Error");
    const QString sequence = QStringLiteral("Sequence Error");
    // Ten more sprites: 39 available, so a new sequence fits at 29.
    QTest::newRow("1 no start") << "" << QStringList({"", "", ""}) << texture
                                << "Starting texture was not specified" << "txtSeqStart";
    QTest::newRow("2 no stop") << "" << QStringList({"29", "", ""}) << texture << "Ending texture was not specified"
                               << "";
    QTest::newRow("3 no object") << "" << QStringList({"29", "30", ""}) << "Object Unassigned"
                                 << "Object was not specified" << "txtSeqObject";
    QTest::newRow("4 letters") << "" << QStringList({"12abc", "30", "7"}) << texture
                               << "Starting texture offset must be a number" << "txtSeqStart";
    QTest::newRow("5 decimal") << "" << QStringList({"29", "2.5", "7"}) << texture
                               << "Ending texture offset must be a number" << "txtSeqStop";
    QTest::newRow("6 letters") << "" << QStringList({"-29", "-30", "x7"}) << "Object Error"
                               << "Object offset must be a number" << "txtSeqObject";
    QTest::newRow("6 past 32 bits") << "" << QStringList({"29", "30", "2147483648"}) << "Object Error"
                                    << "Object offset must be a number" << "txtSeqObject";
    QTest::newRow("7 negative") << "" << QStringList({"-1", "-1", "-1"}) << offset
                                << "Texture offset cannot be negative." << "txtSeqStart";
    QTest::newRow("8 negative") << "" << QStringList({"29", "-1", "-1"}) << offset
                                << "Texture offset cannot be negative." << "txtSeqStop";
    QTest::newRow("9 negative") << "" << QStringList({"29", "30", "-3"}) << offset
                                << "Object offset cannot be negative." << "txtSeqObject";
    QTest::newRow("10 one past") << "" << QStringList({"39", "39", "7"}) << texture
                                 << "Starting texture is not available." << "";
    QTest::newRow("10 huge") << "" << QStringList({"123456789012345678901234567890", "1", "7"}) << texture
                             << "Starting texture is not available." << "";
    QTest::newRow("11 one past") << "" << QStringList({"29", "39", "7"}) << texture
                                 << "Ending texture is not available." << "";
    QTest::newRow("12 reversed") << "" << QStringList({"31", "30", "7"}) << texture
                                 << "Starting texture is after the Ending texture." << "";
    QTest::newRow("13 overlap") << "" << QStringList({"28", "30", "7"}) << sequence
                                << "The first sprite texture is already in use by the previous sequence." << "";
    QTest::newRow("14 gap") << "" << QStringList({"30", "31", "7"}) << sequence
                            << "A sprite texture is not assigned to any sequence between this sequence and the "
                               "previous one."
                            << "";
    QTest::newRow("13 edited") << "00005" << QStringList({"14", "15", "7"}) << sequence
                               << "The first sprite texture is already in use by the previous sequence." << "";
    QTest::newRow("14 edited") << "00005" << QStringList({"16", "16", "7"}) << sequence
                               << "A sprite texture is not assigned to any sequence between this sequence and the "
                                  "previous one."
                               << "";
    QTest::newRow("15 first") << "00000" << QStringList({"1", "3", "7"}) << sequence
                              << "A sprite texture is not assigned to any sequence before this first sequence."
                              << "";
    QTest::newRow("16 overlap") << "00005" << QStringList({"15", "16", "7"}) << sequence
                                << "The last sprite texture is already in use by the following sequence." << "";
}

void tst_SequencePage::rulesRejectInTheirOrder()
{
    QFETCH(QString, edited);
    QFETCH(QStringList, typed);
    QFETCH(QString, title);
    QFETCH(QString, text);
    QFETCH(QString, focus);
    Page p;
    p.addSprites(10);
    QCOMPARE(p.user.label("lblAvailSTextures").text(), QStringLiteral("39"));
    const char* accept = edited.isEmpty() ? "cmdSeqAdd" : "cmdSeqEdit";
    if (!edited.isEmpty())
        p.user.choose("lsvSequences", edited);
    p.user.press(accept);
    p.user.typeSequence(typed[0], typed[1], typed[2]);
    const QStringList before = p.rows();

    p.user.press(accept);
    QCOMPARE(p.f.prompts.messages.size(), 1);
    QCOMPARE(p.f.prompts.messages[0].title, title);
    QCOMPARE(p.f.prompts.messages[0].text, text);
    QCOMPARE(p.f.prompts.messages[0].style, 0);
    if (focus.isEmpty())
        QVERIFY(!p.focusName().startsWith(QLatin1String("txtSeq")));
    else
        QCOMPARE(p.focusName(), focus);
    QCOMPARE(p.rows(), before);
    QCOMPARE(p.user.button(accept).text(), QStringLiteral("Accept"));
    QCOMPARE(QStringList({p.text("txtSeqStart"), p.text("txtSeqStop"), p.text("txtSeqObject")}), typed);
    QVERIFY(!p.state.IsDirty);
}

void tst_SequencePage::acceptedSequencesAreStored_data()
{
    QTest::addColumn<QString>("edited");
    QTest::addColumn<QStringList>("typed");
    QTest::addColumn<QString>("stored"); // key, text, Number, First, ObjectID
    QTest::newRow("new after the last") << "" << QStringList({"29", "31", "200"}) << "S00012 00012 3 29 200";
    QTest::newRow("new, blanks around") << "" << QStringList({" 29", "+29 ", "7"}) << "S00012 00012 1 29 7";
    QTest::newRow("edited, same run") << "00005" << QStringList({"15", "15", "300"}) << "S00005 00005 1 15 300";
    // The gap left before the following sequence is accepted.
    QTest::newRow("edited, shorter") << "00006" << QStringList({"16", "18", "166"}) << "S00006 00006 3 16 166";
}

void tst_SequencePage::acceptedSequencesAreStored()
{
    QFETCH(QString, edited);
    QFETCH(QStringList, typed);
    QFETCH(QString, stored);
    Page p;
    p.addSprites(10);
    const char* accept = edited.isEmpty() ? "cmdSeqAdd" : "cmdSeqEdit";
    if (!edited.isEmpty())
        p.user.choose("lsvSequences", edited);
    p.user.press(accept);
    QVERIFY(p.user.box("txtSeqStart").isEnabled());
    p.user.typeSequence(typed[0], typed[1], typed[2]);
    p.user.press(accept);

    QVERIFY(p.f.prompts.messages.isEmpty());
    QVERIFY(p.rows().contains(stored));
    QCOMPARE(p.sequences.count(), edited.isEmpty() ? 13 : 12);
    QCOMPARE(p.user.button("cmdSeqAdd").text(), QStringLiteral("Add"));
    QCOMPARE(p.user.button("cmdSeqEdit").text(), QStringLiteral("Edit"));
    for (const char* box : {"txtSeqStart", "txtSeqStop", "txtSeqObject"}) {
        QVERIFY2(p.text(box).isEmpty(), box);
        QVERIFY2(!p.user.box(box).isEnabled(), box);
    }
    QVERIFY(p.user.label("lblSeqKey").text().isEmpty());
    QVERIFY(!p.user.button("cmdSeqEdit").isEnabled());
    QVERIFY(p.state.IsDirty);
}

void tst_SequencePage::aSingleSequenceMakesANewOneTheFirst()
{
    Page p;
    p.sequences.clear();
    p.user.addSequence("0", "4", "7");
    QCOMPARE(p.rows(), QStringList({"S00000 00000 5 0 7"}));

    // With one sequence in the list a new one is checked as the first.
    p.user.addSequence("5", "6", "8");
    QCOMPARE(p.f.prompts.messageTexts(),
             QStringList({"A sprite texture is not assigned to any sequence before this first sequence."}));
    p.user.press("cmdSeqCancel");
    p.user.addSequence("0", "1", "8");
    QCOMPARE(p.rows(), QStringList({"S00000 00000 5 0 7", "S00001 00001 2 0 8"}));
    // From two on, the last one is the previous sequence.
    p.user.addSequence("2", "3", "9");
    QCOMPARE(p.sequences.count(), 3);
}

void tst_SequencePage::withoutSpriteTexturesNoStartIsAvailable()
{
    Page p;
    p.f.find<QAction>("mnuFileCloseList")->trigger();
    QVERIFY(p.user.label("lblAvailSTextures").text().isEmpty());
    // The list stays counted as open after Close: Add still works.
    p.user.addSequence("0", "0", "0");
    QCOMPARE(p.f.prompts.messageTexts(), QStringList({"Starting texture is not available."}));
}

void tst_SequencePage::deleteAsksOnlyForAMiddleRow_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("asked");
    QTest::addColumn<bool>("removed");
    QTest::newRow("last") << "00011" << int(IPromptService::vbCancel) << false << true;
    QTest::newRow("middle, OK") << "00005" << int(IPromptService::vbOK) << true << true;
    QTest::newRow("middle, Cancel") << "00005" << int(IPromptService::vbCancel) << true << false;
}

void tst_SequencePage::deleteAsksOnlyForAMiddleRow()
{
    QFETCH(QString, row);
    QFETCH(int, answer);
    QFETCH(bool, asked);
    QFETCH(bool, removed);
    Page p;
    p.user.choose("lsvSequences", row);
    QVERIFY(p.oneSequence.count() > 0);
    p.f.prompts.answers = {answer};
    p.user.press("cmdSeqDelete");

    QCOMPARE(p.f.prompts.messages.size(), asked ? 1 : 0);
    if (asked) {
        QCOMPARE(p.f.prompts.messages[0].title, QStringLiteral("Delicate Deletion"));
        QCOMPARE(p.f.prompts.messages[0].style, 17);
        QCOMPARE(p.f.prompts.messages[0].text,
                 QStringLiteral("This is not the last sequence of the list!\r\n"
                                "Removing it will leave unassigned sprite textures in the middle of the sequence "
                                "list.\r\n"
                                "A level list file cannot be inserted into a level file if there are unassigned "
                                "sprite textures in the middle of the sequence list!\r\n"
                                "Do you still want to delete this sequence?"));
    }
    const QString key = QLatin1Char('S') + row;
    QCOMPARE(p.sequences.findKey(key) < 0, removed);
    QCOMPARE(p.sequences.count(), removed ? 11 : 12);
    // Nothing is renumbered: the rows after the hole keep their numbers.
    QCOMPARE(p.sequences.text(p.sequences.count() - 1), removed && row == "00011" ? "00010" : "00011");
    QCOMPARE(p.oneSequence.count() == 0, removed);
    QCOMPARE(p.user.label("lblSeqKey").text().isEmpty(), removed);
    QCOMPARE(p.state.IsDirty, removed);
}

void tst_SequencePage::deleteWithoutAStoredSequence()
{
    Page p;
    p.user.choose("lsvSequences", QStringLiteral("00003"));
    p.user.press("cmdSeqAdd");
    p.user.press("cmdSeqDelete");
    QCOMPARE(p.f.prompts.messages.size(), 1);
    QCOMPARE(p.f.prompts.messages[0].text, QStringLiteral("A new sequence not yet added tot he list cannot be deleted"));
    QCOMPARE(p.f.prompts.messages[0].title, QStringLiteral("Delete Error"));
    QCOMPARE(p.f.prompts.messages[0].style, 0);
    QCOMPARE(p.sequences.count(), 12);
    QCOMPARE(p.user.button("cmdSeqAdd").text(), QStringLiteral("Accept"));
}

void tst_SequencePage::choosingASequenceFillsTheBoxes_data()
{
    QTest::addColumn<bool>("withAnimations");
    QTest::newRow("with animations") << true;
    QTest::newRow("no animations: no preview") << false;
}

void tst_SequencePage::choosingASequenceFillsTheBoxes()
{
    QFETCH(bool, withAnimations);
    Page p;
    if (!withAnimations)
        p.state.views.lsvAnims.clear();
    QVERIFY(!p.user.button("cmdSequnce").isEnabled());
    p.user.choose("lsvSequences", QStringLiteral("00006"));

    QCOMPARE(p.text("txtSeqStart"), QStringLiteral("16"));
    QCOMPARE(p.text("txtSeqStop"), QStringLiteral("20"));
    QCOMPARE(p.text("txtSeqObject"), QStringLiteral("166"));
    QCOMPARE(p.user.label("lblSeqKey").text(), QStringLiteral("S00006"));
    QVERIFY(!p.user.box("txtSeqStart").isEnabled());
    QVERIFY(p.user.button("cmdSeqEdit").isEnabled() && p.user.button("cmdSeqDelete").isEnabled());
    QCOMPARE(p.user.button("cmdSequnce").isEnabled(), withAnimations);

    const QList<SpriteTexture> sprites = DemoLevel().spriteTextures();
    QCOMPARE(p.oneSequence.count(), 5);
    for (int frame = 0; frame < 5; ++frame) {
        const SpriteTexture& sprite = sprites[16 + frame];
        QCOMPARE(p.oneSequence.text(frame), QString::number(16 + frame));
        QCOMPARE(p.oneSequence.subItem(frame, 1), QString::number(sprite.x));
        QCOMPARE(p.oneSequence.subItem(frame, 2), QString::number(sprite.tile * 256 + sprite.y));
        QCOMPARE(p.oneSequence.subItem(frame, 3), QString::number(sprite.width));
        QCOMPARE(p.oneSequence.subItem(frame, 4), QString::number(sprite.height));
    }
}

void tst_SequencePage::thousandsOfSequences()
{
    Page p;
    const int count = 3000;
    p.addSprites(count + 2 - 29);
    std::vector<ListViewModel::Row> rows;
    for (int i = 0; i < count; ++i) {
        SpriteSequence record;
        record.objectId = i;
        record.setNumber(1);
        record.first = qint16(i);
        rows.push_back(m_SpriteList::RowOfSequence(record, i));
    }
    p.sequences.clear();
    p.sequences.appendRows(std::move(rows));

    p.user.choose("lsvSequences", QStringLiteral("01500"));
    QCOMPARE(p.text("txtSeqStart"), QStringLiteral("1500"));
    p.user.press("cmdSeqEdit");
    p.user.typeSequence("1501", "1501", "5");
    p.user.press("cmdSeqEdit");
    QCOMPARE(p.f.prompts.messages.size(), 1);
    QCOMPARE(p.f.prompts.messages[0].text,
             QStringLiteral("A sprite texture is not assigned to any sequence between this sequence and the previous one."));
    p.user.press("cmdSeqCancel");

    p.user.choose("lsvSequences", QStringLiteral("01500"));
    p.f.prompts.answers = {IPromptService::vbOK};
    p.user.press("cmdSeqDelete");
    QCOMPARE(p.sequences.count(), count - 1);
    // The row count 2999 names a row still there; the new one takes 3000.
    p.user.addSequence(QString::number(count), QString::number(count + 1), "9");
    QCOMPARE(p.f.prompts.messages.size(), 2);
    QCOMPARE(p.sequences.text(count - 1), QStringLiteral("03000"));
    QCOMPARE(p.sequences.subItem(count - 1, 1), QStringLiteral("2"));
    p.user.addSequence(QString::number(count + 2), QString::number(count + 2), "9");
    QCOMPARE(p.f.prompts.messageTexts().last(), QStringLiteral("Starting texture is not available."));
}

QTEST_MAIN(tst_SequencePage)
#include "tst_SequencePage.moc"
