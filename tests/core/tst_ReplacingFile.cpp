#include "common/ReplacingFile.h"
#include "support/ScratchDir.h"

#include <QDir>
#include <QTest>

#include <memory>

class tst_ReplacingFile : public QObject
{
    Q_OBJECT

    // What the folder holds besides the files a test expects: a temporary
    // file left behind shows up here.
    // Owner, group and others: the "user" bits only mirror one of them.
    static int modeOf(const QString& path) { return int(QFile::permissions(path)) & 0x7077; }

    static QStringList entriesOf(const ScratchDir& dir)
    {
        return QDir(dir.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden, QDir::Name);
    }

private slots:
    void replaces_data()
    {
        QTest::addColumn<QByteArray>("old");
        QTest::addColumn<QByteArray>("written");
        QTest::newRow("no file yet") << QByteArray() << QByteArray("bitmap");
        QTest::newRow("a longer file: nothing of it stays") << QByteArray(100, 'x') << QByteArray("short");
        QTest::newRow("a shorter file") << QByteArray("x") << QByteArray(70000, 'b');
        QTest::newRow("empty result") << QByteArray("old") << QByteArray();
    }

    void replaces()
    {
        QFETCH(QByteArray, old);
        QFETCH(QByteArray, written);
        ScratchDir dir;
        const QString path = dir.filePath(QStringLiteral("t.bmp"));
        if (!old.isEmpty())
            dir.write(QStringLiteral("t.bmp"), old);
        ReplacingFile file(path);
        QVERIFY(file.open());
        // Room set aside beyond what is written must not become part of the file.
        QVERIFY(file.reserve(written.size() + 5000));
        QVERIFY(file.write(written.left(3)) && file.write(written.mid(3)));
        QCOMPARE(ScratchDir::read(path), old); // nothing shows before the commit
        QVERIFY2(file.commit(), qPrintable(file.errorString()));
        QCOMPARE(ScratchDir::read(path), written);
        QCOMPARE(entriesOf(dir), QStringList{QStringLiteral("t.bmp")});
    }

#ifdef Q_OS_UNIX
    // A replaced file keeps its permissions; a new one gets what any new
    // file in the folder would, not a temporary file's owner-only ones.
    void permissions()
    {
        ScratchDir dir;
        const QString kept = dir.write(QStringLiteral("kept.bmp"), "old");
        const auto chosen = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
        QVERIFY(QFile::setPermissions(kept, chosen));
        const QString plain = dir.write(QStringLiteral("plain"), "any");
        for (const QString& name : {QStringLiteral("kept.bmp"), QStringLiteral("new.bmp")}) {
            ReplacingFile file(dir.filePath(name));
            QVERIFY(file.open() && file.write("new") && file.commit());
        }
        QCOMPARE(modeOf(kept), int(chosen));
        QCOMPARE(modeOf(dir.filePath(QStringLiteral("new.bmp"))), modeOf(plain));
    }
#endif

    // Every way of failing leaves the file the user had and no stray files.
    void failures_data()
    {
        QTest::addColumn<QString>("target");
        QTest::addColumn<bool>("becomesFolderBeforeCommit");
        QTest::addColumn<bool>("commits");
        QTest::newRow("target is a folder") << "folder" << false << true;
        QTest::newRow("folder missing") << "no/such/t.bmp" << false << true;
        QTest::newRow("target turns into a folder while writing") << "late" << true << true;
        QTest::newRow("given up without a commit") << "kept.bmp" << false << false;
    }

    void failures()
    {
        QFETCH(QString, target);
        QFETCH(bool, becomesFolderBeforeCommit);
        QFETCH(bool, commits);
        ScratchDir dir;
        dir.write(QStringLiteral("kept.bmp"), "old");
        QDir(dir.path()).mkdir(QStringLiteral("folder"));
        const QStringList before = entriesOf(dir);
        {
            auto file = std::make_unique<ReplacingFile>(dir.filePath(target));
            bool ok = file->open() && file->write("new bytes");
            if (becomesFolderBeforeCommit)
                QDir(dir.path()).mkdir(target);
            if (commits)
                ok = ok && file->commit();
            QVERIFY(!ok || !commits);
            if (commits)
                QVERIFY(!file->errorString().isEmpty());
        }
        QStringList after = entriesOf(dir);
        if (becomesFolderBeforeCommit)
            after.removeOne(target);
        QCOMPARE(after, before);
        QCOMPARE(ScratchDir::read(dir.filePath(QStringLiteral("kept.bmp"))), QByteArray("old"));
    }
};

QTEST_GUILESS_MAIN(tst_ReplacingFile)
#include "tst_ReplacingFile.moc"
