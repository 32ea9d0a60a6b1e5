#include "demo/DemoLevel.h"
#include "uisupport/EditorFixture.h"
#include "ui/common/EditorState.h"
#include "ui/common/ListView.h"
#include "uisupport/PageUser.h"
#include "ui/animation/SequencePage.h"
#include "list/m_SpriteList.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include "support/TableRows.h"

#include <QTest>

// The "... and Sequences" page as a user drives it. The demo list has 29
// sprite textures in 12 sequences: 00000 holds 0-3, 00001 4-11, 00002 to
// 00005 one each (12 to 15), 00006 16-20, 00007 to 00010 one each (21 to
// 24) and 00011 25-28.
class tst_SequencePage : public QObject
{
    Q_OBJECT

    struct Page
    {
        EditorFixture f;
        PageUser user{f, 4};
        EditorState& state = f.window->state();
        ListRows& sequences = state.views.lsvSequences;

        // Sprite rows past the demo's, as the sprite page adds them.
        void addSprites(int count)
        {
            ListTables& tables = state.document().tables();
            for (int i = 0; i < count; ++i)
                TableRows::addSprite(tables, tables.sprites.count(), {"0", "0", "0", "255", "255"});
        }
        QStringList rows() const
        {
            QStringList all;
            for (int row = 0; row < sequences.count(); ++row)
                all << sequences.key(row) + QLatin1Char(' ') + sequences.row(row).subItems.join(QLatin1Char(' '));
            return all;
        }
        QStringList boxes() const { return {user.text("txtSeqStart"), user.text("txtSeqStop"), user.text("txtSeqObject")}; }
    };

private slots:
    void typedSequences_data();
    void typedSequences();
    void aSingleSequenceMakesANewOneTheFirst();
    void deleteAsksOnlyForAMiddleRow_data();
    void deleteAsksOnlyForAMiddleRow();
    void choosingASequenceFillsTheBoxesAndFrames_data();
    void choosingASequenceFillsTheBoxesAndFrames();
    void thousandsOfSequences();
};

