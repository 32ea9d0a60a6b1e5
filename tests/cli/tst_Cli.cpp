#include "C_LevelInfo.h"
#include "C_ListInfo.h"
#include "ListFixture.h"
#include "ListViewSet.h"
#include "SyntheticLevel.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

class tst_Cli : public QObject
{
    Q_OBJECT

private:
    struct Run
    {
        int exitCode = -1;
        QByteArray out;
        QByteArray err;
    };

    QTemporaryDir m_dir;
    QString m_level;
    QString m_bitmap;
    ListFixture m_tables = ListFixture::random(30, 2, 3, 6, 2, 1);

    QString path(const QString& name) const { return m_dir.filePath(name); }

    static Run cli(const QStringList& arguments)
    {
        QProcess process;
        process.start(qEnvironmentVariable("BRINDLE_CLI"), arguments);
        Run run;
        if (!process.waitForFinished(60000))
            return run;
        run.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
        run.out = process.readAllStandardOutput();
        run.err = process.readAllStandardError();
        return run;
    }

    static QJsonObject json(const Run& run) { return QJsonDocument::fromJson(run.out).object(); }

    QString writeLevel(const QString& name, LevelVersion::Game game)
    {
        SyntheticLevel level(game);
        level.setRooms({SyntheticRoom{12, 1, 2, 2, 1, 1, false}});
        level.setCount(SyntheticField::Items, 2);
        level.setObjectTextures(m_tables.objectTextures);
        level.setSpriteTextures(m_tables.sprites);
        level.setSpriteSequences(m_tables.sequences);
        level.setAnimatedTextures(m_tables.animations);
        const QString file = path(name);
        return level.writeTo(file) ? file : QString();
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        QVERIFY(QFile::exists(qEnvironmentVariable("BRINDLE_CLI")));
        m_level = writeLevel(QStringLiteral("level.tr2"), LevelVersion::Game::TR2);
        m_bitmap = path(QStringLiteral("tiles.bmp"));
        QImage tiles(256, 512, QImage::Format_RGB32);
        tiles.fill(Qt::darkCyan);
        QVERIFY(tiles.save(m_bitmap, "BMP"));
    }

