#include "level/C_LevelInfo.h"
#include "support/ExpectedWalk.h"
#include "support/ScratchDir.h"
#include "synthetic/SyntheticLevel.h"

#include <QBuffer>
#include <QFileInfo>
#include <QTest>

using Game = LevelVersion::Game;
using Field = SyntheticField;
using Room = SyntheticRoom;

Q_DECLARE_METATYPE(SyntheticLevel)
Q_DECLARE_METATYPE(SyntheticRoom)

namespace {

// Positions of an empty level counted by hand: the version, both palettes
// (768 + 1024), the tile count, the unused word and the room count bring the
// floor data to 1806; every Long table after it is a four-byte count.
constexpr qint64 EmptyLength = 10830;

ExpectedWalk emptyWalk(Game game)
{
    const bool tr2 = game == Game::TR2;
    return {{tr2 ? 1850 : 1878, 0, 0}, {tr2 ? 1854 : 1850, 0, 0}, {tr2 ? 1858 : 1854, 0, 0},
            {tr2 ? 1878 : 1874, 0, 0}, tr2 ? 1862 : 1858, 1882, true};
}

C_LevelInfo walkBytes(QByteArray bytes, LevelWalk::Reach reach = LevelWalk::Reach::End)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    C_LevelInfo info;
    info.WalkDevice(buffer, reach);
    return info;
}

// Records whose bytes are never zero, so a walk that lands inside a table reads
// nonsense rather than a harmless empty count.
SyntheticLevel withTables(Game game, int objects, int sprites, int sequences)
{
    SyntheticLevel level(game);
    QList<ObjectTexture> objectTextures(objects);
    for (int i = 0; i < objects; ++i)
        for (int b = 0; b < ObjectTexture::Size; ++b)
            objectTextures[i].bytes[b] = quint8(0x81 + (i + b) % 90);
    QList<SpriteTexture> spriteTextures;
    for (int i = 0; i < sprites; ++i)
        spriteTextures.append({quint16(0x7F00 + i), 0, 0, 0xFFFF, 0, qint16(-1 - i)});
    QList<SpriteSequence> spriteSequences;
    for (int i = 0; i < sequences; ++i)
        spriteSequences.append({0x7FFF0000 + i, qint16(-1 - i), qint16(i * 3)});
    level.setObjectTextures(objectTextures);
    level.setSpriteTextures(spriteTextures);
    level.setSpriteSequences(spriteSequences);
    level.setAnimatedTextures({{{1, 2, 3}, {0xFFFF, 7}, {9}}});
    return level;
}

// Every block non-empty, each with a different count, so a record size the
// walk gets wrong anywhere moves every later position.
SyntheticLevel everyBlock(Game game)
{
    SyntheticLevel level = withTables(game, 7, 5, 3);
    level.setTileCount(2, QByteArray(2 * SyntheticLevel::Tile16Size, '\x5A'));
    level.setRooms({{3, 1, 2, 3, 1, 1}, {}, {101, 2, 5, 7, 3, 4}});
    int n = 1;
    for (Field field : {Field::FloorData, Field::MeshData, Field::MeshPointers, Field::Animations,
                        Field::StateChanges, Field::AnimDispatches, Field::AnimCommands, Field::MeshTrees,
                        Field::Frames, Field::Moveables, Field::StaticMeshes, Field::Cameras,
                        Field::SoundSources, Field::Boxes, Field::Overlaps, Field::Items,
                        Field::CinematicFrames, Field::DemoData, Field::SoundDetails, Field::SampleIndices})
        level.setCount(field, n += 2);
    return level;
}

SyntheticLevel withRooms(Game game, const QList<Room>& rooms)
{
    SyntheticLevel level = withTables(game, 2, 1, 1);
    level.setRooms(rooms);
    return level;
}

// An empty level whose count field claims raw.
SyntheticLevel overridden(Game game, Field field, quint32 raw)
{
    SyntheticLevel level(game);
    level.overrideCount(field, raw);
    return level;
}

