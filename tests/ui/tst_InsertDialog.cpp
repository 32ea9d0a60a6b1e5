#include "level/C_LevelInfo.h"
#include "list/ListDocument.h"
#include "uisupport/EditorFixture.h"

#include <QAction>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTest>

// List, Insert List Into Level from the window: what it starts with, what it
// asks, and that what reaches the level is what the window shows.
class tst_InsertDialog : public QObject
{
    Q_OBJECT

    static QString native(const QString& path) { return QDir::toNativeSeparators(path); }
    static QString text(QDialog& form, const char* name)
    {
        if (auto* box = form.findChild<QLineEdit*>(QString::fromLatin1(name)))
            return box->text();
        return form.findChild<QLabel*>(QString::fromLatin1(name))->text();
    }
    static int objectTexturesOf(const QString& level)
    {
        C_LevelInfo info;
        info.Init(level);
        return info.IsOpened() ? int(info.NumberObjectTexture()) : -1;
    }

private slots:
    void unsavedChangesAreSavedFirstOrNothingIsInserted_data()
    {
        QTest::addColumn<bool>("save");
        QTest::newRow("Save and Insert") << true;
        QTest::newRow("Cancel") << false;
    }

    // Three textures deleted on screen: the level gets 27 of them, or nothing
    // happens at all; never the 30 of the file as it was last saved.
    void unsavedChangesAreSavedFirstOrNothingIsInserted()
    {
        QFETCH(bool, save);
        EditorFixture f;
        f.openList(f.listPath());
        for (int i = 0; i < 3; ++i)
            QVERIFY(f.window->document().DeleteTexture(i));
        const QByteArray saved = ScratchDir::read(f.listPath());
        f.prompts.saveAnswers << (save ? IPromptService::SaveAnswer::Save : IPromptService::SaveAnswer::Cancel);
        f.prompts.formScripts << [](QDialog& form) { EditorFixture::click(form, "cmdInsert"); };
        f.find<QAction>("mnuListInser")->trigger();

        QCOMPARE(f.prompts.messageTexts(),
                 QStringList{QStringLiteral("Save the changes to demo.trt before inserting it into a level?")});
        QCOMPARE(f.prompts.messages[0].style, ScriptedPrompts::saveFirstStyle);
        QCOMPARE(f.prompts.saveCaptions, QStringList{QStringLiteral("Save and Insert")});
        const QString output = f.dir.filePath(QStringLiteral("templevel.tr2"));
        QCOMPARE(f.prompts.formsShown.size(), save ? 1 : 0);
        QCOMPARE(QFile::exists(output), save);
        QCOMPARE(f.window->document().isModified(), !save);
        QCOMPARE(ScratchDir::read(f.listPath()) == saved, !save);
        if (save)
            QCOMPARE(objectTexturesOf(output), 27);
        else
            QVERIFY(f.window->statusBar()->currentMessage().startsWith(QStringLiteral("Nothing was inserted")));
    }

    void aSavedListIsInsertedWithoutAQuestion()
    {
        EditorFixture f;
        f.openList(f.listPath());
        QVERIFY(f.window->document().DeleteTexture(0));
        f.find<QAction>("mnuFileSaveList")->trigger();
        f.prompts.formScripts << [](QDialog& form) { EditorFixture::click(form, "cmdInsert"); };
        f.find<QAction>("mnuListInser")->trigger();
        QVERIFY(f.prompts.messages.isEmpty());
        QCOMPARE(objectTexturesOf(f.dir.filePath(QStringLiteral("templevel.tr2"))), 29);
    }

    void theDialogStartsWithTheOpenList_data()
    {
        QTest::addColumn<bool>("open");
        QTest::newRow("a list open") << true;
        QTest::newRow("no list") << false;
    }