    void usage_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("exitCode");
        QTest::newRow("help") << QStringList{"--help"} << 0;
        QTest::newRow("command help") << QStringList{"info", "--help"} << 0;
        QTest::newRow("version") << QStringList{"--version"} << 0;
        QTest::newRow("nothing") << QStringList{} << 1;
        QTest::newRow("unknown command") << QStringList{"frobnicate"} << 1;
        QTest::newRow("info without level") << QStringList{"info"} << 1;
        QTest::newRow("unknown option") << QStringList{"info", "x.tr2", "--yaml"} << 1;
        QTest::newRow("extract without bitmap") << QStringList{"extract", "x.tr2", "-o", "x.trt"} << 1;
        QTest::newRow("option without value") << QStringList{"insert", "a", "b", "-o"} << 1;
    }

    void usage()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, exitCode);
        const Run run = cli(arguments);
        QCOMPARE(run.exitCode, exitCode);
        if (exitCode != 0)
            QVERIFY(run.err.startsWith("brindle-cli: "));
    }

    void infoJsonHasExactlyTheLevelsProperties()
    {
        const Run run = cli({QStringLiteral("info"), m_level, QStringLiteral("--json")});
        QCOMPARE(run.exitCode, 0);
        const QJsonObject info = json(run);
        QStringList keys = info.keys();
        keys.sort();
        QStringList expected{"Version", "VersionString", "TypeLevel", "OffsetCameras", "OffsetItems",
                             "FileLength", "Game"};
        for (const char* table : {"ObjectTexture", "SpriteTexture", "SpriteSequence", "AnimatedTexture"})
            for (const char* what : {"Offset", "Number", "Size"})
                expected.append(QLatin1String(what) + QLatin1String(table));
        expected.sort();
        QCOMPARE(keys, expected);

        C_LevelInfo level;
        level.Init(m_level);
        QCOMPARE(info.value(QStringLiteral("Version")).toInteger(), qint64(45));
        QCOMPARE(info.value(QStringLiteral("VersionString")).toString(), QStringLiteral("0000002D"));
        QCOMPARE(info.value(QStringLiteral("Game")).toString(), QStringLiteral("TR2"));
        QCOMPARE(info.value(QStringLiteral("OffsetObjectTexture")).toInteger(), level.OffsetObjectTexture());
        QCOMPARE(info.value(QStringLiteral("NumberObjectTexture")).toInteger(), 30);
        QCOMPARE(info.value(QStringLiteral("OffsetItems")).toInteger(), level.OffsetItems());
        QCOMPARE(info.value(QStringLiteral("FileLength")).toInteger(), QFileInfo(m_level).size());
    }

    void infoNamesTheGame_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("game");
        QTest::newRow("TR1") << QByteArray::fromHex("20000000") << "TR1";
        QTest::newRow("TR3") << QByteArray::fromHex("380018ff") << "TR3";
        QTest::newRow("unknown") << QByteArray::fromHex("01020304") << "unknown";
        QTest::newRow("empty") << QByteArray() << "unknown";
    }

    void infoNamesTheGame()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, game);
        const QString file = path(QStringLiteral("game.tr2"));
        QVERIFY(ListFixture::writeFile(file, bytes));
        const Run run = cli({QStringLiteral("info"), file, QStringLiteral("--json")});
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(json(run).value(QStringLiteral("Game")).toString(), game);
        QVERIFY(cli({QStringLiteral("info"), file}).out.contains(game.toLatin1()));
    }

    void unreadableInputsExitTwoWithOneLine_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("info missing") << QStringList{"info", "/nonexistent/level.tr2"};
        QTest::newRow("info directory") << QStringList{"info", "/"};
        QTest::newRow("dump missing") << QStringList{"dump", "/nonexistent/list.trt"};
        QTest::newRow("insert missing level") << QStringList{"insert", "/nonexistent/l.tr2", "/nonexistent/x.trt"};
    }

    void unreadableInputsExitTwoWithOneLine()
    {
        QFETCH(QStringList, arguments);
        const Run run = cli(arguments);
        QCOMPARE(run.exitCode, 2);
        QCOMPARE(run.err.count('\n'), 1);
        QVERIFY(run.err.contains("/"));
    }

    void extractWritesWhatTheDocumentWrites()
    {
        const QString list = path(QStringLiteral("extracted.trt"));
        const Run run = cli({QStringLiteral("extract"), m_level, QStringLiteral("--bitmap"), m_bitmap,
                             QStringLiteral("-o"), list});
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.out.trimmed(), QFile::encodeName(list));

        ListViewSet views;
        m_tables.fill(views);
        C_ListInfo expected;
        expected.Init(list, m_level, m_bitmap, &views.lsvTextures, &views.lsvAnims, &views.lsvAnimDetails,
                      &views.lsvSprites, &views.lsvSequences, &views.lsvSequenceDetails);
        QCOMPARE(ListFixture::readFile(list), expected.ListFileImage());
    }

    void extractRefusesWhatItCannotUse_data()
    {
        QTest::addColumn<QByteArray>("level");
        QTest::addColumn<bool>("goodBitmap");
        QTest::newRow("TR1 level") << QByteArray::fromHex("20000000") << true;
        QTest::newRow("not a bitmap") << QByteArray() << false;
    }

    void extractRefusesWhatItCannotUse()
    {
        QFETCH(QByteArray, level);
        QFETCH(bool, goodBitmap);
        QString levelPath = m_level;
        if (!level.isEmpty()) {
            levelPath = path(QStringLiteral("refused.tr2"));
            ListFixture::writeFile(levelPath, level);
        }
        QString bitmap = m_bitmap;
        if (!goodBitmap) {
            bitmap = path(QStringLiteral("not-a.bmp"));
            ListFixture::writeFile(bitmap, "plain text");
        }
        const QString list = path(QStringLiteral("refused.trt"));
        const Run run = cli({QStringLiteral("extract"), levelPath, QStringLiteral("--bitmap"), bitmap,
                             QStringLiteral("-o"), list});
        QCOMPARE(run.exitCode, 2);
        QVERIFY(!QFile::exists(list));
    }

    void dumpShowsTheSixViews()
    {
        const QString list = path(QStringLiteral("dumped.trt"));
        QCOMPARE(cli({QStringLiteral("extract"), m_level, QStringLiteral("--bitmap"), m_bitmap,
                      QStringLiteral("-o"), list}).exitCode, 0);
        const Run run = cli({QStringLiteral("dump"), list, QStringLiteral("--json")});
        QCOMPARE(run.exitCode, 0);
        const QJsonObject dump = json(run);
        QCOMPARE(dump.value(QStringLiteral("VersionString")).toString(), QStringLiteral("0000002D"));
        QCOMPARE(dump.value(QStringLiteral("NumberAnimatedTexture")).toInteger(), 1 + 2 + 6);
        QCOMPARE(dump.value(QStringLiteral("BitMapName")).toString(), m_bitmap);
        QVERIFY(dump.contains(QStringLiteral("Offset_EOF")));
        const QJsonObject views = dump.value(QStringLiteral("views")).toObject();
        QCOMPARE(views.keys().size(), 6);
        const QJsonArray textures = views.value(QStringLiteral("lsvTextures")).toArray();
        QCOMPARE(textures.size(), 30);
        const QJsonObject first = textures.first().toObject();
        QCOMPARE(first.value(QStringLiteral("key")).toString(), QStringLiteral("T0"));
        QCOMPARE(first.value(QStringLiteral("text")).toString(), QStringLiteral("00"));
        QCOMPARE(first.value(QStringLiteral("subItems")).toArray().size(), 18);
        QCOMPARE(views.value(QStringLiteral("lsvSequenceDetails")).toArray().size(), 2);
        QCOMPARE(views.value(QStringLiteral("lsvAnimDetails")).toArray().size(), 6);

        const Run text = cli({QStringLiteral("dump"), list});
        QCOMPARE(text.exitCode, 0);
        QVERIFY(text.out.contains("lsvSequenceDetails (2 rows)"));
    }

    void dumpReadsAHostileListWithoutFailing()
    {
        const QString list = path(QStringLiteral("hostile.trt"));
        QVERIFY(ListFixture::writeFile(list, QByteArray::fromHex("2d000000" "0000" "ffff") + QByteArray(40, 'x')));
        QCOMPARE(cli({QStringLiteral("dump"), list, QStringLiteral("--json")}).exitCode, 0);
    }

    void insertWritesBesideTheLevel()
    {
        const QString folder = path(QStringLiteral("insert"));
        QDir().mkpath(folder);
        const QString level = writeLevel(QStringLiteral("insert/level.tr2"), LevelVersion::Game::TR2);
        const QString list = folder + QStringLiteral("/list.trt");
        QCOMPARE(cli({QStringLiteral("extract"), level, QStringLiteral("--bitmap"), m_bitmap,
                      QStringLiteral("-o"), list}).exitCode, 0);
        const Run run = cli({QStringLiteral("insert"), level, list});
        QCOMPARE(run.exitCode, 0);
        const QString output = folder + QStringLiteral("/templevel.tr2");
        QCOMPARE(run.out.trimmed(), QFile::encodeName(output));
        QCOMPARE(ListFixture::readFile(output), ListFixture::readFile(level));

        const QString chosen = path(QStringLiteral("chosen.tr2"));
        QCOMPARE(cli({QStringLiteral("insert"), level, list, QStringLiteral("-o"), chosen}).exitCode, 0);
        QCOMPARE(ListFixture::readFile(chosen), ListFixture::readFile(level));
        QCOMPARE(cli({QStringLiteral("insert"), level, list, QStringLiteral("-o"), level}).exitCode, 1);
    }

    void insertRefusesAnotherGamesList()
    {
        const QString folder = path(QStringLiteral("mismatch"));
        QDir().mkpath(folder);
        const QString tr3 = writeLevel(QStringLiteral("mismatch/tr3.tr2"), LevelVersion::Game::TR3);
        const QString list = folder + QStringLiteral("/tr3.trt");
        QCOMPARE(cli({QStringLiteral("extract"), tr3, QStringLiteral("--bitmap"), m_bitmap,
                      QStringLiteral("-o"), list}).exitCode, 0);
        const QString tr2 = writeLevel(QStringLiteral("mismatch/tr2.tr2"), LevelVersion::Game::TR2);
        const Run run = cli({QStringLiteral("insert"), tr2, list});
        QCOMPARE(run.exitCode, 3);
        QCOMPARE(run.err.count('\n'), 1);
        QVERIFY(!QFile::exists(folder + QStringLiteral("/templevel.tr2")));
    }
};

QTEST_GUILESS_MAIN(tst_Cli)
#include "tst_Cli.moc"
