#include "level/C_LevelInfo.h"
#include "list/C_ListInfo.h"
#include "support/CliRun.h"
#include "support/ListFixture.h"
#include "list/ListViewSet.h"
#include "support/ScratchDir.h"
#include "synthetic/SyntheticGeometry.h"
#include "synthetic/SyntheticLevel.h"
#include "synthetic/SyntheticMeshSet.h"

#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

class tst_Cli : public QObject
{
    Q_OBJECT

    using Run = CliRun;

    ScratchDir m_dir;
    QString m_level;
    QString m_bitmap;
    ListFixture m_tables = ListFixture::random(30, 2, 3, 6, 2, 1);

    // {dir} in an argument stands for the scratch folder.
    Run cli(QStringList arguments) const
    {
        arguments.replaceInStrings(QStringLiteral("{dir}"), m_dir.path());
        return CliRun::of(arguments);
    }

    QString writeLevel(const QString& name, LevelVersion::Game game) const
    {
        SyntheticLevel level(game);
        level.setRooms({{12, 1, 2, 2, 1, 1}});
        level.setCount(SyntheticField::Items, 2);
        level.setObjectTextures(m_tables.objectTextures);
        level.setSpriteTextures(m_tables.sprites);
        level.setSpriteSequences(m_tables.sequences);
        level.setAnimatedTextures(m_tables.animations);
        return m_dir.write(name, level.build());
    }

    // Two tiles (a white pixel at the top left of the second) and geometry
    // using textures 1, 2, 3, 5 and 6 of eight; sprites 0 and 4.
    static SyntheticLevel tiledLevel()
    {
        SyntheticLevel level(LevelVersion::Game::TR3);
        QByteArray tiles(2 * SyntheticLevel::Tile16Size, '\0');
        tiles[SyntheticLevel::Tile16Size] = '\xFF';
        tiles[SyntheticLevel::Tile16Size + 1] = '\xFF';
        level.setTileCount(2, tiles);
        level.setRooms({SyntheticRoom::holding(SyntheticGeometry::room(4, {1, 2}, {3}, {4}))});
        SyntheticMeshSet meshes;
        meshes.addPointed(SyntheticGeometry::mesh(3, -3, {5}, {SyntheticGeometry::DoubleSided | 6}));
        meshes.applyTo(level);
        level.setObjectTextures(QList<ObjectTexture>(8));
        level.setSpriteTextures(QList<SpriteTexture>(5));
        level.setSpriteSequences({{7, -1, 0}});
        return level;
    }

private slots:
    void initTestCase()
    {
        QVERIFY(QFile::exists(qEnvironmentVariable("BRINDLE_CLI")));
        m_level = writeLevel(QStringLiteral("level.tr2"), LevelVersion::Game::TR2);
        m_bitmap = m_dir.filePath(QStringLiteral("tiles.bmp"));
        QImage tiles(256, 512, QImage::Format_RGB32);
        tiles.fill(Qt::darkCyan);
        QVERIFY(tiles.save(m_bitmap, "BMP"));
        m_dir.write(QStringLiteral("tr1.tr2"), QByteArray::fromHex("20000000"));
        m_dir.write(QStringLiteral("tr3.tr2"), QByteArray::fromHex("380018ff"));
        m_dir.write(QStringLiteral("unknown.tr2"), QByteArray::fromHex("01020304"));
        m_dir.write(QStringLiteral("empty.tr2"), QByteArray());
        SyntheticLevel negative(LevelVersion::Game::TR2);
        negative.overrideCount(SyntheticField::ObjectTextures, quint32(-1));
        m_dir.write(QStringLiteral("negative.tr2"), negative.build());
        m_dir.write(QStringLiteral("text.bmp"), "plain text");
        m_dir.write(QStringLiteral("cut-tiles.tr2"), tiledLevel().build().left(100000));
        m_dir.write(QStringLiteral("hostile.trt"), QByteArray::fromHex("2d000000" "0000" "ffff") + QByteArray(40, 'x'));
        m_dir.write(QStringLiteral("claims.trt"),
                    QByteArray::fromHex("2d000000" "0000" "0200" "5c30" "0200" "5c30" "ffffffff") + QByteArray(400, 'x'));
        m_dir.write(QStringLiteral("tiled.tr2"), tiledLevel().build());
#ifdef Q_OS_UNIX
        QCOMPARE(::mkfifo(QFile::encodeName(m_dir.filePath(QStringLiteral("pipe"))).constData(), 0644), 0);
#endif
        ListViewSet views;
        QCOMPARE(m_tables.write(views, m_dir.filePath(QStringLiteral("list.trt")), m_level), C_ListInfo::Success);
        QCOMPARE(m_tables.write(views, m_dir.filePath(QStringLiteral("tr3.trt")),
                                writeLevel(QStringLiteral("full-tr3.tr2"), LevelVersion::Game::TR3)),
                 C_ListInfo::Success);
    }

