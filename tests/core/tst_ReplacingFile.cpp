#include "common/ReplacingFile.h"
#include "common/TemporaryNameGuard.h"
#include "support/ScratchDir.h"

#include <QDateTime>
#include <QDir>
#include <QTest>

#include <cerrno>
#include <memory>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#ifdef Q_OS_LINUX
#include <sys/sysmacros.h>
#endif
#include <sys/wait.h>
#include <unistd.h>
#endif

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

    // Only what an interrupted write of this very target left, and long
    // enough ago, is removed; what merely looks alike stays.
    void staleTemporariesGo()
    {
        ScratchDir dir;
        const QDateTime longAgo = QDateTime::currentDateTime().addDays(-1);
        const QStringList names{"t.bmp.0badf00d.tmp", "t.bmp.1234abcd.tmp", "t.bmp.notours1.tmp", "u.bmp.0badf00d.tmp",
                                "t.bmp.0badf00d.tmp.keep"};
        for (const QString& name : names) {
            QFile file(dir.write(name, "stale"));
            QVERIFY(file.open(QIODevice::ReadWrite) && file.setFileTime(longAgo, QFileDevice::FileModificationTime));
        }
        dir.write(QStringLiteral("t.bmp.1234abcd.tmp"), "being written now");
        ReplacingFile file(dir.filePath(QStringLiteral("t.bmp")));
        QVERIFY(file.open() && file.write("new") && file.commit());
        QCOMPARE(entriesOf(dir), (QStringList{"t.bmp", "t.bmp.0badf00d.tmp.keep", "t.bmp.1234abcd.tmp",
                                              "t.bmp.notours1.tmp", "u.bmp.0badf00d.tmp"}));
    }

    void olderTailOnRequest_data()
    {
        QTest::addColumn<QByteArray>("old");
        QTest::addColumn<bool>("keepTail");
        QTest::addColumn<QByteArray>("expected");
        QTest::newRow("longer file, tail kept") << QByteArray("0123456789") << true << QByteArray("new3456789");
        QTest::newRow("longer file, replaced") << QByteArray("0123456789") << false << QByteArray("new");
        QTest::newRow("shorter file") << QByteArray("01") << true << QByteArray("new");
        QTest::newRow("no file") << QByteArray() << true << QByteArray("new");
    }

    void olderTailOnRequest()
    {
        QFETCH(QByteArray, old);
        QFETCH(bool, keepTail);
        QFETCH(QByteArray, expected);
        ScratchDir dir;
        const QString path = dir.filePath(QStringLiteral("level.tr2"));
        if (!old.isEmpty())
            dir.write(QStringLiteral("level.tr2"), old);
        ReplacingFile file(path, keepTail ? ReplacingFile::KeepOlderTail : ReplacingFile::NoOption);
        QVERIFY(file.open() && file.write("new"));
        QVERIFY2(file.commit(), qPrintable(file.error().text()));
        QCOMPARE(file.written(), 3);
        QCOMPARE(ScratchDir::read(path), expected);
        QCOMPARE(entriesOf(dir), QStringList{QStringLiteral("level.tr2")});
    }