// A level with tables whose field after the items holds count: the tables are
// found either way, and count decides only whether the walk completes.
void addTailRow(Game game, const char* what, Field field, qint64 count, bool complete, bool raw = false)
{
    SyntheticLevel level = withTables(game, 3, 2, 1);
    if (raw)
        level.overrideCount(field, quint32(count));
    else
        level.setCount(field, count);
    ExpectedWalk e = ExpectedWalk::of(level);
    e.complete = complete;
    QTest::addRow("%s %s", qPrintable(LevelVersion::gameName(game)), what) << level << e;
}

// Everything C_LevelInfo tells about a level, for comparing two walks whole.
QList<qint64> everything(const C_LevelInfo& info)
{
    const LevelWalk::Result& walk = info.Walk();
    return ExpectedWalk::walked(info) + QList<qint64>{info.Version(), walk.tileCount, walk.roomCount, walk.stateChangePosition};
}

} // namespace

class tst_LevelWalk : public QObject
{
    Q_OBJECT

private slots:
    void handCounted_data()
    {
        QTest::addColumn<Game>("game");
        QTest::addColumn<QList<Room>>("rooms");
        QTest::addColumn<qint64>("roomBytes");
        // 16 header + 4 data count + 2 portal count + 4 sector counts + 4 ambient
        // + 2 light count + 2 static count + 4 alternate room; TR2 adds the light
        // mode (2), TR3 the water scheme, reverb and filler (3). One of each
        // adds 3 * 2 + 1 * 32 + 2 * 3 * 8 + 1 * 24 + 1 * 20.
        for (Game game : {Game::TR2, Game::TR3}) {
            const char* name = game == Game::TR2 ? "TR2" : "TR3";
            const qint64 tr3 = game == Game::TR3;
            QTest::addRow("%s no room", name) << game << QList<Room>{} << qint64(0);
            QTest::addRow("%s empty room", name) << game << QList<Room>{Room{}} << 40 + tr3;
            QTest::addRow("%s one of each", name) << game << QList<Room>{{3, 1, 2, 3, 1, 1}} << 170 + tr3;
        }
    }

    // Counted by hand, not by the writer: anchors both the writer and the walk,
    // and where each game keeps its object textures.
    void handCounted()
    {
        QFETCH(Game, game);
        QFETCH(QList<Room>, rooms);
        QFETCH(qint64, roomBytes);
        SyntheticLevel level(game);
        level.setRooms(rooms);
        QCOMPARE(qint64(level.build().size()), EmptyLength + roomBytes);
        emptyWalk(game).shiftedBy(roomBytes).verify(walkBytes(level.build()));
    }

    void walksToTheTables_data()
    {
        QTest::addColumn<SyntheticLevel>("level");
        for (Game game : {Game::TR2, Game::TR3}) {
            const char* name = game == Game::TR2 ? "TR2" : "TR3";
            QTest::addRow("%s one record each", name) << withTables(game, 1, 1, 1);
            QTest::addRow("%s every block", name) << everyBlock(game);
            QTest::addRow("%s sprites only", name) << withTables(game, 0, 40, 0);
            SyntheticLevel oddWords = withTables(game, 3, 0, 2);
            oddWords.setAnimatedTextureWords({2, 1, 4, 5, 0, 6, 0xFFFF});
            QTest::addRow("%s odd animated words", name) << oddWords;
            // The largest counts whose 16-bit products still fit.
            QTest::addRow("%s 1023 portals", name) << withRooms(game, {{1, 1023, 1, 1, 1, 1}});
            QTest::addRow("%s 63x65 sectors", name) << withRooms(game, {{1, 1, 63, 65, 1, 1}});
            QTest::addRow("%s 1x4095 sectors", name) << withRooms(game, {{1, 1, 1, 4095, 1, 1}});
            QTest::addRow("%s 1365 lights", name) << withRooms(game, {{1, 1, 1, 1, 1365, 1}});
            QTest::addRow("%s 1638 static meshes", name) << withRooms(game, {{1, 1, 1, 1, 1, 1638}});
            QTest::addRow("%s negative sectors both ways", name)
                << withRooms(game, {{0, 0, -2, -3, 0, 0}, {4, 0, 0, 0, 0, 0}});
            // A room count past 32767 is negative as a short: no room is walked.
            for (quint32 raw : {0x8000u, 0xFFFFu}) {
                SyntheticLevel negative = withTables(game, 4, 2, 2);
                negative.overrideCount(Field::RoomCount, raw);
                QTest::addRow("%s room count 0x%x", name, raw) << negative;
            }
        }
    }