void tst_SequencePage::typedSequences_data()
{
    QTest::addColumn<QString>("edited"); // empty for a new sequence
    QTest::addColumn<QStringList>("typed");
    QTest::addColumn<QStringList>("outcome"); // title, text, focus; or the stored row
    const QString texture = "Texture Error", offset = "Offset Error", sequence = "Sequence Error";
    const QString gap = "A sprite texture is not assigned to any sequence between this sequence and the previous one.";
    const QString inUse = "The first sprite texture is already in use by the previous sequence.";
    const QString negative = "Texture offset cannot be negative.";
    // Ten sprites past the demo's: 39 available, a new sequence fits at 29.
    QTest::newRow("1") << "" << QStringList{"", "", ""}
                       << QStringList{texture, "Starting texture was not specified", "txtSeqStart"};
    QTest::newRow("2") << "" << QStringList{"29", "", ""} << QStringList{texture, "Ending texture was not specified", ""};
    QTest::newRow("3") << "" << QStringList{"29", "30", ""}
                       << QStringList{"Object Unassigned", "Object was not specified", "txtSeqObject"};
    QTest::newRow("4 letters") << "" << QStringList{"12abc", "-1", "7"}
                               << QStringList{texture, "Starting texture offset must be a number", "txtSeqStart"};
    QTest::newRow("5 decimal") << "" << QStringList{"29", "2.5", "7"}
                               << QStringList{texture, "Ending texture offset must be a number", "txtSeqStop"};
    QTest::newRow("6 letters") << "" << QStringList{"-29", "-30", "x7"}
                               << QStringList{"Object Error", "Object offset must be a number", "txtSeqObject"};
    QTest::newRow("6 past 32 bits") << "" << QStringList{"29", "30", "2147483648"}
                                    << QStringList{"Object Error", "Object offset must be a number", "txtSeqObject"};
    QTest::newRow("7") << "" << QStringList{"-1", "-1", "-1"} << QStringList{offset, negative, "txtSeqStart"};
    QTest::newRow("8") << "" << QStringList{"29", "-1", "-1"} << QStringList{offset, negative, "txtSeqStop"};
    QTest::newRow("9") << "" << QStringList{"29", "30", "-3"}
                       << QStringList{offset, "Object offset cannot be negative.", "txtSeqObject"};
    QTest::newRow("10 one past") << "" << QStringList{"39", "39", "7"}
                                 << QStringList{texture, "Starting texture is not available.", ""};
    QTest::newRow("10 huge") << "" << QStringList{"123456789012345678901234567890", "1", "7"}
                             << QStringList{texture, "Starting texture is not available.", ""};
    QTest::newRow("11") << "" << QStringList{"29", "39", "7"}
                        << QStringList{texture, "Ending texture is not available.", ""};
    QTest::newRow("12") << "" << QStringList{"31", "30", "7"}
                        << QStringList{texture, "Starting texture is after the Ending texture.", ""};
    QTest::newRow("13") << "" << QStringList{"28", "30", "7"} << QStringList{sequence, inUse, ""};
    QTest::newRow("14") << "" << QStringList{"30", "31", "7"} << QStringList{sequence, gap, ""};
    QTest::newRow("13 edited") << "00005" << QStringList{"14", "15", "7"} << QStringList{sequence, inUse, ""};
    QTest::newRow("14 edited") << "00005" << QStringList{"16", "16", "7"} << QStringList{sequence, gap, ""};
    QTest::newRow("15 edited first") << "00000" << QStringList{"1", "3", "7"}
        << QStringList{sequence, "A sprite texture is not assigned to any sequence before this first sequence.", ""};
    QTest::newRow("16") << "00005" << QStringList{"15", "16", "7"}
        << QStringList{sequence, "The last sprite texture is already in use by the following sequence.", ""};
    QTest::newRow("new after the last") << "" << QStringList{"29", "31", "200"} << QStringList{"S00012 3 29 200"};
    // The object is a number of the record: "007" is object 7.
    QTest::newRow("signs and blanks") << "" << QStringList{" 29", "+29 ", "007"} << QStringList{"S00012 1 29 7"};
    QTest::newRow("edited in place") << "00005" << QStringList{"15", "15", "300"} << QStringList{"S00005 1 15 300"};
    // A gap before the following sequence is accepted.
    QTest::newRow("edited shorter") << "00006" << QStringList{"16", "18", "166"} << QStringList{"S00006 3 16 166"};
}

void tst_SequencePage::typedSequences()
{
    QFETCH(QString, edited);
    QFETCH(QStringList, typed);
    QFETCH(QStringList, outcome);
    Page p;
    p.addSprites(10);
    QCOMPARE(p.user.text("lblAvailSTextures"), QStringLiteral("39"));
    const char* accept = edited.isEmpty() ? "cmdSeqAdd" : "cmdSeqEdit";
    if (!edited.isEmpty())
        p.user.choose("lsvSequences", edited);
    p.user.press(accept);
    p.user.typeSequence(typed);
    const QStringList before = p.rows();
    p.user.press(accept);

    if (outcome.size() == 1) {
        QVERIFY(p.f.prompts.messages.isEmpty());
        QVERIFY2(p.rows().contains(outcome[0]), qPrintable(p.rows().join(QLatin1Char('\n'))));
        QCOMPARE(p.sequences.count(), edited.isEmpty() ? 13 : 12);
        QCOMPARE(p.user.button("cmdSeqAdd").text() + p.user.button("cmdSeqEdit").text(), QStringLiteral("AddEdit"));
        QCOMPARE(p.boxes(), QStringList({"", "", ""}));
        QVERIFY(!p.user.button("cmdSeqEdit").isEnabled() && p.user.text("lblSeqKey").isEmpty());
        QVERIFY(!p.f.find<QLineEdit>("txtSeqStart")->isEnabled() && p.state.document().isModified());
        return;
    }
    QCOMPARE(p.f.prompts.messages.size(), 1);
    QCOMPARE(p.f.prompts.messages[0].title, outcome[0]);
    QCOMPARE(p.f.prompts.messages[0].text, outcome[1]);
    QCOMPARE(p.f.prompts.messages[0].style, 0);
    // Without a box of its own the caret stays on the button just pressed.
    QCOMPARE(QApplication::focusWidget()->objectName(), outcome[2].isEmpty() ? QString(accept) : outcome[2]);
    QCOMPARE(p.rows(), before);
    QCOMPARE(p.user.button(accept).text(), QStringLiteral("Accept"));
    QCOMPARE(p.boxes(), typed);
    QVERIFY(!p.state.document().isModified());
}

