#include "list/C_ListInfo.h"
#include "list/ListViewSet.h"
#include "support/FileAlias.h"
#include "support/ListFixture.h"
#include "ui/common/EditorState.h"
#include "uisupport/EditorFixture.h"

#include <QAction>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QStatusBar>
#include <QTest>
#include <QtEndian>

// The editor over files that are not what they seem: an output that is an
// input under another name, bitmaps cut short, lists whose names or ranges
// hold what no list should.
class tst_HostileFiles : public QObject
{
    Q_OBJECT

    // The same file as target under another name inside dir: "symlink",
    // "hardlink" or "dotdot".
    static QString alias(const EditorFixture& f, const QString& target, const QString& spelling)
    {
        return FileAlias::make(target, spelling, f.dir.filePath(QStringLiteral("alias-") + QFileInfo(target).fileName()),
                               f.dir.filePath(QStringLiteral("sub")));
    }

    static QString statusText(const EditorFixture& f) { return f.window->statusBar()->currentMessage(); }

private slots:
    // Save As, New List and "From Level..." never write over a file they
    // read, however its name is spelt: one message naming both, and the
    // file keeps its bytes.
    void outputIsNeverAnInput_data()
    {
        QTest::addColumn<QString>("operation");
        QTest::addColumn<QString>("input"); // "level" or "bitmap"
        QTest::addColumn<QString>("spelling");
        for (const char* spelling : {"symlink", "hardlink", "dotdot"}) {
            const QString s = QString::fromLatin1(spelling);
            QTest::newRow(qPrintable("Save As onto the level, " + s)) << "saveAs" << "level" << s;
            QTest::newRow(qPrintable("Save As onto the bitmap, " + s)) << "saveAs" << "bitmap" << s;
            QTest::newRow(qPrintable("New List onto the level, " + s)) << "newList" << "level" << s;
            QTest::newRow(qPrintable("New List onto the bitmap, " + s)) << "newList" << "bitmap" << s;
            QTest::newRow(qPrintable("From Level onto the level, " + s)) << "fromLevel" << "level" << s;
        }
    }

    void outputIsNeverAnInput()
    {
        QFETCH(QString, operation);
        QFETCH(QString, input);
        QFETCH(QString, spelling);
#ifndef Q_OS_UNIX
        if (spelling == QLatin1String("hardlink"))
            QSKIP("hard links are made through the POSIX call");
#endif
        EditorFixture f;
        const QString target = input == QLatin1String("level") ? f.levelPath() : f.bitmapPath();
        const QByteArray before = ScratchDir::read(target);
        const QString output = alias(f, target, spelling);
        QVERIFY(!output.isEmpty());
        if (operation == QLatin1String("saveAs")) {
            f.openList(f.listPath());
            f.prompts.clearRecords();
            f.prompts.fileNames << output;
            f.find<QAction>("mnuFileSaveAsList")->trigger();
        } else if (operation == QLatin1String("newList")) {
            f.newList(output, f.levelPath(), f.bitmapPath());
        } else {
            f.prompts.formScripts << [&](QDialog& form) {
                f.prompts.fileNames << f.levelPath() << output;
                EditorFixture::click(form, "cmdLevelFile");
                EditorFixture::click(form, "cmdBitmapFromLevel");
                EditorFixture::click(form, "cmdCancel");
            };
            f.find<QAction>("mnuFileNewList")->trigger();
        }
        const QStringList said = f.prompts.messageTexts();
        QCOMPARE(said.size(), 1);
        QVERIFY2(said[0].contains(QStringLiteral("is the same file as ") + QDir::toNativeSeparators(target)),
                 qPrintable(said[0]));
        QCOMPARE(ScratchDir::read(target), before);
    }

    // A bitmap that holds fewer rows than it claims is named as cut: once in
    // a warning when it comes, and in the status bar.
    void aCutBitmapIsNamedAsCut_data()
    {
        QTest::addColumn<QString>("format");
        QTest::newRow("BMP") << "BMP";
        QTest::newRow("PNG") << "PNG";
    }

    void aCutBitmapIsNamedAsCut()
    {
        QFETCH(QString, format);
        EditorFixture f;
        const QString whole = f.dir.filePath(QStringLiteral("whole.") + format.toLower());
        QVERIFY(QImage(f.bitmapPath()).save(whole, qPrintable(format)));
        const QByteArray bytes = ScratchDir::read(whole);
        const QString cut = f.dir.write(QStringLiteral("cut.") + format.toLower(), bytes.left(bytes.size() * 3 / 4));
        ListViewSet views;
        const QString list = f.dir.filePath(QStringLiteral("cut.trt"));
        QCOMPARE(ListFixture::random(4, 1, 2, 1, 1, 3).write(views, list, f.levelPath(), cut), C_ListInfo::Success);
        f.prompts.clearRecords();
        f.openList(list);
        const QStringList said = f.prompts.messageTexts();
        QCOMPARE(said.size(), 1);
        QVERIFY2(said[0].contains(QStringLiteral("is cut short")), qPrintable(said[0]));
        QVERIFY(said[0].contains(QDir::toNativeSeparators(cut)));
        if (f.window->state().document().IsBitmapLoaded())
            QVERIFY2(statusText(f).contains(QStringLiteral("cut short")), qPrintable(statusText(f)));
    }