    // The walk finds every table where the writer put it; and, whatever the
    // writer thinks, the tables sit back to back where the game puts them,
    // which the editor relies on when it rewrites one.
    void walksToTheTables()
    {
        QFETCH(SyntheticLevel, level);
        const C_LevelInfo info = walkBytes(level.build());
        ExpectedWalk::of(level).verify(info);
        QCOMPARE(info.Version(), level.version());
        const LevelWalk::Result& walk = info.Walk();
        QCOMPARE(info.OffsetCameras(), info.OffsetSpriteSequence() + 4 + info.SizeSpriteSequence());
        QCOMPARE(walk.spriteSequence.offset, walk.spriteTexture.end());
        if (level.game() == Game::TR2) {
            QCOMPARE(walk.spriteTexture.offset, walk.objectTexture.end());
            QVERIFY(walk.animatedTexture.offset > info.OffsetCameras());
        } else {
            QCOMPARE(walk.objectTexture.offset, walk.animatedTexture.end());
            QCOMPARE(info.OffsetItems(), walk.objectTexture.end());
        }
    }

    void roomStopsWalk_data()
    {
        QTest::addColumn<Game>("game");
        QTest::addColumn<Room>("hostile");
        for (Game game : {Game::TR2, Game::TR3}) {
            const char* name = game == Game::TR2 ? "TR2" : "TR3";
            QTest::addRow("%s 64x64 sectors", name) << game << Room{0, 0, 64, 64, 0, 0, true};
            QTest::addRow("%s 200x200 sectors", name) << game << Room{0, 0, 200, 200, 0, 0, true};
            QTest::addRow("%s 1024 portals", name) << game << Room{0, 1024, 0, 0, 0, 0, true};
            QTest::addRow("%s 1366 lights", name) << game << Room{0, 0, 0, 0, 1366, 0, true};
            QTest::addRow("%s 1639 static meshes", name) << game << Room{0, 0, 0, 0, 0, 1639, true};
            // 2 * 0x3FFFFFFF still fits in a Long; the position after it does
            // not. 2 * 0x40000000 is 2^31, and 2 * -2^31 is below -2^31.
            QTest::addRow("%s 0x3FFFFFFF data words", name) << game << Room{0x3FFFFFFF, 0, 0, 0, 0, 0, true};
            QTest::addRow("%s 0x40000000 data words", name) << game << Room{0x40000000, 0, 0, 0, 0, 0, true};
            QTest::addRow("%s 0x80000000 data words", name) << game << Room{0x80000000, 0, 0, 0, 0, 0, true};
            // Negative counts that take the position before the start of the file.
            QTest::addRow("%s -1024 portals", name) << game << Room{0, -1024, 0, 0, 0, 0, true};
            QTest::addRow("%s -1365 lights", name) << game << Room{0, 0, 0, 0, -1365, 0, true};
            QTest::addRow("%s -5000 data words", name) << game << Room{quint32(-5000), 0, 0, 0, 0, 0, true};
        }
    }

    // The room is the second of three: the walk ends inside it and reports no
    // table at all.
    void roomStopsWalk()
    {
        QFETCH(Game, game);
        QFETCH(Room, hostile);
        const SyntheticLevel level = withRooms(game, {{10, 1, 2, 2, 1, 1}, hostile, {10, 1, 2, 2, 1, 1}});
        const C_LevelInfo info = walkBytes(level.build());
        ExpectedWalk().verify(info);
        QCOMPARE(info.Walk().roomCount, 3);
        QCOMPARE(info.Walk().stateChangePosition, 0);
    }

