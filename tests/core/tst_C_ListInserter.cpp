#include "list/C_ListInfo.h"
#include "list/C_ListInserter.h"
#include "support/ListFixture.h"
#include "list/ListViewSet.h"
#include "support/ScratchDir.h"
#include "synthetic/SyntheticLevel.h"

#include <QFile>
#include <QRandomGenerator>
#include <QTest>

using Game = LevelVersion::Game;
using Status = C_ListInserter::Status;

class tst_C_ListInserter : public QObject
{
    Q_OBJECT

    ScratchDir m_dir;

    // A level with a few rooms and non-empty blocks around the texture tables.
    static SyntheticLevel levelWith(Game game, const ListFixture& tables)
    {
        SyntheticLevel level(game);
        level.setTileCount(1);
        level.setRooms({{40, 2, 3, 4, 1, 2}, {7, 0, 1, 1, 0, 0}});
        for (auto [field, count] : {std::pair{SyntheticField::Moveables, 3}, {SyntheticField::Cameras, 3},
                                    {SyntheticField::SoundSources, 2}, {SyntheticField::Boxes, 4},
                                    {SyntheticField::Overlaps, 5}, {SyntheticField::Items, 6},
                                    {SyntheticField::SampleIndices, 2}})
            level.setCount(field, count);
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
        for (auto [from, length] : {std::pair<qint64, qint64>{4, 768 + 1024}, {layout.cameras() + 4, 3 * 16},
                                    {layout.items() + 4 + 6 * 24, 8192}})
            for (qint64 i = 0; i < length; ++i)
                bytes[from + i] = char(random.bounded(256));
        return bytes;
    }

    QString writeLevel(const QString& name, const SyntheticLevel& level) const
    {
        return m_dir.write(name, scribbled(level));
    }

    QString writeList(const QString& name, const ListFixture& tables, const QString& levelForVersion) const
    {
        ListViewSet views;
        const QString path = m_dir.filePath(name);
        return tables.write(views, path, levelForVersion, QStringLiteral("tiles.bmp")) == C_ListInfo::Success ? path
                                                                                                      : QString();
    }

private slots:
    void initTestCase() { QVERIFY(m_dir.isValid()); }

    void outputIsTheLevelWithTheListsTables_data()
    {
        QTest::addColumn<Game>("game");
        QTest::addColumn<QList<int>>("counts"); // object textures, ranges, sprites, sequences
        QTest::newRow("TR2 larger tables") << Game::TR2 << QList<int>{300, 6, 40, 9};
        QTest::newRow("TR2 smaller tables") << Game::TR2 << QList<int>{3, 1, 0, 0};
        QTest::newRow("TR3 larger tables") << Game::TR3 << QList<int>{300, 6, 40, 9};
        QTest::newRow("TR3 smaller tables") << Game::TR3 << QList<int>{3, 1, 1, 1};
    }

    // Byte for byte the level a writer makes from the list's tables; the
    // level and the list are only read.
    void outputIsTheLevelWithTheListsTables()
    {
        QFETCH(Game, game);
        QFETCH(QList<int>, counts);
        const QString tag = QString::fromLatin1(QTest::currentDataTag());
        const ListFixture replacement = ListFixture::random(counts[0], counts[1], 3, counts[2], counts[3], 2);
        const QString level = writeLevel(tag + QStringLiteral("/level.tr2"), levelWith(game, ListFixture::random(60, 3, 4, 12, 4, 1)));
        const QString list = writeList(tag + QStringLiteral("/new.trt"), replacement, level);
        const QByteArray levelBefore = ScratchDir::read(level);
        const QByteArray listBefore = ScratchDir::read(list);

        QList<qint64> progress;
        const auto result = C_ListInserter().Insert(level, list, QString(),
                                                    [&](qint64 copied, qint64) { progress.append(copied); });
        QCOMPARE(result.status, Status::Done);
        QCOMPARE(result.outputPath, m_dir.filePath(tag + QStringLiteral("/templevel.tr2")));
        const QByteArray output = ScratchDir::read(result.outputPath);
        QVERIFY(output == scribbled(levelWith(game, replacement)));
        QCOMPARE(ScratchDir::read(level), levelBefore);
        QCOMPARE(ScratchDir::read(list), listBefore);
        QVERIFY(!progress.isEmpty());
        QCOMPARE(progress.first(), 0);
        QCOMPARE(progress.last(), output.size());
        QVERIFY(std::is_sorted(progress.begin(), progress.end()));
    }