void tst_SequencePage::aSingleSequenceMakesANewOneTheFirst()
{
    Page p;
    p.state.document().tables().sequences.clear();
    p.user.addSequence({"0", "4", "7"});
    QCOMPARE(p.rows(), QStringList({"S00000 5 0 7"}));
    QCOMPARE(p.sequences.text(0), QStringLiteral("00000"));
    // With one sequence in the list a new one is checked as the first.
    p.user.addSequence({"5", "6", "8"});
    QCOMPARE(p.f.prompts.messageTexts(),
             QStringList({"A sprite texture is not assigned to any sequence before this first sequence."}));
    p.user.press("cmdSeqCancel");
    p.user.addSequence({"0", "1", "8"});
    QCOMPARE(p.rows(), QStringList({"S00000 5 0 7", "S00001 2 0 8"}));

    // After Close there is no list to add to.
    p.f.find<QAction>("mnuFileCloseList")->trigger();
    QVERIFY(p.user.text("lblAvailSTextures").isEmpty());
    QVERIFY(!p.user.button("cmdSeqAdd").isEnabled());
}

void tst_SequencePage::deleteAsksOnlyForAMiddleRow_data()
{
    QTest::addColumn<QString>("row"); // empty: a new sequence being added
    QTest::addColumn<int>("answer");
    QTest::addColumn<QString>("asked"); // the title of the one message, if any
    QTest::addColumn<bool>("removed");
    QTest::newRow("last") << "00011" << int(IPromptService::vbCancel) << "" << true;
    QTest::newRow("middle, OK") << "00005" << int(IPromptService::vbOK) << "Delicate Deletion" << true;
    QTest::newRow("middle, Cancel") << "00005" << int(IPromptService::vbCancel) << "Delicate Deletion" << false;
    QTest::newRow("not yet added") << "" << int(IPromptService::vbOK) << "Delete Error" << false;
}

void tst_SequencePage::deleteAsksOnlyForAMiddleRow()
{
    QFETCH(QString, row);
    QFETCH(int, answer);
    QFETCH(QString, asked);
    QFETCH(bool, removed);
    Page p;
    p.user.choose("lsvSequences", row.isEmpty() ? QStringLiteral("00003") : row);
    if (row.isEmpty())
        p.user.press("cmdSeqAdd");
    p.f.prompts.answers = {answer};
    p.user.press("cmdSeqDelete");

    QCOMPARE(p.f.prompts.messages.size(), asked.isEmpty() ? 0 : 1);
    if (asked == QLatin1String("Delicate Deletion")) {
        QCOMPARE(p.f.prompts.messages[0].style, 17);
        QCOMPARE(p.f.prompts.messages[0].text,
                 QStringLiteral("This is not the last sequence of the list!\r\nRemoving it will leave unassigned "
                                "sprite textures in the middle of the sequence list.\r\nA level list file cannot be "
                                "inserted into a level file if there are unassigned sprite textures in the middle "
                                "of the sequence list!\r\nDo you still want to delete this sequence?"));
    } else if (!asked.isEmpty()) {
        QCOMPARE(p.f.prompts.messages[0].style, 0);
        QCOMPARE(p.f.prompts.messages[0].text,
                 QStringLiteral("A new sequence not yet added tot he list cannot be deleted"));
    }
    if (!asked.isEmpty())
        QCOMPARE(p.f.prompts.messages[0].title, asked);
    QCOMPARE(p.sequences.count(), removed ? 11 : 12);
    QCOMPARE(p.sequences.findKey(QLatin1Char('S') + row) < 0, removed || row.isEmpty());
    // Nothing is renumbered.
    QCOMPARE(p.sequences.text(p.sequences.count() - 1), row == "00011" ? "00010" : "00011");
    QCOMPARE(p.f.window->sequencePage().lsvOneSequence().count() == 0, removed);
    QCOMPARE(p.state.document().isModified(), removed);
}