    void theDialogStartsWithTheOpenList()
    {
        QFETCH(bool, open);
        EditorFixture f;
        if (open)
            f.openList(f.listPath());
        QString list, level, output;
        bool insertable = false;
        f.prompts.formScripts << [&](QDialog& form) {
            list = text(form, "lblTextureList");
            level = text(form, "lblLevel");
            output = text(form, "txtOutput");
            insertable = form.findChild<QPushButton*>(QStringLiteral("cmdInsert"))->isEnabled();
        };
        f.find<QAction>("mnuListInser")->trigger();
        QCOMPARE(list, open ? native(f.listPath()) : QString());
        QCOMPARE(level, open ? native(f.levelPath()) : QString());
        QCOMPARE(output, open ? native(f.dir.filePath(QStringLiteral("templevel.tr2"))) : QString());
        QCOMPARE(insertable, open);
    }

    void theOutputIsWhereTheUserSays_data()
    {
        QTest::addColumn<QString>("how");
        QTest::addColumn<QString>("output"); // in the scratch folder, where the level is
        QTest::newRow("typed") << "typed" << "mine/new level.tr2";
        QTest::newRow("a bare name typed: beside the level") << "bare" << "bare.tr2";
        QTest::newRow("chosen in the dialog") << "chosen" << "mine/new level.tr2";
        QTest::newRow("dialog cancelled: the default stays") << "cancelled" << "templevel.tr2";
    }

    void theOutputIsWhereTheUserSays()
    {
        QFETCH(QString, how);
        QFETCH(QString, output);
        EditorFixture f;
        const QString chosen = f.dir.filePath(output);
        QVERIFY(QDir().mkpath(QFileInfo(chosen).path()));
        f.prompts.formScripts << [&](QDialog& form) {
            f.prompts.fileNames << f.listPath();
            EditorFixture::click(form, "cmdGetList");
            auto* box = form.findChild<QLineEdit*>(QStringLiteral("txtOutput"));
            if (how == "typed" || how == "bare") {
                box->setText(how == "bare" ? output : native(chosen));
            } else {
                f.prompts.fileNames << (how == "chosen" ? chosen : QString());
                EditorFixture::click(form, "cmdOutput");
            }
            EditorFixture::click(form, "cmdInsert");
        };
        f.find<QAction>("mnuListInser")->trigger();
        const QString fallback = f.dir.filePath(QStringLiteral("templevel.tr2"));
        QCOMPARE(ScratchDir::read(chosen), ScratchDir::read(f.levelPath()));
        QCOMPARE(QFile::exists(fallback), how == "cancelled");
        if (how == "chosen" || how == "cancelled") {
            QCOMPARE(f.prompts.fileRequests.last().title, QStringLiteral("Save the New Level As"));
            QVERIFY(f.prompts.fileRequests.last().save);
        }
    }

    void anExistingOutputIsReplacedOnlyWhenTheUserAgrees_data()
    {
        QTest::addColumn<int>("answer");
        QTest::newRow("Yes: replaced") << int(IPromptService::vbYes);
        QTest::newRow("No: kept") << int(IPromptService::vbNo);
    }

    void anExistingOutputIsReplacedOnlyWhenTheUserAgrees()
    {
        QFETCH(int, answer);
        EditorFixture f;
        const QString output = f.dir.write(QStringLiteral("templevel.tr2"), "an older level");
        f.openList(f.listPath());
        f.prompts.answers << answer;
        f.prompts.formScripts << [](QDialog& form) { EditorFixture::click(form, "cmdInsert"); };
        f.find<QAction>("mnuListInser")->trigger();

        QCOMPARE(f.prompts.messages.size(), 1);
        QVERIFY(f.prompts.messages[0].text.contains(native(output)));
        QCOMPARE(f.prompts.messages[0].style, IPromptService::vbYesNo | IPromptService::vbExclamation);
        const bool replaced = answer == IPromptService::vbYes;
        QCOMPARE(ScratchDir::read(output) == ScratchDir::read(f.levelPath()), replaced);
        QCOMPARE(ScratchDir::read(output) == "an older level", !replaced);
        QVERIFY(f.window->statusBar()->currentMessage().contains(native(output)));
    }
};

QTEST_MAIN(tst_InsertDialog)
#include "tst_InsertDialog.moc"