    void olderLongerOutputKeepsItsTail()
    {
        const ListFixture tables = ListFixture::random(10, 2, 2, 3, 1, 6);
        const QString level = writeLevel(QStringLiteral("tail.tr2"), levelWith(Game::TR2, tables));
        const QString list = writeList(QStringLiteral("tail.trt"), tables, level);
        const QByteArray levelBytes = ScratchDir::read(level);
        const QByteArray old(levelBytes.size() + 100, 'x');
        const QString output = m_dir.write(QStringLiteral("tail-out.tr2"), old);
        QCOMPARE(C_ListInserter().Insert(level, list, output).status, Status::Done);
        QCOMPARE(ScratchDir::read(output), levelBytes + old.mid(levelBytes.size()));
    }

    // Only TR2 and TR3 levels hold tables to replace: any other version is
    // no level to insert into, whichever version the list claims.
    void otherVersionsAreRefused_data()
    {
        QTest::addColumn<quint32>("version");
        QTest::newRow("TR1") << LevelVersion::TR1;
        QTest::newRow("unknown") << quint32(0x12345678);
    }

    void otherVersionsAreRefused()
    {
        QFETCH(quint32, version);
        SyntheticLevel level = levelWith(Game::TR2, ListFixture::random(3, 1, 2, 0, 0, 7));
        const QString list = writeList(QStringLiteral("other.trt"), ListFixture::random(9, 1, 2, 2, 2, 8),
                                       writeLevel(QStringLiteral("other-tr2.tr2"), level));
        level.setVersion(version);
        const QString levelPath = writeLevel(QStringLiteral("other.tr2"), level);
        const QString output = m_dir.filePath(QStringLiteral("other-out-%1.tr2").arg(version));
        const C_ListInserter::Result result = C_ListInserter().Insert(levelPath, list, output);
        QCOMPARE(result.status, Status::LevelUnusable);
        QVERIFY2(result.error.contains(QStringLiteral("not a TR2 or TR3 level")), qPrintable(result.error));
        QVERIFY(!QFile::exists(output));
    }