void tst_SequencePage::choosingASequenceFillsTheBoxesAndFrames_data()
{
    QTest::addColumn<bool>("withAnimations");
    QTest::newRow("with animations") << true;
    QTest::newRow("no animations: no preview") << false;
}

void tst_SequencePage::choosingASequenceFillsTheBoxesAndFrames()
{
    QFETCH(bool, withAnimations);
    Page p;
    if (!withAnimations)
        p.state.document().tables().ranges.clear();
    QVERIFY(!p.user.button("cmdSequnce").isEnabled());
    p.user.choose("lsvSequences", QStringLiteral("00006"));
    QCOMPARE(p.boxes(), QStringList({"16", "20", "166"}));
    QCOMPARE(p.user.text("lblSeqKey"), QStringLiteral("S00006"));
    QVERIFY(!p.f.find<QLineEdit>("txtSeqStart")->isEnabled());
    QVERIFY(p.user.button("cmdSeqEdit").isEnabled() && p.user.button("cmdSeqDelete").isEnabled());
    QCOMPARE(p.user.button("cmdSequnce").isEnabled(), withAnimations);

    const QList<SpriteTexture> sprites = DemoLevel().spriteTextures();
    const ListRows& frames = p.f.window->sequencePage().lsvOneSequence();
    QStringList expected, shown;
    for (int sprite = 16; sprite <= 20; ++sprite) {
        const SpriteTexture& s = sprites[sprite];
        expected << QStringLiteral("%1 %2 %3 %4 %5").arg(sprite).arg(s.x).arg(s.tile * 256 + s.y).arg(s.width).arg(s.height);
        const int row = int(shown.size());
        shown << (QStringList{frames.text(row)} + frames.row(row).subItems.mid(0, 4)).join(QLatin1Char(' '));
    }
    QCOMPARE(shown, expected);
}

void tst_SequencePage::thousandsOfSequences()
{
    Page p;
    const int count = 3000;
    p.addSprites(count + 2 - 29);
    std::vector<SequenceEntry> rows;
    for (int i = 0; i < count; ++i) {
        SpriteSequence record;
        record.setNumber(1);
        record.first = qint16(i);
        rows.push_back({record, i});
    }
    p.state.document().tables().sequences.assign(std::move(rows));

    p.user.choose("lsvSequences", QStringLiteral("01500"));
    p.user.press("cmdSeqEdit");
    p.user.typeSequence({"1501", "1501", "5"});
    p.user.press("cmdSeqEdit");
    QCOMPARE(p.f.prompts.messages.last().title, QStringLiteral("Sequence Error"));
    p.user.press("cmdSeqCancel");
    p.user.choose("lsvSequences", QStringLiteral("01500"));
    p.f.prompts.answers = {IPromptService::vbOK};
    p.user.press("cmdSeqDelete");
    // The row count, 2999, names a row still there: the new one takes 3000.
    p.user.addSequence({"3000", "3001", "9"});
    QCOMPARE(p.f.prompts.messages.size(), 2);
    QCOMPARE(p.rows().last(), QStringLiteral("S03000 2 3000 9"));
}

QTEST_MAIN(tst_SequencePage)
#include "tst_SequencePage.moc"
