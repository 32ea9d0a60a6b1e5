#include "C_LevelInfo.h"
#include "C_ListInfo.h"
#include "C_ListInserter.h"
#include "ListFixture.h"
#include "ListViewSet.h"
#include "SyntheticLevel.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

using Game = LevelVersion::Game;
using Status = C_ListInserter::Status;

class tst_C_ListInserter : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;

    QString path(const QString& name) const { return m_dir.filePath(name); }

    // A level with a few rooms and non-empty blocks around the texture tables.
    static SyntheticLevel levelWith(Game game, const ListFixture& tables)
    {
        SyntheticLevel level(game);
        level.setTileCount(1);
        level.setRooms({SyntheticRoom{40, 2, 3, 4, 1, 2, false}, SyntheticRoom{7, 0, 1, 1, 0, 0, false}});
        level.setCount(SyntheticField::Moveables, 3);
        level.setCount(SyntheticField::Cameras, 3);
        level.setCount(SyntheticField::SoundSources, 2);
        level.setCount(SyntheticField::Boxes, 4);
        level.setCount(SyntheticField::Overlaps, 5);
        level.setCount(SyntheticField::Items, 6);
        level.setCount(SyntheticField::SampleIndices, 2);
        level.setObjectTextures(tables.objectTextures);
        level.setSpriteTextures(tables.sprites);
        level.setSpriteSequences(tables.sequences);
        level.setAnimatedTextures(tables.animations);
        return level;
    }

    // Bytes the walk never reads (palettes, camera records, the light map)
    // drawn at random, at the same places relative to their blocks, so a
    // level range copied to the wrong place shows.
    static QByteArray scribbled(const SyntheticLevel& level)
    {
        QByteArray bytes = level.build();
        const SyntheticLayout layout = level.layout();
        QRandomGenerator random(7);
        auto scribble = [&](qint64 from, qint64 length) {
            for (qint64 i = 0; i < length; ++i)
                bytes[from + i] = char(random.bounded(256));
        };
        scribble(4, 768 + 1024);
        scribble(layout.cameras() + 4, 3 * 16);
        scribble(layout.items() + 4 + 6 * 24, 8192);
        return bytes;
    }

    QString writeLevel(const QString& name, const SyntheticLevel& level)
    {
        const QString file = path(name);
        return ListFixture::writeFile(file, scribbled(level)) ? file : QString();
    }

    QString writeList(const QString& name, const ListFixture& tables, const QString& levelForVersion)
    {
        ListViewSet views;
        tables.fill(views);
        C_ListInfo list;
        const QString file = path(name);
        list.Init(file, levelForVersion, QStringLiteral("tiles.bmp"), &views.lsvTextures, &views.lsvAnims,
                  &views.lsvAnimDetails, &views.lsvSprites, &views.lsvSequences, &views.lsvSequenceDetails);
        return list.PutAllListContents() == C_ListInfo::Success ? file : QString();
    }