    void badInputsAreRefusedWithoutOutput_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<Status>("status");
        QTest::addColumn<QString>("cause"); // part of the one-line error
        QTest::newRow("missing level") << "missing-level" << Status::LevelUnreadable << "nope.tr2: ";
        QTest::newRow("missing list") << "missing-list" << Status::ListUnreadable << "nope.trt: ";
        QTest::newRow("level cut short") << "truncated-level" << Status::LevelUnusable << "followed to its end";
        QTest::newRow("room overflows") << "overflowing-room" << Status::LevelUnusable << "followed to its end";
        QTest::newRow("negative object textures") << "negative-objects" << Status::LevelUnusable
                                                  << "level.tr2: cannot receive the list: the level's NumberObjectTexture is negative (-1)";
        QTest::newRow("negative sequences") << "negative-sequences" << Status::LevelUnusable
                                            << "NumberSpriteSequence is negative (-3)";
        QTest::newRow("more object textures than a level addresses")
            << "too-many-objects" << Status::LevelUnusable << "32769 object textures, more than the 32768";
        QTest::newRow("list cut short") << "truncated-list" << Status::ListTruncated << "shorter than its tables say";
        QTest::newRow("output is the level") << "output-is-level" << Status::OutputIsInput << "is the same file as";
        QTest::newRow("list of another game") << "tr3-list" << Status::VersionMismatch << "differs";
    }

    // A list saved without animation ranges keeps a lone 0 word before its
    // sprite table. With sprites or sequences behind it, the tables as the
    // counts place them run past the file, and insertion says why; without,
    // the output is written as the positions make it, and the notice says
    // its animated texture block holds no word.
    void listWithoutRanges_data()
    {
        QTest::addColumn<int>("sprites");
        QTest::addColumn<int>("sequences");
        QTest::addColumn<Status>("status");
        QTest::addColumn<QString>("said");
        QTest::newRow("sprites behind the word") << 3 << 0 << Status::ListTruncated << "saved without animation ranges";
        QTest::newRow("sequences behind the word") << 0 << 2 << Status::ListTruncated << "saved without animation ranges";
        QTest::newRow("nothing behind the word") << 0 << 0 << Status::Done << "holds no word at all";
    }

    void listWithoutRanges()
    {
        QFETCH(int, sprites);
        QFETCH(int, sequences);
        QFETCH(Status, status);
        QFETCH(QString, said);
        const QString folder = QStringLiteral("no-ranges-%1-%2/").arg(sprites).arg(sequences);
        const ListFixture tables = ListFixture::random(4, 0, 0, sprites, sequences, 5);
        const QString level = writeLevel(folder + QStringLiteral("level.tr2"), levelWith(Game::TR2, tables));
        const QString list = writeList(folder + QStringLiteral("list.trt"), tables, level);
        const auto result = C_ListInserter().Insert(level, list);
        QCOMPARE(result.status, status);
        QCOMPARE(QFile::exists(m_dir.filePath(folder + QStringLiteral("templevel.tr2"))), status == Status::Done);
        const QString text = status == Status::Done ? result.notice : result.error;
        QVERIFY2(text.contains(said), qPrintable(text));
        QVERIFY(text.contains(list));
    }

    void badInputsAreRefusedWithoutOutput()
    {
        QFETCH(QString, kind);
        QFETCH(Status, status);
        QFETCH(QString, cause);
        const QString folder = m_dir.filePath(kind);
        const ListFixture tables = ListFixture::random(6, 1, 3, 2, 1, 9);
        SyntheticLevel synthetic = levelWith(Game::TR2, tables);
        if (kind == QLatin1String("overflowing-room"))
            synthetic.setRooms({{0, 0, 64, 64, 0, 0, true}});
        if (kind == QLatin1String("negative-objects"))
            synthetic.overrideCount(SyntheticField::ObjectTextures, quint32(-1));
        if (kind == QLatin1String("too-many-objects"))
            synthetic.setObjectTextures(QList<ObjectTexture>(32769));
        if (kind == QLatin1String("negative-sequences"))
            synthetic.overrideCount(SyntheticField::SpriteSequences, quint32(-3));
        QString level = writeLevel(folder + QStringLiteral("/level.tr2"), synthetic);
        QString list = writeList(folder + QStringLiteral("/list.trt"), tables, level);
        QString output;
        if (kind == QLatin1String("missing-level"))
            level = folder + QStringLiteral("/nope.tr2");
        if (kind == QLatin1String("missing-list"))
            list = folder + QStringLiteral("/nope.trt");
        if (kind == QLatin1String("truncated-level"))
            m_dir.write(level, ScratchDir::read(level).left(3000));
        if (kind == QLatin1String("truncated-list"))
            m_dir.write(list, ScratchDir::read(list).chopped(3));
        if (kind == QLatin1String("output-is-level"))
            output = level;
        if (kind == QLatin1String("tr3-list")) {
            const QString tr3 = writeLevel(QStringLiteral("tr3.tr2"), levelWith(Game::TR3, tables));
            list = writeList(folder + QStringLiteral("/tr3.trt"), tables, tr3);
        }
        const QByteArray levelBefore = ScratchDir::read(level);

        const auto result = C_ListInserter().Insert(level, list, output);
        QCOMPARE(result.status, status);
        QVERIFY2(result.error.contains(cause), qPrintable(result.error));
        QVERIFY(!QFile::exists(folder + QStringLiteral("/templevel.tr2")));
        QCOMPARE(ScratchDir::read(level), levelBefore);
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