    void exitCodes_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("absent"); // a file the run must not create
        const QString level = QStringLiteral("{dir}/level.tr2");
        QTest::newRow("help") << QStringList{"--help"} << 0 << "";
        QTest::newRow("command help") << QStringList{"info", "--help"} << 0 << "";
        QTest::newRow("version") << QStringList{"--version"} << 0 << "";
        QTest::newRow("hostile list refused by dump") << QStringList{"dump", "{dir}/hostile.trt", "--json"} << 2 << "";
        QTest::newRow("nothing") << QStringList{} << 1 << "";
        QTest::newRow("unknown command") << QStringList{"frobnicate"} << 1 << "";
        QTest::newRow("info without level") << QStringList{"info"} << 1 << "";
        QTest::newRow("unknown option") << QStringList{"info", "x.tr2", "--yaml"} << 1 << "";
        QTest::newRow("extract without -o") << QStringList{"extract", "x.tr2", "--bitmap", "x.bmp"} << 1 << "";
        QTest::newRow("extract to a new bitmap neither BMP nor PNG")
            << QStringList{"extract", "{dir}/tiled.tr2", "--bitmap", "{dir}/new.jpg", "-o", "{dir}/refused.trt"} << 1
            << "refused.trt";
        QTest::newRow("extract a bitmap onto the level")
            << QStringList{"extract", "{dir}/new.tr2", "--bitmap", "{dir}/new.tr2", "-o", "{dir}/refused.trt"} << 1
            << "new.tr2";
        QTest::newRow("option without value") << QStringList{"insert", "a", "b", "-o"} << 1 << "";
        QTest::newRow("insert onto the level") << QStringList{"insert", level, "{dir}/list.trt", "-o", level} << 2 << "";
        QTest::newRow("info missing") << QStringList{"info", "/nonexistent/level.tr2"} << 2 << "";
        QTest::newRow("info directory") << QStringList{"info", "/"} << 2 << "";
        QTest::newRow("dump missing") << QStringList{"dump", "/nonexistent/list.trt"} << 2 << "";
        QTest::newRow("insert missing level") << QStringList{"insert", "/nonexistent/l.tr2", "{dir}/list.trt"} << 2 << "";
        QTest::newRow("extract TR1 level")
            << QStringList{"extract", "{dir}/tr1.tr2", "--bitmap", "{dir}/tiles.bmp", "-o", "{dir}/refused.trt"} << 2
            << "refused.trt";
        QTest::newRow("extract tiles of a level without tiles")
            << QStringList{"extract", level, "-o", "{dir}/untiled.trt"} << 2 << "untiled.bmp";
        QTest::newRow("extract with no bitmap")
            << QStringList{"extract", level, "--bitmap", "{dir}/text.bmp", "-o", "{dir}/refused.trt"} << 2
            << "refused.trt";
        QTest::newRow("render without -o") << QStringList{"render", level} << 1 << "";
        QTest::newRow("render size without x") << QStringList{"render", level, "--size", "640", "-o", "{dir}/r.png"} << 1
                                               << "r.png";
        QTest::newRow("render size too small") << QStringList{"render", level, "--size", "8x8", "-o", "{dir}/r.png"} << 1
                                               << "r.png";
        QTest::newRow("render highlight past 32767")
            << QStringList{"render", level, "--highlight", "3,40000", "-o", "{dir}/r.png"} << 1 << "r.png";
        QTest::newRow("render room past the rooms") << QStringList{"render", level, "--room", "1", "-o", "{dir}/r.png"}
                                                    << 1 << "r.png";
        QTest::newRow("render missing level") << QStringList{"render", "/nonexistent/l.tr2", "-o", "{dir}/r.png"} << 2
                                              << "r.png";
        QTest::newRow("render TR1 level") << QStringList{"render", "{dir}/tr1.tr2", "-o", "{dir}/r.png"} << 2 << "r.png";
        QTest::newRow("render missing bitmap")
            << QStringList{"render", level, "--bitmap", "{dir}/none.bmp", "-o", "{dir}/r.png"} << 2 << "r.png";
        QTest::newRow("tiles without -o") << QStringList{"tiles", level} << 1 << "";
        QTest::newRow("tiles onto the level") << QStringList{"tiles", level, "-o", level} << 2 << "";
        QTest::newRow("tiles missing level")
            << QStringList{"tiles", "/nonexistent/l.tr2", "-o", "{dir}/refused.bmp"} << 2 << "refused.bmp";
        QTest::newRow("tiles TR1 level") << QStringList{"tiles", "{dir}/tr1.tr2", "-o", "{dir}/refused.bmp"} << 2
                                         << "refused.bmp";
        QTest::newRow("tiles level without tiles") << QStringList{"tiles", level, "-o", "{dir}/refused.bmp"} << 2
                                                   << "refused.bmp";
        QTest::newRow("tiles cut in the tiles")
            << QStringList{"tiles", "{dir}/cut-tiles.tr2", "-o", "{dir}/refused.bmp"} << 2 << "refused.bmp";
        QTest::newRow("usage without level") << QStringList{"usage", "--json"} << 1 << "";
        QTest::newRow("usage missing") << QStringList{"usage", "/nonexistent/l.tr2"} << 2 << "";
        QTest::newRow("usage unknown version") << QStringList{"usage", "{dir}/unknown.tr2"} << 2 << "";
#ifdef Q_OS_UNIX
        QTest::newRow("info of a FIFO") << QStringList{"info", "{dir}/pipe"} << 2 << "";
        QTest::newRow("info of a device") << QStringList{"info", "/dev/zero"} << 2 << "";
        QTest::newRow("usage of a FIFO") << QStringList{"usage", "{dir}/pipe"} << 2 << "";
        QTest::newRow("dump of a FIFO") << QStringList{"dump", "{dir}/pipe", "--json"} << 2 << "";
        QTest::newRow("extract with a FIFO for bitmap")
            << QStringList{"extract", level, "--bitmap", "{dir}/pipe", "-o", "{dir}/refused.trt"} << 2 << "refused.trt";
        QTest::newRow("insert a FIFO") << QStringList{"insert", level, "{dir}/pipe", "-o", "{dir}/refused.tr2"} << 2
                                       << "refused.tr2";
        QTest::newRow("insert onto a FIFO") << QStringList{"insert", level, "{dir}/list.trt", "-o", "{dir}/pipe"} << 2
                                            << "";
        QTest::newRow("tiles onto a FIFO") << QStringList{"tiles", "{dir}/tiled.tr2", "-o", "{dir}/pipe"} << 2 << "";
#endif
        QTest::newRow("dump a list claiming too many textures") << QStringList{"dump", "{dir}/claims.trt"} << 2 << "";
        QTest::newRow("insert a list claiming too many textures")
            << QStringList{"insert", level, "{dir}/claims.trt"} << 2 << "templevel.tr2";
        QTest::newRow("insert another game's list") << QStringList{"insert", level, "{dir}/tr3.trt"} << 3
                                                    << "templevel.tr2";
        QTest::newRow("extract negative count")
            << QStringList{"extract", "{dir}/negative.tr2", "--bitmap", "{dir}/tiles.bmp", "-o", "{dir}/refused.trt"}
            << 2 << "refused.trt";
        QTest::newRow("insert tiles from no image")
            << QStringList{"insert", level, "{dir}/list.trt", "--tiles", "{dir}/text.bmp", "-o", "{dir}/refused.tr2"}
            << 2 << "refused.tr2";
        QTest::newRow("insert tiles from the list's missing bitmap")
            << QStringList{"insert", level, "{dir}/list.trt", "--tiles", "-o", "{dir}/refused.tr2"} << 2
            << "refused.tr2";
        QTest::newRow("insert into negative count")
            << QStringList{"insert", "{dir}/negative.tr2", "{dir}/list.trt"} << 2 << "templevel.tr2";
    }

    // Wrong usage names the tool; an input that cannot be used, or a list of
    // another game, is one line naming the file, and nothing is written.
    void exitCodes()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, exitCode);
        QFETCH(QString, absent);
        const Run run = cli(arguments);
        QCOMPARE(run.exitCode, exitCode);
        if (exitCode != 0)
            QVERIFY(run.err.startsWith("brindle-cli: "));
        if (exitCode >= 2) {
            QCOMPARE(run.err.count('\n'), 1);
            QVERIFY(run.err.contains("/"));
        }
        if (!absent.isEmpty())
            QVERIFY(!QFile::exists(m_dir.filePath(absent)));
        // Nothing takes a special file's place.
        QVERIFY(!QFileInfo(m_dir.filePath(QStringLiteral("pipe"))).isFile());
    }

    // A level cut short gives the lists its bytes held, says where it ends
    // on standard error and in the JSON, and is no failure.
    void usageOfALevelCutShort_data()
    {
        QTest::addColumn<int>("cut"); // bytes taken from the end
        QTest::addColumn<bool>("complete");
        QTest::newRow("whole") << 0 << true;
        QTest::newRow("without its sample indices") << 4 << false;
        QTest::newRow("cut in its items") << 9000 << false;
    }

    void usageOfALevelCutShort()
    {
        QFETCH(int, cut);
        QFETCH(bool, complete);
        const QByteArray whole = tiledLevel().build();
        const QString level = m_dir.write(QStringLiteral("cut-%1.tr2").arg(cut), whole.chopped(cut));
        const Run json = cli({"usage", level, "--json"});
        QCOMPARE(json.exitCode, 0);
        QCOMPARE(json.json().value(QStringLiteral("complete")), QJsonValue(complete));
        QCOMPARE(json.json().value(QStringLiteral("polygons")).toArray(), (QJsonArray{1, 2, 3}));
        if (complete) {
            QVERIFY(json.err.isEmpty());
            return;
        }
        QCOMPARE(json.err.count('\n'), 1);
        const QByteArray end = "ends at byte " + QByteArray::number(whole.size() - cut);
        QVERIFY2(json.err.contains(end), json.err.constData());
        const Run text = cli({"usage", level});
        QCOMPARE(text.exitCode, 0);
        QVERIFY(text.out.startsWith("polygons (3): 1-3\n"));
        QCOMPARE(text.err, json.err);
    }

    void info_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("game");
        QTest::addColumn<qint64>("objectTextures");
        QTest::newRow("TR2") << "level.tr2" << "TR2" << qint64(30);
        QTest::newRow("TR1") << "tr1.tr2" << "TR1" << qint64(0);
        QTest::newRow("TR3") << "tr3.tr2" << "TR3" << qint64(0);
        QTest::newRow("unknown") << "unknown.tr2" << "unknown" << qint64(0);
        QTest::newRow("empty") << "empty.tr2" << "unknown" << qint64(0);
        QTest::newRow("negative count") << "negative.tr2" << "TR2" << qint64(-1);
    }

    // The JSON holds exactly the level's properties under their names. A
    // file that is no TR2 or TR3 level is still described, and exit 2 with
    // one line says it is no level to work on.
    void info()
    {
        QFETCH(QString, name);
        QFETCH(QString, game);
        QFETCH(qint64, objectTextures);
        const QString path = m_dir.filePath(name);
        const Run run = cli({QStringLiteral("info"), path, QStringLiteral("--json")});
        const bool isLevel = game == QLatin1String("TR2") || game == QLatin1String("TR3");
        QCOMPARE(run.exitCode, isLevel ? 0 : 2);
        QCOMPARE(run.err.isEmpty(), isLevel);
        if (!isLevel)
            QVERIFY2(run.err.contains(": cannot be read: not a TR2 or TR3 level (version "), run.err.constData());
        const QJsonObject json = run.json();
        QStringList keys = json.keys();
        keys.sort();
        QStringList expected{"Version", "VersionString", "TypeLevel", "OffsetCameras", "OffsetItems", "FileLength", "Game"};
        for (const char* table : {"ObjectTexture", "SpriteTexture", "SpriteSequence", "AnimatedTexture"})
            for (const char* what : {"Offset", "Number", "Size"})
                expected.append(QLatin1String(what) + QLatin1String(table));
        expected.sort();
        QCOMPARE(keys, expected);

        C_LevelInfo level;
        level.Init(path);
        QCOMPARE(json.value(QStringLiteral("Game")).toString(), game);
        QCOMPARE(json.value(QStringLiteral("Version")).toInteger(), qint64(level.Version()));
        QCOMPARE(json.value(QStringLiteral("VersionString")).toString(), level.VersionString());
        QCOMPARE(json.value(QStringLiteral("OffsetObjectTexture")).toInteger(), qint64(level.OffsetObjectTexture()));
        QCOMPARE(json.value(QStringLiteral("NumberObjectTexture")).toInteger(), objectTextures);
        QCOMPARE(json.value(QStringLiteral("SizeObjectTexture")).toInteger(), objectTextures * 20);
        QCOMPARE(json.value(QStringLiteral("SizeAnimatedTexture")).toInteger(), qint64(level.SizeAnimatedTexture()));
        QCOMPARE(json.value(QStringLiteral("OffsetItems")).toInteger(), qint64(level.OffsetItems()));
        QCOMPARE(json.value(QStringLiteral("FileLength")).toInteger(), QFileInfo(path).size());
        QVERIFY(cli({QStringLiteral("info"), path}).out.contains(game.toLatin1()));
    }

    // The list extracted from a level, dumped: its header, positions and views.
    void dumpShowsTheSixViews()
    {
        const QString list = m_dir.filePath(QStringLiteral("dumped.trt"));
        const Run extract = cli({"extract", m_level, "--bitmap", m_bitmap, "-o", list});
        QCOMPARE(extract.exitCode, 0);
        QCOMPARE(extract.out.trimmed(), QFile::encodeName(list));
        const Run run = cli({"dump", list, "--json"});
        QCOMPARE(run.exitCode, 0);
        const QJsonObject dump = run.json();
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

        const Run text = cli({"dump", list});
        QCOMPARE(text.exitCode, 0);
        QVERIFY(text.out.contains("lsvSequenceDetails (2 rows)"));
    }

    // The bitmap is written where -o says and its path printed; the usage
    // lists are the same in JSON and in text.
    void tilesAndUsage()
    {
        const QString level = m_dir.write(QStringLiteral("tiled.tr2"), tiledLevel().build());
        const QString bitmap = m_dir.filePath(QStringLiteral("tiled.bmp"));
        const Run tiles = cli({"tiles", level, "-o", bitmap});
        QCOMPARE(tiles.exitCode, 0);
        QCOMPARE(tiles.out.trimmed(), QFile::encodeName(bitmap));
        const QImage image(bitmap);
        QCOMPARE(image.size(), QSize(256, 512));
        QCOMPARE(image.pixel(0, 256), qRgb(255, 255, 255));

        const Run json = cli({"usage", level, "--json"});
        QCOMPARE(json.exitCode, 0);
        const QJsonObject lists = json.json();
        QCOMPARE(lists.keys(), (QStringList{"complete", "objects", "polygons", "sprites", "unused"}));
        QCOMPARE(lists.value(QStringLiteral("complete")), QJsonValue(true));
        QCOMPARE(lists.value(QStringLiteral("polygons")).toArray(), (QJsonArray{1, 2, 3}));
        QCOMPARE(lists.value(QStringLiteral("objects")).toArray(), (QJsonArray{5, 6}));
        QCOMPARE(lists.value(QStringLiteral("sprites")).toArray(), (QJsonArray{0, 4}));
        QCOMPARE(lists.value(QStringLiteral("unused")).toArray(), (QJsonArray{0, 4, 7}));
        QVERIFY(json.out.indexOf("polygons") < json.out.indexOf("objects"));

        const Run text = cli({"usage", level});
        QCOMPARE(text.exitCode, 0);
        QCOMPARE(text.out, QByteArray("polygons (3): 1-3\nobjects (2): 5-6\nsprites (2): 0, 4\nunused (3): 0, 4, 7\n"));
    }

    // A list saved without animation ranges keeps a lone 0 word before its
    // sprite table: dump and insert say what that does, in one line each.
    void listsWithoutRangesAreExplained_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<int>("sprites");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QByteArray>("said");
        QTest::newRow("dump, sprites behind the word") << "dump" << 3 << 0 << QByteArray("saved without animation ranges");
        QTest::newRow("insert, sprites behind the word") << "insert" << 3 << 2 << QByteArray("saved without animation ranges");
        QTest::newRow("insert, nothing behind the word") << "insert" << 0 << 0 << QByteArray("holds no word at all");
    }

    void listsWithoutRangesAreExplained()
    {
        QFETCH(QString, command);
        QFETCH(int, sprites);
        QFETCH(int, exitCode);
        QFETCH(QByteArray, said);
        const QString list = m_dir.filePath(QStringLiteral("no-ranges-%1.trt").arg(sprites));
        ListViewSet views;
        QCOMPARE(ListFixture::random(4, 0, 0, sprites, 0, 3).write(views, list, m_level), C_ListInfo::Success);
        QStringList arguments{command, list};
        if (command == QLatin1String("insert"))
            arguments = QStringList{command, m_level, list, "-o", m_dir.filePath(QStringLiteral("no-ranges.tr2"))};
        const Run run = cli(arguments);
        QCOMPARE(run.exitCode, exitCode);
        QCOMPARE(run.err.count('\n'), 1);
        QVERIFY2(run.err.contains(said), run.err.constData());
    }

    void insertWithTiles_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QRgb>("painted");
        const QRgb listColour = qRgb(255, 0, 0);
        const QRgb otherColour = qRgb(0, 0, 255);
        QTest::newRow("the list's bitmap") << QStringList{"insert", "{level}", "{list}", "--tiles", "-o", "{out}"}
                                           << listColour;
        QTest::newRow("a bitmap after --tiles")
            << QStringList{"insert", "{level}", "{list}", "--tiles", "{other}", "-o", "{out}"} << otherColour;
        QTest::newRow("--tiles first") << QStringList{"insert", "--tiles", "{other}", "{level}", "{list}", "-o", "{out}"}
                                       << otherColour;
        QTest::newRow("without --tiles") << QStringList{"insert", "{level}", "{list}", "-o", "{out}"} << 0u;
    }

    // The level's tiles out as a PNG, a block painted, the list made over
    // it and put back with its pixels: the tiles of the output show it.
    void insertWithTiles()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QRgb, painted);
        SyntheticLevel tiled = tiledLevel();
        QByteArray palette(768, '\0');
        palette[3] = palette[3 * 2 + 2] = '\x3F'; // red and blue entries
        tiled.setPalette8(palette);
        tiled.setAnimatedTextureWords({1, 0, 3}); // a list without ranges cannot be inserted
        const QString level = m_dir.write(QStringLiteral("paint/level.tr2"), tiled.build());
        const QString png = m_dir.filePath(QStringLiteral("paint/tiles.png"));
        QCOMPARE(cli({"tiles", level, "-o", png}).exitCode, 0);
        QImage image(png);
        QVERIFY(image.hasAlphaChannel());
        QCOMPARE(image.pixel(5, 5), 0x00FF00FFu);
        image.setPixel(10, 260, qRgb(255, 0, 0));
        QVERIFY(image.save(png));
        image.setPixel(10, 260, qRgb(0, 0, 255));
        QVERIFY(image.save(m_dir.filePath(QStringLiteral("paint/other.bmp"))));
        const QString list = m_dir.filePath(QStringLiteral("paint/list.trt"));
        QCOMPARE(cli({"extract", level, "--bitmap", png, "-o", list}).exitCode, 0);

        const QString out = m_dir.filePath(QStringLiteral("paint/out.tr2"));
        QFile::remove(out);
        arguments.replaceInStrings(QStringLiteral("{level}"), level);
        arguments.replaceInStrings(QStringLiteral("{list}"), list);
        arguments.replaceInStrings(QStringLiteral("{other}"), m_dir.filePath(QStringLiteral("paint/other.bmp")));
        arguments.replaceInStrings(QStringLiteral("{out}"), out);
        const Run run = cli(arguments);
        QVERIFY2(run.exitCode == 0, run.err.constData());
        const QString back = m_dir.filePath(QStringLiteral("paint/back.bmp"));
        QCOMPARE(cli({"tiles", out, "-o", back}).exitCode, 0);
        const QImage result(back);
        QCOMPARE(result.pixel(10, 260), painted ? painted : qRgb(255, 0, 255));
        QCOMPARE(result.pixel(0, 256), qRgb(255, 255, 255));
    }

    void extractWritesTheLevelsTilesAsTheBitmap_data()
    {
        QTest::addColumn<QStringList>("options"); // beside -o {dir}/{name}/list.trt
        QTest::addColumn<QString>("existing");   // a bitmap there before, or ""
        QTest::addColumn<QString>("bitmap");     // the one the list names
        QTest::addColumn<bool>("written");
        QTest::newRow("no --bitmap: LIST.bmp") << QStringList{} << "" << "list.bmp" << true;
        QTest::newRow("--bitmap not there yet, BMP") << QStringList{"--bitmap", "{sub}/t.bmp"} << "" << "t.bmp" << true;
        QTest::newRow("--bitmap not there yet, PNG") << QStringList{"--bitmap", "{sub}/t.png"} << "" << "t.png" << true;
        QTest::newRow("--bitmap there: only read") << QStringList{"--bitmap", "{sub}/t.bmp"} << "t.bmp" << "t.bmp"
                                                   << false;
        QTest::newRow("no --bitmap, LIST.bmp there: only read") << QStringList{} << "list.bmp" << "list.bmp" << false;
    }

    // The bitmap a new list needs is the level's own tiles: made once, and
    // a bitmap the user has (perhaps painted) is never replaced.
    void extractWritesTheLevelsTilesAsTheBitmap()
    {
        QFETCH(QStringList, options);
        QFETCH(QString, existing);
        QFETCH(QString, bitmap);
        QFETCH(bool, written);
        const QString sub = m_dir.filePath(QStringLiteral("extract-%1").arg(QTest::currentDataTag()).replace(' ', '_'));
        QVERIFY(QDir().mkpath(sub));
        const QString level = m_dir.filePath(QStringLiteral("tiled.tr2"));
        const QString list = sub + QStringLiteral("/list.trt");
        const QString bitmapPath = sub + QLatin1Char('/') + bitmap;
        QByteArray before;
        if (!existing.isEmpty()) {
            QVERIFY(QFile::copy(m_bitmap, bitmapPath));
            before = ScratchDir::read(bitmapPath);
        }
        options.replaceInStrings(QStringLiteral("{sub}"), sub);
        const Run run = cli(QStringList{"extract", level, "-o", list} + options);
        QVERIFY2(run.exitCode == 0, run.err.constData());

        C_ListInfo info;
        QCOMPARE(info.InitForInsert(list), C_ListInfo::Success);
        QCOMPARE(info.BitMapName(), bitmapPath);
        const QList<QByteArray> lines = run.out.trimmed().split('\n');
        QCOMPARE(lines.value(0), QFile::encodeName(list));
        QCOMPARE(lines.value(1), written ? QFile::encodeName(bitmapPath) : QByteArray());
        if (!written) {
            QCOMPARE(ScratchDir::read(bitmapPath), before);
            return;
        }
        // The same picture tiles draws, in the format the name asks for.
        const QString reference = sub + QStringLiteral("/reference.") + QFileInfo(bitmap).suffix();
        QCOMPARE(cli({"tiles", level, "-o", reference}).exitCode, 0);
        QCOMPARE(QImage(bitmapPath), QImage(reference));
        QCOMPARE(QImageReader(bitmapPath).format(), QFileInfo(bitmap).suffix().toLatin1());
    }

    void extractSaysWhenTheListCannotCarryItsSprites_data()
    {
        QTest::addColumn<QString>("level");
        QTest::addColumn<bool>("noted");
        QTest::newRow("ranges") << "level.tr2" << false;
        QTest::newRow("sprites and a sequence, no range") << "tiled.tr2" << true;
    }

    void extractSaysWhenTheListCannotCarryItsSprites()
    {
        QFETCH(QString, level);
        QFETCH(bool, noted);
        const QString list = m_dir.filePath(QStringLiteral("noted-%1.trt").arg(noted));
        const Run run = cli({"extract", m_dir.filePath(level), "--bitmap", m_bitmap, "-o", list});
        QCOMPARE(run.exitCode, 0);
        QVERIFY(QFile::exists(list));
        QCOMPARE(run.err.contains("cannot carry its sprite tables back into the level"), noted);
        QCOMPARE(run.err.contains("Add an animation range before saving"), noted);
        QCOMPARE(run.err.startsWith("brindle-cli: note: "), noted);
    }

    // An extracted list put back gives the level again, beside it or where -o says.
    void insertWritesBesideTheLevel()
    {
        const QString level = writeLevel(QStringLiteral("insert/level.tr2"), LevelVersion::Game::TR2);
        const QString list = m_dir.filePath(QStringLiteral("insert/list.trt"));
        QCOMPARE(cli({"extract", level, "--bitmap", m_bitmap, "-o", list}).exitCode, 0);
        const Run run = cli({"insert", level, list});
        QCOMPARE(run.exitCode, 0);
        const QString output = m_dir.filePath(QStringLiteral("insert/templevel.tr2"));
        QCOMPARE(run.out.trimmed(), QFile::encodeName(output));
        QCOMPARE(ScratchDir::read(output), ScratchDir::read(level));
        const QString chosen = m_dir.filePath(QStringLiteral("chosen.tr2"));
        QCOMPARE(cli({"insert", level, list, "-o", chosen}).exitCode, 0);
        QCOMPARE(ScratchDir::read(chosen), ScratchDir::read(level));
    }
};

QTEST_GUILESS_MAIN(tst_Cli)
#include "tst_Cli.moc"