    void tileCount_data()
    {
        QTest::addColumn<Game>("game");
        QTest::addColumn<quint32>("raw");
        QTest::addColumn<bool>("recorded"); // at 1796, as a signed count with both block sizes
        QTest::addColumn<qint64>("tiles8Size");
        QTest::addColumn<qint64>("tiles16Size");
        QTest::addColumn<bool>("complete");
        for (Game game : {Game::TR2, Game::TR3}) {
            const char* name = game == Game::TR2 ? "TR2" : "TR3";
            QTest::addRow("%s 3", name) << game << 3u << true << qint64(196608) << qint64(393216) << true;
            // 10922 * 3 * 65536 is the most tile bytes a Long position can skip.
            QTest::addRow("%s 10922 walks past the end", name)
                << game << 10922u << true << qint64(715784192) << qint64(1431568384) << true;
            QTest::addRow("%s 10923", name) << game << 10923u << true << qint64(715849728) << qint64(1431699456) << false;
            // 16384 * 131072 is 2^31: the count is not recorded, only where it stands.
            QTest::addRow("%s 16384", name) << game << 16384u << false << qint64(0) << qint64(0) << false;
            QTest::addRow("%s 32768", name) << game << 32768u << false << qint64(0) << qint64(0) << false;
            // -1 steps back before the start: the room count cannot be read.
            QTest::addRow("%s -1", name) << game << 0xFFFFFFFFu << true << qint64(-65536) << qint64(-131072) << false;
            QTest::addRow("%s -16384", name) << game << quint32(-16384) << true << qint64(-1073741824)
                                              << qint64(-2147483648LL) << false;
            QTest::addRow("%s -16385", name) << game << quint32(-16385) << false << qint64(0) << qint64(0) << false;
        }
    }

    // The tile count is claimed, not backed by tiles: what lies behind it reads
    // as zeros, so a walk that gets past it finds an empty level shifted by the
    // tile bytes.
    void tileCount()
    {
        QFETCH(Game, game);
        QFETCH(quint32, raw);
        QFETCH(bool, recorded);
        QFETCH(qint64, tiles8Size);
        QFETCH(qint64, tiles16Size);
        QFETCH(bool, complete);
        const QByteArray level = overridden(game, Field::TileCount, raw).build();
        const C_LevelInfo info = walkBytes(level);
        const LevelWalk::Result& walk = info.Walk();
        QCOMPARE(walk.tileCountPosition, 1796);
        QCOMPARE(walk.tileCount, recorded ? qint64(qint32(raw)) : 0);
        QCOMPARE(walk.tiles8Size, tiles8Size);
        QCOMPARE(walk.tiles16Size, tiles16Size);
        (complete ? emptyWalk(game).shiftedBy(tiles8Size + tiles16Size) : ExpectedWalk()).verify(info);

        // A walk to the tiles finds them alike and goes no further.
        const C_LevelInfo tilesOnly = walkBytes(level, LevelWalk::Reach::Tiles);
        const LevelWalk::Result& toTiles = tilesOnly.Walk();
        QCOMPARE(toTiles.tileCountPosition, walk.tileCountPosition);
        QCOMPARE(toTiles.tileCount, walk.tileCount);
        QCOMPARE(toTiles.tiles16Size, walk.tiles16Size);
        QCOMPARE(toTiles.roomCountPosition, 0);
        ExpectedWalk().verify(tilesOnly);
    }