    // The bitmap view decodes nothing a level could not address or its
    // file's size cannot explain: a 4 KB PNG claiming 512 tiles is refused
    // in one message, and no bitmap is shown.
    void theBitmapViewHoldsTheDecodingBound()
    {
        EditorFixture f;
        QImage bomb(256, 512 * 256, QImage::Format_Mono);
        bomb.fill(0);
        const QString bitmap = f.dir.filePath(QStringLiteral("bomb.png"));
        QVERIFY(bomb.save(bitmap, "PNG"));
        QVERIFY(QFileInfo(bitmap).size() < 64 * 1024);
        ListViewSet views;
        const QString list = f.dir.filePath(QStringLiteral("bomb.trt"));
        QCOMPARE(ListFixture::random(4, 1, 2, 1, 1, 3).write(views, list, f.levelPath(), bitmap), C_ListInfo::Success);
        f.prompts.clearRecords();
        f.openList(list);
        const QStringList said = f.prompts.messageTexts();
        QCOMPARE(said.size(), 1);
        QVERIFY2(said[0].contains(QStringLiteral("would decode its 256 x 131072 pixels")), qPrintable(said[0]));
        QVERIFY(!f.window->state().document().IsBitmapLoaded());
    }

    // The Insert dialog shows the level a list names cut, whatever its length.
    void theInsertDialogShowsTheListsLevelCut()
    {
        EditorFixture f;
        ListViewSet views;
        const QString list = f.dir.filePath(QStringLiteral("long-level.trt"));
        const QString level = QString(0xFFF0, QLatin1Char('l'));
        QCOMPARE(ListFixture::random(4, 1, 2, 1, 1, 3).write(views, list, level, f.bitmapPath()), C_ListInfo::Success);
        QString shown;
        f.prompts.formScripts << [&](QDialog& form) {
            f.prompts.fileNames << list;
            EditorFixture::click(form, "cmdGetList");
            shown = form.findChild<QLabel*>(QStringLiteral("lblLevel"))->text();
            EditorFixture::click(form, "cmdCancel");
        };
        f.find<QAction>("mnuListInser")->trigger();
        QVERIFY(shown.size() <= 160);
        QVERIFY(shown.startsWith(QStringLiteral("lll")) && shown.endsWith(QStringLiteral("lll")));
        for (const QString& message : f.prompts.messageTexts())
            QVERIFY(message.size() < 400);
    }

    // What a list holds reaches the window's messages cut and escaped, and a
    // damaged range block is said on Open.
    void listContentsAreShownSafely_data()
    {
        QTest::addColumn<QString>("bitmapName");
        QTest::addColumn<bool>("damageRanges");
        QTest::addColumn<QString>("said"); // in a message, or else in the status bar
        QTest::newRow("a bitmap name of 64 KB") << QString(0xFFF0, QLatin1Char('n')) << false << "nnnn";
        QTest::newRow("a range longer than its block") << QString() << true << "claims 65536 textures";
    }

    void listContentsAreShownSafely()
    {
        QFETCH(QString, bitmapName);
        QFETCH(bool, damageRanges);
        QFETCH(QString, said);
        EditorFixture f;
        ListViewSet views;
        const QString list = f.dir.filePath(QStringLiteral("hostile.trt"));
        const QString bitmap = bitmapName.isEmpty() ? f.bitmapPath() : bitmapName;
        QCOMPARE(ListFixture::random(6, 1, 3, 1, 1, 4).write(views, list, f.levelPath(), bitmap), C_ListInfo::Success);
        if (damageRanges) {
            C_ListInfo info;
            QCOMPARE(info.InitForInsert(list), C_ListInfo::Success);
            QByteArray bytes = ScratchDir::read(list);
            qToLittleEndian(quint16(0xFFFF), bytes.data() + info.OffsetAnimatedTexture() + 6);
            f.dir.write(QStringLiteral("hostile.trt"), bytes);
        }
        f.prompts.clearRecords();
        f.openList(list);
        for (const QString& message : f.prompts.messageTexts())
            QVERIFY2(message.size() < 400, qPrintable(message.left(400)));
        const QString shown = f.prompts.messageTexts().join(QLatin1Char('\n')) + statusText(f);
        QVERIFY2(shown.contains(said), qPrintable(shown.left(400)));
        QVERIFY(statusText(f).size() < 400);
    }
};

QTEST_MAIN(tst_HostileFiles)
#include "tst_HostileFiles.moc"