private slots:
    void initTestCase() { QVERIFY(m_dir.isValid()); }

    void outputIsTheLevelWithTheListsTables_data()
    {
        QTest::addColumn<Game>("game");
        QTest::addColumn<int>("textures");
        QTest::addColumn<int>("ranges");
        QTest::addColumn<int>("sprites");
        QTest::addColumn<int>("sequences");
        QTest::newRow("TR2 larger tables") << Game::TR2 << 300 << 6 << 40 << 9;
        QTest::newRow("TR2 smaller tables") << Game::TR2 << 3 << 1 << 0 << 0;
        QTest::newRow("TR3 larger tables") << Game::TR3 << 300 << 6 << 40 << 9;
        QTest::newRow("TR3 smaller tables") << Game::TR3 << 3 << 1 << 1 << 1;
    }

    void outputIsTheLevelWithTheListsTables()
    {
        QFETCH(Game, game);
        QFETCH(int, textures);
        QFETCH(int, ranges);
        QFETCH(int, sprites);
        QFETCH(int, sequences);
        const QString tag = QString::fromLatin1(QTest::currentDataTag()).replace(QLatin1Char(' '), QLatin1Char('-'));
        QDir().mkpath(path(tag));

        const ListFixture original = ListFixture::random(60, 3, 4, 12, 4, 1);
        const ListFixture replacement = ListFixture::random(textures, ranges, 3, sprites, sequences, 2);
        const QString level = writeLevel(tag + QStringLiteral("/level.tr2"), levelWith(game, original));
        const QString list = writeList(tag + QStringLiteral("/new.trt"), replacement, level);
        const QByteArray levelBefore = ListFixture::readFile(level);
        const QByteArray listBefore = ListFixture::readFile(list);

        QList<qint64> progress;
        const auto result = C_ListInserter().Insert(level, list, QString(),
                                                    [&](qint64 copied, qint64) { progress.append(copied); });
        QCOMPARE(result.status, Status::Done);
        QCOMPARE(result.outputPath, path(tag + QStringLiteral("/templevel.tr2")));

        const QByteArray expected = scribbled(levelWith(game, replacement));
        const QByteArray output = ListFixture::readFile(result.outputPath);
        QCOMPARE(output.size(), expected.size());
        QVERIFY(output == expected);

        // Only read: the inputs are unchanged.
        QCOMPARE(ListFixture::readFile(level), levelBefore);
        QCOMPARE(ListFixture::readFile(list), listBefore);
        QVERIFY(!progress.isEmpty());
        QCOMPARE(progress.first(), 0);
        QCOMPARE(progress.last(), output.size());
        QVERIFY(std::is_sorted(progress.begin(), progress.end()));
    }

    void sameTablesGiveTheLevelBack_data()
    {
        QTest::addColumn<Game>("game");
        QTest::newRow("TR2") << Game::TR2;
        QTest::newRow("TR3") << Game::TR3;
    }

    void sameTablesGiveTheLevelBack()
    {
        QFETCH(Game, game);
        const ListFixture tables = ListFixture::random(25, 2, 3, 5, 2, 3);
        const QString level = writeLevel(QStringLiteral("same.tr2"), levelWith(game, tables));
        const QString list = writeList(QStringLiteral("same.trt"), tables, level);
        const QString output = path(QStringLiteral("same-out.tr2"));
        QCOMPARE(C_ListInserter().Insert(level, list, output).status, Status::Done);
        QCOMPARE(ListFixture::readFile(output), ListFixture::readFile(level));
    }

    void copyPlanFollowsEachGamesTableOrder()
    {
        const ListFixture tables = ListFixture::random(2, 1, 2, 1, 1, 4);
        for (Game game : {Game::TR2, Game::TR3}) {
            const QString level = writeLevel(QStringLiteral("plan.tr2"), levelWith(game, tables));
            const QString list = writeList(QStringLiteral("plan.trt"), tables, level);
            C_LevelInfo L;
            L.Init(level);
            C_ListInfo T;
            T.InitForInsert(list);
            using Range = C_ListInserter::Range;
            const QList<Range> plan = C_ListInserter::CopyPlan(L, T);
            QCOMPARE(plan.size(), 7);
            QCOMPARE(plan.first().first, 0);
            QCOMPARE(plan.first().last + 1, game == Game::TR2 ? L.OffsetObjectTexture() : L.OffsetSpriteTexture());
            QCOMPARE(plan.last(), (Range{Range::Level, L.OffsetItems(), L.FileLength() - 1}));
            const Range objects{Range::List, T.OffsetObjectTexture(), T.OffsetAnimatedTexture() - 1};
            QCOMPARE(plan.indexOf(objects), game == Game::TR2 ? 1 : 5);
        }
    }

    void versionMismatchCreatesNothing()
    {
        const ListFixture tables = ListFixture::random(4, 1, 2, 1, 1, 5);
        QDir().mkpath(path(QStringLiteral("mismatch")));
        const QString level = writeLevel(QStringLiteral("mismatch/tr2.tr2"), levelWith(Game::TR2, tables));
        const QString tr3 = writeLevel(QStringLiteral("mismatch/tr3.tr2"), levelWith(Game::TR3, tables));
        const QString list = writeList(QStringLiteral("mismatch/tr3.trt"), tables, tr3);
        QFile::remove(tr3);
        const auto result = C_ListInserter().Insert(level, list);
        QCOMPARE(result.status, Status::VersionMismatch);
        QVERIFY(!QFile::exists(path(QStringLiteral("mismatch/templevel.tr2"))));
    }

    void olderLongerOutputKeepsItsTail()
    {
        const ListFixture tables = ListFixture::random(10, 2, 2, 3, 1, 6);
        const QString level = writeLevel(QStringLiteral("tail.tr2"), levelWith(Game::TR2, tables));
        const QString list = writeList(QStringLiteral("tail.trt"), tables, level);
        const QString output = path(QStringLiteral("tail-out.tr2"));
        const QByteArray levelBytes = ListFixture::readFile(level);
        const QByteArray old = QByteArray(levelBytes.size() + 100, 'x');
        QVERIFY(ListFixture::writeFile(output, old));
        QCOMPARE(C_ListInserter().Insert(level, list, output).status, Status::Done);
        QCOMPARE(ListFixture::readFile(output), levelBytes + old.mid(levelBytes.size()));
    }

    void otherVersionsCopyTheLevelWhole_data()
    {
        QTest::addColumn<quint32>("version");
        QTest::newRow("TR1") << LevelVersion::TR1;
        QTest::newRow("unknown") << quint32(0x12345678);
    }

    void otherVersionsCopyTheLevelWhole()
    {
        QFETCH(quint32, version);
        SyntheticLevel level = levelWith(Game::TR2, ListFixture::random(3, 1, 2, 0, 0, 7));
        level.setVersion(version);
        const QString levelPath = writeLevel(QStringLiteral("other.tr2"), level);
        const QString list = writeList(QStringLiteral("other.trt"), ListFixture::random(9, 1, 2, 2, 2, 8), levelPath);
        const QString output = path(QStringLiteral("other-out.tr2"));
        QFile::remove(output);
        QCOMPARE(C_ListInserter().Insert(levelPath, list, output).status, Status::Done);
        QCOMPARE(ListFixture::readFile(output), ListFixture::readFile(levelPath));
    }

    void badInputsAreRefusedWithoutOutput_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<Status>("status");
        QTest::newRow("missing level") << "missing-level" << Status::LevelUnreadable;
        QTest::newRow("missing list") << "missing-list" << Status::ListUnreadable;
        QTest::newRow("level cut short") << "truncated-level" << Status::LevelNotWalked;
        QTest::newRow("room overflows") << "overflowing-room" << Status::LevelNotWalked;
        QTest::newRow("list cut short") << "truncated-list" << Status::ListTruncated;
        QTest::newRow("output is the level") << "output-is-level" << Status::OutputIsInput;
    }

    void badInputsAreRefusedWithoutOutput()
    {
        QFETCH(QString, kind);
        QFETCH(Status, status);
        const QString folder = path(QStringLiteral("bad-") + kind);
        QDir().mkpath(folder);
        const ListFixture tables = ListFixture::random(6, 1, 3, 2, 1, 9);
        SyntheticLevel synthetic = levelWith(Game::TR2, tables);
        if (kind == QLatin1String("overflowing-room"))
            synthetic.setRooms({SyntheticRoom{0, 0, 64, 64, 0, 0, true}});
        QString level = writeLevel(QStringLiteral("bad-") + kind + QStringLiteral("/level.tr2"), synthetic);
        QString list = writeList(QStringLiteral("bad-") + kind + QStringLiteral("/list.trt"), tables, level);
        QString output;
        if (kind == QLatin1String("missing-level"))
            level = folder + QStringLiteral("/nope.tr2");
        if (kind == QLatin1String("missing-list"))
            list = folder + QStringLiteral("/nope.trt");
        if (kind == QLatin1String("truncated-level"))
            ListFixture::writeFile(level, ListFixture::readFile(level).left(3000));
        if (kind == QLatin1String("truncated-list"))
            ListFixture::writeFile(list, ListFixture::readFile(list).chopped(3));
        if (kind == QLatin1String("output-is-level"))
            output = level;
        const QByteArray levelBefore = ListFixture::readFile(level);

        const auto result = C_ListInserter().Insert(level, list, output);
        QCOMPARE(result.status, status);
        QVERIFY(!result.error.isEmpty());
        QVERIFY(!QFile::exists(folder + QStringLiteral("/templevel.tr2")));
        QCOMPARE(ListFixture::readFile(level), levelBefore);
    }

    void folderOf_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("folder");
        QTest::newRow("backslashes") << "C:\\levels\\wall.tr2" << "C:\\levels\\";
        QTest::newRow("slashes") << "/home/m/wall.tr2" << "/home/m/";
        QTest::newRow("bare name") << "wall.tr2" << "";
        QTest::newRow("mixed") << "C:\\a/b\\c.tr2" << "C:\\a/b\\";
    }

    void folderOf()
    {
        QFETCH(QString, path);
        QFETCH(QString, folder);
        QCOMPARE(C_ListInserter::FolderOf(path), folder);
        QCOMPARE(C_ListInserter::DefaultOutputPath(path), folder + QStringLiteral("templevel.tr2"));
    }
};

QTEST_GUILESS_MAIN(tst_C_ListInserter)
#include "tst_C_ListInserter.moc"