#ifdef Q_OS_UNIX
    // What the name leads to decides: a link is written through, a file that
    // is no regular one or is write-protected is refused as it stands.
    void whatTheNameLeadsTo_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("refusal"); // "" when the write goes through
        QTest::newRow("symbolic link") << "link" << "";
        QTest::newRow("link to a file not there yet") << "dangling" << "";
        QTest::newRow("name of 255 bytes") << "long" << "";
        QTest::newRow("write-protected") << "protected" << "is write-protected";
        QTest::newRow("FIFO") << "fifo" << "is a FIFO, not a regular file";
        QTest::newRow("device") << "device" << "is a device, not a regular file";
        QTest::newRow("link to a FIFO") << "fifo-link" << "is a FIFO, not a regular file";
        QTest::newRow("folder") << "folder" << "is a directory";
    }

    void whatTheNameLeadsTo()
    {
        QFETCH(QString, kind);
        QFETCH(QString, refusal);
        ScratchDir dir;
        const QString target = dir.filePath(QStringLiteral("target"));
        QString name = dir.filePath(QStringLiteral("given"));
        const QByteArray native = QFile::encodeName(name);
        if (kind == QLatin1String("link") || kind == QLatin1String("dangling")) {
            if (kind == QLatin1String("link"))
                dir.write(QStringLiteral("target"), "old");
            QVERIFY(QFile::link(target, name));
        } else if (kind == QLatin1String("long")) {
            name = dir.filePath(QString(255, QLatin1Char('n')));
        } else if (kind == QLatin1String("protected")) {
            dir.write(QStringLiteral("given"), "old");
            QVERIFY(QFile::setPermissions(name, QFile::ReadOwner | QFile::ReadGroup));
        } else if (kind == QLatin1String("fifo") || kind == QLatin1String("fifo-link")) {
            QCOMPARE(::mkfifo(QFile::encodeName(target).constData(), 0644), 0);
            if (kind == QLatin1String("fifo"))
                name = target;
            else
                QVERIFY(QFile::link(target, name));
        } else if (kind == QLatin1String("device")) {
            if (::mknod(native.constData(), S_IFCHR | 0666, makedev(1, 3)) != 0)
                QSKIP("no device node can be made here");
        } else if (kind == QLatin1String("folder")) {
            QVERIFY(QDir(dir.path()).mkdir(QStringLiteral("given")));
        }
        const QStringList before = entriesOf(dir);
        const QFileInfo shape(name);

        ReplacingFile file(name);
        const bool written = file.open() && file.write("new") && file.commit();
        QCOMPARE(written, refusal.isEmpty());
        QCOMPARE(file.error().why(), refusal);
        if (!written) {
            QCOMPARE(file.error().file(), name);
            QCOMPARE(entriesOf(dir), before);
            QCOMPARE(QFileInfo(name).isSymLink(), shape.isSymLink());
            QCOMPARE(QFileInfo(name).isFile(), shape.isFile());
            return;
        }
        QCOMPARE(ScratchDir::read(name), QByteArray("new"));
        if (kind != QLatin1String("long")) {
            QVERIFY(QFileInfo(name).isSymLink());
            QCOMPARE(ScratchDir::read(target), QByteArray("new"));
        }
    }

    // A file size limit stands in for a full disk: the write fails with the
    // system's own cause, and the older file and the folder are as they were.
    void shortWriteReportsItsCause()
    {
        ScratchDir dir;
        const QString path = dir.write(QStringLiteral("list.trt"), "old");
        rlimit before {};
        QCOMPARE(::getrlimit(RLIMIT_FSIZE, &before), 0);
        rlimit limited = before;
        limited.rlim_cur = 64 * 1024;
        QCOMPARE(::setrlimit(RLIMIT_FSIZE, &limited), 0);
        ReplacingFile file(path);
        const bool written = file.open() && file.write(QByteArray(200 * 1024, 'x')) && file.commit();
        ::setrlimit(RLIMIT_FSIZE, &before);
        QVERIFY(!written);
        QCOMPARE(file.error().why(), qt_error_string(EFBIG));
        QCOMPARE(file.error().text(), path + QStringLiteral(": cannot be written: ") + qt_error_string(EFBIG));
        QCOMPARE(ScratchDir::read(path), QByteArray("old"));
        QCOMPARE(entriesOf(dir), QStringList{QStringLiteral("list.trt")});
    }

    // A process ended by a signal halfway through a write leaves the folder
    // as it was: the writer's temporary has no name, and a named one (where
    // the system offers no other) is removed by its guard.
    void signalDuringWrite_data()
    {
        QTest::addColumn<int>("signal");
        QTest::addColumn<bool>("named");
        QTest::newRow("SIGINT") << int(SIGINT) << false;
        QTest::newRow("SIGTERM") << int(SIGTERM) << false;
        QTest::newRow("SIGTERM, named temporary") << int(SIGTERM) << true;
        QTest::newRow("SIGINT, named temporary") << int(SIGINT) << true;
    }

    void signalDuringWrite()
    {
        QFETCH(int, signal);
        QFETCH(bool, named);
        ScratchDir dir;
        const QString path = dir.write(QStringLiteral("tiles.bmp"), "old");
        const QString temporary = dir.filePath(QStringLiteral(".brindle-named"));
        const pid_t child = ::fork();
        QVERIFY(child >= 0);
        if (child == 0) {
            ::signal(signal, SIG_DFL);
            if (named) {
                QFile file(temporary);
                file.open(QIODevice::WriteOnly);
                file.write(QByteArray(4096, 'x'));
                TemporaryNameGuard guard(temporary);
                ::raise(signal);
            } else {
                ReplacingFile file(path);
                file.open();
                file.write(QByteArray(1 << 20, 'x'));
                ::raise(signal);
            }
            ::_exit(0);
        }
        int status = 0;
        QCOMPARE(::waitpid(child, &status, 0), child);
        QVERIFY(WIFSIGNALED(status));
        QCOMPARE(WTERMSIG(status), signal);
        QCOMPARE(entriesOf(dir), QStringList{QStringLiteral("tiles.bmp")});
        QCOMPARE(ScratchDir::read(path), QByteArray("old"));
    }
#endif
};

QTEST_GUILESS_MAIN(tst_ReplacingFile)
#include "tst_ReplacingFile.moc"