    void hostileCounts_data()
    {
        QTest::addColumn<SyntheticLevel>("level");
        QTest::addColumn<ExpectedWalk>("expected");

        // Long counts are signed. A table whose bytes overflow a Long is not
        // recorded; one whose end overflows is, and the walk ends after it.
        ExpectedWalk e;
        e.objectTexture = {1850, 0x06666666, 0x7FFFFFF8};
        QTest::newRow("TR2 object textures 0x06666666") << overridden(Game::TR2, Field::ObjectTextures, 0x06666666) << e;
        QTest::newRow("TR2 object textures 0x06666667") << overridden(Game::TR2, Field::ObjectTextures, 0x06666667)
                                                         << ExpectedWalk();

        e = emptyWalk(Game::TR2).shiftedBy(0x1400000);
        e.objectTexture = {1850, 0x100000, 0x1400000};
        QTest::newRow("TR2 object textures past the end") << overridden(Game::TR2, Field::ObjectTextures, 0x100000) << e;

        // A negative count steps back, here into zeros, and the walk goes on
        // from there: the boxes then read the object texture count, -1 again.
        e = emptyWalk(Game::TR2);
        e.objectTexture = {1850, -1, -20};
        e.spriteTexture = {1834, 0, 0};
        e.spriteSequence = {1838, 0, 0};
        e.cameras = 1842;
        e.animatedTexture = {1830, 0, 0};
        e.items = 1834;
        QTest::newRow("TR2 object textures -1") << overridden(Game::TR2, Field::ObjectTextures, 0xFFFFFFFF) << e;

        e = emptyWalk(Game::TR3);
        e.objectTexture = {1878, -1, -20};
        e.items = 1862;
        QTest::newRow("TR3 object textures -1") << overridden(Game::TR3, Field::ObjectTextures, 0xFFFFFFFF) << e;
        e = emptyWalk(Game::TR3);
        e.objectTexture = {};
        e.items = 0;
        e.complete = false;
        e.animatedTexture = {1874, 0x3FFFFFFF, 0x7FFFFFFE};
        QTest::newRow("TR3 animated textures 0x3FFFFFFF") << overridden(Game::TR3, Field::AnimatedTextures, 0x3FFFFFFF) << e;
        e.animatedTexture = {};
        QTest::newRow("TR3 animated textures 0x40000000") << overridden(Game::TR3, Field::AnimatedTextures, 0x40000000) << e;
        QTest::newRow("TR3 animated textures -2^31") << overridden(Game::TR3, Field::AnimatedTextures, 0x80000000) << e;

        e = ExpectedWalk();
        e.objectTexture = {1850, 0, 0};
        e.spriteTexture = {1854, 0x07FFFFFF, 0x7FFFFFF0};
        QTest::newRow("TR2 sprite textures 0x07FFFFFF") << overridden(Game::TR2, Field::SpriteTextures, 0x07FFFFFF) << e;
        e.spriteTexture = {};
        QTest::newRow("TR2 sprite textures 0x08000000") << overridden(Game::TR2, Field::SpriteTextures, 0x08000000) << e;
        e.spriteTexture = {1854, 0, 0};
        e.spriteSequence = {1858, 0, 0};
        e.cameras = 1862;
        QTest::newRow("TR2 boxes 0x10000000") << overridden(Game::TR2, Field::Boxes, 0x10000000) << e;
        // 8 bytes per box fit, the 20-byte zones behind the overlaps do not.
        QTest::newRow("TR2 boxes 0x06666667") << overridden(Game::TR2, Field::Boxes, 0x06666667) << e;
        // -1 box steps back 4 bytes, its zones 20 more: the animated textures
        // are then looked for at the object texture count.
        e = emptyWalk(Game::TR2);
        e.animatedTexture = {1850, 0, 0};
        e.items = 1854;
        QTest::newRow("TR2 boxes -1") << overridden(Game::TR2, Field::Boxes, 0xFFFFFFFF) << e;

        QTest::newRow("TR2 floor data -2^31") << overridden(Game::TR2, Field::FloorData, 0x80000000) << ExpectedWalk();
        QTest::newRow("TR3 mesh data 0x7FFFFFFF") << overridden(Game::TR3, Field::MeshData, 0x7FFFFFFF) << ExpectedWalk();
        // Back before the start: the mesh data count cannot be read.
        QTest::newRow("TR2 floor data -1000") << overridden(Game::TR2, Field::FloorData, quint32(-1000)) << ExpectedWalk();

        for (Game game : {Game::TR2, Game::TR3}) {
            const char* name = game == Game::TR2 ? "TR2" : "TR3";
            // 1800 bytes back the palettes' zeros read as an empty level.
            QTest::addRow("%s floor data -900", name) << overridden(game, Field::FloorData, quint32(-900))
                                                      << emptyWalk(game).shiftedBy(-1800);
            QTest::addRow("%s items -1", name) << overridden(game, Field::Items, 0xFFFFFFFF) << emptyWalk(game);
            e = emptyWalk(game);
            e.complete = false;
            QTest::addRow("%s sample indices 0x20000000", name) << overridden(game, Field::SampleIndices, 0x20000000) << e;

            addTailRow(game, "cinematic frames 2047", Field::CinematicFrames, 2047, true);
            addTailRow(game, "cinematic frames 2048", Field::CinematicFrames, 2048, false);
            addTailRow(game, "cinematic frames -2048", Field::CinematicFrames, -2048, false);
            addTailRow(game, "demo data 32767", Field::DemoData, 32767, true);
            addTailRow(game, "demo data -1", Field::DemoData, -1, true);
            addTailRow(game, "demo data -32768", Field::DemoData, -32768, false);
            // Demo data is counted in bytes: 8000 back from about 10200 stays in
            // the file, 16000 back would not.
            addTailRow(game, "demo data -8000", Field::DemoData, -8000, true);
            // Cinematic frames that step to just before the start: the demo data
            // count would lie at a negative position, so the walk ends there
            // even though the sound map would bring it back into the file.
            const qint64 cinematics = withTables(game, 3, 2, 1).layout().at(Field::CinematicFrames);
            addTailRow(game, "cinematic frames to just before the start", Field::CinematicFrames,
                       -((cinematics + 2) / 16 + 1), false);
            addTailRow(game, "sound details 4095", Field::SoundDetails, 4095, true);
            addTailRow(game, "sound details 4096", Field::SoundDetails, 4096, false);
            // Only the low half of the sound detail field is a count.
            addTailRow(game, "sound details 0xFFFF0000", Field::SoundDetails, 0xFFFF0000, true, true);
            addTailRow(game, "sound details 0x00011000", Field::SoundDetails, 0x00011000, false, true);
            addTailRow(game, "sample indices 0x1FFFFFFF", Field::SampleIndices, 0x1FFFFFFF, false, true);
            addTailRow(game, "sample indices -1", Field::SampleIndices, -1, true);

            // Deep in a level, 16 * -2049 falls below -32768 though the position
            // it leads to would still lie in the file.
            SyntheticLevel deep = withTables(game, 3, 2, 1);
            deep.setTileCount(1);
            deep.setCount(Field::CinematicFrames, -2049);
            e = ExpectedWalk::of(deep);
            e.complete = false;
            QTest::addRow("%s cinematic frames -2049 past a tile", name) << deep << e;
        }
    }

