#include "common/FileError.h"
#include "common/FileIdentity.h"
#include "support/ScratchDir.h"

#include <QDir>
#include <QFile>
#include <QTest>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

// Paths compared by the file they reach: every spelling of one file is the
// same file, and no two files are.
class tst_FileIdentity : public QObject
{
    Q_OBJECT

    ScratchDir m_dir;

private slots:
    void initTestCase()
    {
        m_dir.write(QStringLiteral("a.tr2"), "a");
        m_dir.write(QStringLiteral("b.tr2"), "a"); // the same bytes, another file
        m_dir.write(QStringLiteral("sub/c.trt"), "c");
        QVERIFY(QFile::link(m_dir.filePath(QStringLiteral("a.tr2")), m_dir.filePath(QStringLiteral("link.bmp"))));
        QVERIFY(QFile::link(m_dir.filePath(QStringLiteral("link.bmp")), m_dir.filePath(QStringLiteral("sub/link2"))));
        QVERIFY(QFile::link(m_dir.filePath(QStringLiteral("gone")), m_dir.filePath(QStringLiteral("dangling"))));
#ifdef Q_OS_UNIX
        QCOMPARE(::link(QFile::encodeName(m_dir.filePath(QStringLiteral("a.tr2"))).constData(),
                        QFile::encodeName(m_dir.filePath(QStringLiteral("hard.bmp"))).constData()),
                 0);
#endif
    }

    void sameFile_data()
    {
        QTest::addColumn<QString>("output");
        QTest::addColumn<QStringList>("inputs");
        QTest::addColumn<QString>("matched"); // the input named in the refusal; "" for none
        const QStringList level{"a.tr2"};
        QTest::newRow("the same path") << "a.tr2" << level << "a.tr2";
        QTest::newRow("a symbolic link") << "link.bmp" << level << "a.tr2";
        QTest::newRow("a link to a link") << "sub/link2" << level << "a.tr2";
#ifdef Q_OS_UNIX
        QTest::newRow("a hard link") << "hard.bmp" << level << "a.tr2";
#endif
        QTest::newRow("a .. step") << "sub/../a.tr2" << level << "a.tr2";
        QTest::newRow("the second input") << "sub/./c.trt" << QStringList{"a.tr2", "sub/c.trt"} << "sub/c.trt";
        QTest::newRow("a file of the same bytes") << "b.tr2" << level << "";
        QTest::newRow("an output not there yet") << "new.tr2" << level << "";
        QTest::newRow("a dangling link") << "dangling" << level << "";
        QTest::newRow("an empty input") << "a.tr2" << QStringList{""} << "";
        QTest::newRow("no input") << "a.tr2" << QStringList{} << "";
    }

    void sameFile()
    {
        QFETCH(QString, output);
        QFETCH(QStringList, inputs);
        QFETCH(QString, matched);
        for (QString& input : inputs) {
            if (!input.isEmpty())
                input = m_dir.filePath(input);
        }
        const QString outputPath = m_dir.filePath(output);
        const FileError refusal = FileIdentity::outputRefusal(outputPath, inputs);
        QCOMPARE(refusal.failed(), !matched.isEmpty());
        if (matched.isEmpty())
            return;
        QCOMPARE(refusal.file(), outputPath);
        QCOMPARE(refusal.what(), FileError::cannotWrite());
        QCOMPARE(refusal.why(),
                 QStringLiteral("is the same file as %1").arg(QDir::toNativeSeparators(m_dir.filePath(matched))));
        QVERIFY(FileIdentity::of(outputPath).isSameFile(FileIdentity::of(m_dir.filePath(matched))));
    }
};

QTEST_GUILESS_MAIN(tst_FileIdentity)
#include "tst_FileIdentity.moc"