    void hostileCounts()
    {
        QFETCH(SyntheticLevel, level);
        QFETCH(ExpectedWalk, expected);
        expected.verify(walkBytes(level.build()));
    }

    void truncatedAnywhere_data()
    {
        QTest::addColumn<SyntheticLevel>("level");
        QTest::newRow("TR2") << everyBlock(Game::TR2);
        QTest::newRow("TR3") << everyBlock(Game::TR3);
        QTest::newRow("TR2 hostile room") << withRooms(Game::TR2, {{5, 2, 1, 1, 0, 0}, {0, 0, 64, 64, 0, 0, true}});
        QTest::newRow("TR3 negative portals") << withRooms(Game::TR3, {{5, 0, 0, 0, 0, 0}, {0, -3, 0, 0, 0, 0, true}});
    }

    // A level cut anywhere walks exactly like the same cut padded with zeros:
    // bytes past the end read as zeros, and nothing else changes.
    void truncatedAnywhere()
    {
        QFETCH(SyntheticLevel, level);
        level.setTileCount(0); // the cut-by-cut walk stays quick
        const QByteArray bytes = level.build();
        const QByteArray padding(4096, '\0');
        for (qsizetype cut = 0; cut < bytes.size(); ++cut) {
            const C_LevelInfo info = walkBytes(bytes.left(cut));
            if (info.FileLength() != cut || everything(info) != everything(walkBytes(bytes.left(cut) + padding)))
                QFAIL(qPrintable(QStringLiteral("cut at %1 walks unlike its zero-padded twin").arg(cut)));
        }
    }

    void opensFile_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("versionString");
        QTest::addColumn<Game>("game");
        QTest::addColumn<ExpectedWalk>("expected");
        for (Game game : {Game::TR2, Game::TR3})
            QTest::newRow(game == Game::TR2 ? "TR2" : "TR3") << everyBlock(game).build()
                << (game == Game::TR2 ? "0000002D" : "FF180038") << game << ExpectedWalk::of(everyBlock(game));
        QTest::newRow("TR1") << everyBlock(Game::TR1).build() << "00000020" << Game::TR1 << ExpectedWalk();
        SyntheticLevel unknown = everyBlock(Game::TR2);
        unknown.setVersion(0x12345678);
        QTest::newRow("unknown") << unknown.build() << "12345678" << Game::Unknown << ExpectedWalk();
        unknown.setVersion(0x0000002E);
        QTest::newRow("one past TR2") << unknown.build() << "0000002E" << Game::Unknown << ExpectedWalk();
        QTest::newRow("version 0") << SyntheticLevel(Game::Unknown).build() << "00000000" << Game::Unknown
                                   << ExpectedWalk();
        QTest::newRow("empty file") << QByteArray() << "00000000" << Game::Unknown << ExpectedWalk();
    }

    // An editor keeps one level info and opens level after level with it, so
    // each file is opened after another level: nothing of that one may show.
    void opensFile()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, versionString);
        QFETCH(Game, game);
        QFETCH(ExpectedWalk, expected);
        ScratchDir dir;
        C_LevelInfo info;
        info.Init(dir.write(QStringLiteral("first.tr2"), withTables(Game::TR3, 5, 5, 5).build()));
        const QString path = dir.write(QStringLiteral("level.tr2"), bytes);
        info.Init(path);
        QVERIFY(info.IsOpened());
        QCOMPARE(info.FileName(), path);
        QCOMPARE(info.FileLength(), bytes.size());
        QCOMPARE(info.VersionString(), versionString);
        QCOMPARE(info.Game(), game);
        expected.verify(info);
    }

    void notOpened_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("error");
        QTest::newRow("missing file") << "missing.tr2" << true;
        QTest::newRow("directory") << "." << true;
        QTest::newRow("empty name") << "" << false;
    }

    // Nothing is created; a file that cannot be opened leaves nothing of the
    // level opened before it, and an empty name does nothing at all.
    void notOpened()
    {
        QFETCH(QString, name);
        QFETCH(bool, error);
        ScratchDir dir;
        C_LevelInfo info;
        if (!name.isEmpty())
            info.Init(dir.write(QStringLiteral("first.tr2"), everyBlock(Game::TR3).build()));
        const QString path = name.isEmpty() ? QString() : dir.filePath(name);
        info.Init(path);
        QVERIFY(!info.IsOpened());
        QCOMPARE(!info.ErrorString().isEmpty(), error);
        QCOMPARE(info.FileLength(), 0);
        QCOMPARE(info.Version(), 0u);
        ExpectedWalk().verify(info);
        QCOMPARE(QFileInfo::exists(path), name == QLatin1String("."));
    }
};

QTEST_GUILESS_MAIN(tst_LevelWalk)
#include "tst_LevelWalk.moc"
