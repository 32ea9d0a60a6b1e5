#include "C_LevelInfo.h"
#include "ExpectedWalk.h"
#include "ScratchDir.h"
#include "SyntheticLevel.h"
#include "WalkBytes.h"

#include <QFile>
#include <QTest>

using Game = LevelVersion::Game;
using Field = SyntheticField;

Q_DECLARE_METATYPE(SyntheticLevel)
Q_DECLARE_METATYPE(SyntheticRoom)

namespace {

// Positions of an empty level counted by hand: the version, both palettes
// (768 + 1024), the tile count, the unused word and the room count bring the
// floor data to 1806; every Long table after it is a four-byte count.
constexpr qint64 EmptyLength = 10830;

ExpectedWalk emptyWalk(Game game)
{
    ExpectedWalk e;
    if (game == Game::TR2) {
        e.objectTexture = {1850, 0, 0};
        e.spriteTexture = {1854, 0, 0};
        e.spriteSequence = {1858, 0, 0};
        e.cameras = 1862;
        e.animatedTexture = {1878, 0, 0};
    } else {
        e.spriteTexture = {1850, 0, 0};
        e.spriteSequence = {1854, 0, 0};
        e.cameras = 1858;
        e.animatedTexture = {1874, 0, 0};
        e.objectTexture = {1878, 0, 0};
    }
    e.items = 1882;
    e.complete = true;
    return e;
}

// Records whose bytes are never zero, so a walk that lands inside a table reads
// nonsense rather than a harmless empty count.
QList<ObjectTexture> objectTextures(int n)
{
    QList<ObjectTexture> records(n);
    for (int i = 0; i < n; ++i)
        for (int b = 0; b < ObjectTexture::Size; ++b)
            records[i].bytes[b] = quint8(0x81 + (i + b) % 90);
    return records;
}

QList<SpriteTexture> spriteTextures(int n)
{
    QList<SpriteTexture> records(n);
    for (int i = 0; i < n; ++i) {
        records[i].tile = quint16(0x7F00 + i);
        records[i].width = 0xFFFF;
        records[i].left = qint16(-1 - i);
    }
    return records;
}

QList<SpriteSequence> spriteSequences(int n)
{
    QList<SpriteSequence> records(n);
    for (int i = 0; i < n; ++i) {
        records[i].objectId = 0x7FFF0000 + i;
        records[i].setNumber(i + 1);
        records[i].first = qint16(i * 3);
    }
    return records;
}

AnimatedTextureBlock animatedRanges()
{
    AnimatedTextureBlock block;
    block.ranges = {{1, 2, 3}, {0xFFFF, 7}, {9}};
    return block;
}

SyntheticLevel withTables(Game game, int objects, int sprites, int sequences)
{
    SyntheticLevel level(game);
    level.setObjectTextures(objectTextures(objects));
    level.setSpriteTextures(spriteTextures(sprites));
    level.setSpriteSequences(spriteSequences(sequences));
    level.setAnimatedTextures(animatedRanges());
    return level;
}

// Every block non-empty, each with a different count, so a record size the
// walk gets wrong anywhere moves every later position.
SyntheticLevel everyBlock(Game game)
{
    SyntheticLevel level = withTables(game, 7, 5, 3);
    QByteArray pixels(2 * SyntheticLevel::Tile16Size, '\x5A');
    level.setTileCount(2, pixels);
    level.setRooms({{3, 1, 2, 3, 1, 1, false}, {}, {101, 2, 5, 7, 3, 4, false}});
    int n = 1;
    for (Field field : {Field::FloorData, Field::MeshData, Field::MeshPointers, Field::Animations,
                        Field::StateChanges, Field::AnimDispatches, Field::AnimCommands, Field::MeshTrees,
                        Field::Frames, Field::Moveables, Field::StaticMeshes, Field::Cameras,
                        Field::SoundSources, Field::Boxes, Field::Overlaps, Field::Items,
                        Field::CinematicFrames, Field::DemoData, Field::SoundDetails, Field::SampleIndices})
        level.setCount(field, n += 2);
    return level;
}

SyntheticLevel withRooms(Game game, const QList<SyntheticRoom>& rooms)
{
    SyntheticLevel level = withTables(game, 2, 1, 1);
    level.setRooms(rooms);
    return level;
}

SyntheticLevel overridden(Game game, Field field, quint32 raw)
{
    SyntheticLevel level(game);
    level.overrideCount(field, raw);
    return level;
}

QList<SyntheticRoom> variedRooms(int n)
{
    QList<SyntheticRoom> rooms;
    for (int i = 0; i < n; ++i) {
        SyntheticRoom room;
        room.dataWords = quint32(i * 37 % 500);
        room.portals = qint16(i % 4);
        room.sectorsZ = qint16(1 + i % 9);
        room.sectorsX = qint16(1 + i * 5 % 11);
        room.lights = qint16(i * 3 % 7);
        room.staticMeshes = qint16(i % 5);
        rooms.append(room);
    }
    return rooms;
}

SyntheticRoom room(quint32 dataWords, qint16 portals, qint16 z, qint16 x, qint16 lights, qint16 statics)
{
    return {dataWords, portals, z, x, lights, statics, false};
}

SyntheticRoom claimingRoom(quint32 dataWords, qint16 portals, qint16 z, qint16 x, qint16 lights, qint16 statics)
{
    return {dataWords, portals, z, x, lights, statics, true};
}

// Everything C_LevelInfo tells about a level, for comparing two walks whole.
QList<qint64> everything(const C_LevelInfo& info)
{
    return {info.Version(),
            info.OffsetObjectTexture(), info.NumberObjectTexture(), info.SizeObjectTexture(),
            info.OffsetSpriteTexture(), info.NumberSpriteTexture(), info.SizeSpriteTexture(),
            info.OffsetSpriteSequence(), info.NumberSpriteSequence(), info.SizeSpriteSequence(),
            info.OffsetAnimatedTexture(), info.NumberAnimatedTexture(), info.SizeAnimatedTexture(),
            info.OffsetCameras(), info.OffsetItems(), info.IsWalkComplete(),
            info.Walk().tileCount, info.Walk().roomCount, info.Walk().stateChangePosition};
}

void verifyNothingWalked(const C_LevelInfo& info)
{
    ExpectedWalk().verify(info);
    QCOMPARE(info.Walk().tileCountPosition, 0);
    QCOMPARE(info.Walk().roomCountPosition, 0);
}

} // namespace

class tst_LevelWalk : public QObject
{
    Q_OBJECT

private slots:
    void emptyLevel_data()
    {
        QTest::addColumn<Game>("game");
        QTest::newRow("TR2") << Game::TR2;
        QTest::newRow("TR3") << Game::TR3;
    }

    // Counted by hand, not by the writer: anchors both the writer and the walk.
    void emptyLevel()
    {
        QFETCH(Game, game);
        const SyntheticLevel level(game);
        const ExpectedWalk expected = emptyWalk(game);
        QCOMPARE(level.layout().length, EmptyLength);
        QCOMPARE(qint64(level.build().size()), EmptyLength);
        QCOMPARE(ExpectedWalk::of(level).objectTexture, expected.objectTexture);
        QCOMPARE(ExpectedWalk::of(level).animatedTexture, expected.animatedTexture);
        QCOMPARE(ExpectedWalk::of(level).items, expected.items);
        expected.verify(walkBytes(level.build()));
    }

    void roomSize_data()
    {
        QTest::addColumn<Game>("game");
        QTest::addColumn<SyntheticRoom>("room");
        QTest::addColumn<qint64>("size");
        // 16 header + 4 data count + 2 portal count + 4 sector counts + 4 ambient
        // + 2 light count + 2 static count + 4 alternate room; TR2 adds the light
        // mode (2), TR3 the water scheme, reverb and filler (3).
        QTest::newRow("TR2 empty") << Game::TR2 << SyntheticRoom{} << qint64(40);
        QTest::newRow("TR3 empty") << Game::TR3 << SyntheticRoom{} << qint64(41);
        // + 3 * 2 + 1 * 32 + 2 * 3 * 8 + 1 * 24 + 1 * 20
        QTest::newRow("TR2 one of each") << Game::TR2 << room(3, 1, 2, 3, 1, 1) << qint64(170);
        QTest::newRow("TR3 one of each") << Game::TR3 << room(3, 1, 2, 3, 1, 1) << qint64(171);
    }

    void roomSize()
    {
        QFETCH(Game, game);
        QFETCH(SyntheticRoom, room);
        QFETCH(qint64, size);
        SyntheticLevel level(game);
        level.setRooms({room});
        QCOMPARE(level.layout().length, EmptyLength + size);
        emptyWalk(game).shiftedBy(size).verify(walkBytes(level.build()));
    }

    void tables_data()
    {
        QTest::addColumn<SyntheticLevel>("level");
        for (Game game : {Game::TR2, Game::TR3}) {
            const QByteArray name = LevelVersion::gameName(game).toLatin1();
            QTest::addRow("%s empty", name.constData()) << SyntheticLevel(game);
            QTest::addRow("%s one record each", name.constData()) << withTables(game, 1, 1, 1);
            QTest::addRow("%s every block", name.constData()) << everyBlock(game);
            QTest::addRow("%s thousand object textures", name.constData()) << withTables(game, 1000, 3, 2);
            QTest::addRow("%s sprites only", name.constData()) << withTables(game, 0, 40, 0);
            SyntheticLevel oddWords = withTables(game, 3, 0, 2);
            oddWords.setAnimatedTextureWords({2, 1, 4, 5, 0, 6, 0xFFFF});
            QTest::addRow("%s odd animated words", name.constData()) << oddWords;
        }
    }

    void tables()
    {
        QFETCH(SyntheticLevel, level);
        const C_LevelInfo info = walkBytes(level.build());
        ExpectedWalk::of(level).verify(info);
        QCOMPARE(info.Version(), level.version());
        QCOMPARE(info.Walk().roomCount, int(level.rooms().size()));
        QCOMPARE(info.Walk().tileCount, level.count(Field::TileCount));
    }

    void tablePlacement_data() { tables_data(); }

    // What the editor relies on when it rewrites a table: the tables sit back
    // to back where the game puts them, whatever the writer thinks.
    void tablePlacement()
    {
        QFETCH(SyntheticLevel, level);
        const C_LevelInfo info = walkBytes(level.build());
        const LevelWalk::Result& walk = info.Walk();
        QVERIFY(walk.complete);
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

    void rooms_data()
    {
        QTest::addColumn<SyntheticLevel>("level");
        for (Game game : {Game::TR2, Game::TR3}) {
            const QByteArray name = LevelVersion::gameName(game).toLatin1();
            QTest::addRow("%s one empty room", name.constData()) << withRooms(game, {SyntheticRoom{}});
            QTest::addRow("%s data words", name.constData()) << withRooms(game, {room(12345, 0, 0, 0, 0, 0)});
            QTest::addRow("%s portals", name.constData()) << withRooms(game, {room(0, 3, 0, 0, 0, 0)});
            QTest::addRow("%s sectors", name.constData()) << withRooms(game, {room(0, 0, 5, 7, 0, 0)});
            QTest::addRow("%s lights", name.constData()) << withRooms(game, {room(0, 0, 0, 0, 2, 0)});
            QTest::addRow("%s static meshes", name.constData()) << withRooms(game, {room(0, 0, 0, 0, 0, 4)});
            QTest::addRow("%s sixty varied rooms", name.constData()) << withRooms(game, variedRooms(60));
            // The largest counts whose 16-bit products still fit.
            QTest::addRow("%s 1023 portals", name.constData()) << withRooms(game, {room(1, 1023, 1, 1, 1, 1)});
            QTest::addRow("%s 63x65 sectors", name.constData()) << withRooms(game, {room(1, 1, 63, 65, 1, 1)});
            QTest::addRow("%s 1x4095 sectors", name.constData()) << withRooms(game, {room(1, 1, 1, 4095, 1, 1)});
            QTest::addRow("%s 1365 lights", name.constData()) << withRooms(game, {room(1, 1, 1, 1, 1365, 1)});
            QTest::addRow("%s 1638 static meshes", name.constData()) << withRooms(game, {room(1, 1, 1, 1, 1, 1638)});
            QTest::addRow("%s negative sectors both ways", name.constData())
                << withRooms(game, {room(0, 0, -2, -3, 0, 0), room(4, 0, 0, 0, 0, 0)});
        }
    }

    void rooms()
    {
        QFETCH(SyntheticLevel, level);
        const C_LevelInfo info = walkBytes(level.build());
        ExpectedWalk::of(level).verify(info);
        QCOMPARE(info.Walk().roomCount, int(level.rooms().size()));
    }

    void roomStopsWalk_data()
    {
        QTest::addColumn<Game>("game");
        QTest::addColumn<SyntheticRoom>("hostile");
        for (Game game : {Game::TR2, Game::TR3}) {
            const QByteArray name = LevelVersion::gameName(game).toLatin1();
            QTest::addRow("%s 64x64 sectors", name.constData()) << game << claimingRoom(0, 0, 64, 64, 0, 0);
            QTest::addRow("%s 1x4096 sectors", name.constData()) << game << claimingRoom(0, 0, 1, 4096, 0, 0);
            QTest::addRow("%s 200x200 sectors", name.constData()) << game << claimingRoom(0, 0, 200, 200, 0, 0);
            QTest::addRow("%s 1024 portals", name.constData()) << game << claimingRoom(0, 1024, 0, 0, 0, 0);
            QTest::addRow("%s 1366 lights", name.constData()) << game << claimingRoom(0, 0, 0, 0, 1366, 0);
            QTest::addRow("%s 1639 static meshes", name.constData()) << game << claimingRoom(0, 0, 0, 0, 0, 1639);
            QTest::addRow("%s 0x80000000 data words", name.constData()) << game << claimingRoom(0x80000000, 0, 0, 0, 0, 0);
            QTest::addRow("%s 0x7FFFFFFF data words", name.constData()) << game << claimingRoom(0x7FFFFFFF, 0, 0, 0, 0, 0);
            QTest::addRow("%s 0xFFFFFFFF data words", name.constData()) << game << claimingRoom(0xFFFFFFFF, 0, 0, 0, 0, 0);
            // Negative counts that take the position before the start of the file.
            QTest::addRow("%s -1024 portals", name.constData()) << game << claimingRoom(0, -1024, 0, 0, 0, 0);
            QTest::addRow("%s -1x4095 sectors", name.constData()) << game << claimingRoom(0, 0, -1, 4095, 0, 0);
            QTest::addRow("%s -1365 lights", name.constData()) << game << claimingRoom(0, 0, 0, 0, -1365, 0);
        }
    }

    // The room is the second of three: the walk ends inside it and reports no
    // table at all.
    void roomStopsWalk()
    {
        QFETCH(Game, game);
        QFETCH(SyntheticRoom, hostile);
        const SyntheticLevel level = withRooms(game, {room(10, 1, 2, 2, 1, 1), hostile, room(10, 1, 2, 2, 1, 1)});
        const C_LevelInfo info = walkBytes(level.build());
        ExpectedWalk().verify(info);
        QCOMPARE(info.Walk().roomCount, 3);
        QCOMPARE(info.Walk().stateChangePosition, 0);
    }

    void roomCountNegative_data()
    {
        QTest::addColumn<Game>("game");
        QTest::addColumn<quint32>("raw");
        for (Game game : {Game::TR2, Game::TR3}) {
            const QByteArray name = LevelVersion::gameName(game).toLatin1();
            QTest::addRow("%s 0x8000", name.constData()) << game << quint32(0x8000);
            QTest::addRow("%s 0x8001", name.constData()) << game << quint32(0x8001);
            QTest::addRow("%s 0xFFFF", name.constData()) << game << quint32(0xFFFF);
        }
    }

    // A room count past 32767 is negative as a short: no room is walked, so the
    // floor data count follows the room count directly.
    void roomCountNegative()
    {
        QFETCH(Game, game);
        QFETCH(quint32, raw);
        SyntheticLevel level = withTables(game, 4, 2, 2);
        level.overrideCount(Field::RoomCount, raw);
        const C_LevelInfo info = walkBytes(level.build());
        ExpectedWalk::of(level).verify(info);
        QCOMPARE(info.Walk().roomCount, int(qint16(raw)));
    }

    void tileCount_data()
    {
        QTest::addColumn<Game>("game");
        QTest::addColumn<quint32>("tiles");
        QTest::addColumn<qint64>("tiles8Size");
        QTest::addColumn<qint64>("tiles16Size");
        QTest::addColumn<bool>("complete");
        for (Game game : {Game::TR2, Game::TR3}) {
            const QByteArray name = LevelVersion::gameName(game).toLatin1();
            QTest::addRow("%s 3", name.constData()) << game << quint32(3) << qint64(196608) << qint64(393216) << true;
            // 21845 * 3 * 65536 is the most tile bytes a position below 2^32 can skip.
            QTest::addRow("%s 21845 walks past the end", name.constData())
                << game << quint32(21845) << qint64(1431633920) << qint64(2863267840) << true;
            QTest::addRow("%s 21846", name.constData()) << game << quint32(21846) << qint64(1431699456) << qint64(2863398912) << false;
            QTest::addRow("%s 65535", name.constData()) << game << quint32(65535) << qint64(4294901760) << qint64(0) << false;
            QTest::addRow("%s 65536", name.constData()) << game << quint32(65536) << qint64(0) << qint64(0) << false;
            QTest::addRow("%s 0xFFFFFFFF", name.constData()) << game << quint32(0xFFFFFFFF) << qint64(0) << qint64(0) << false;
        }
    }

    // The tile count is claimed, not backed by tiles: what lies behind it reads
    // as zeros, so a walk that gets past it finds an empty level shifted by the
    // tile bytes.
    void tileCount()
    {
        QFETCH(Game, game);
        QFETCH(quint32, tiles);
        QFETCH(qint64, tiles8Size);
        QFETCH(qint64, tiles16Size);
        QFETCH(bool, complete);
        const C_LevelInfo info = walkBytes(overridden(game, Field::TileCount, tiles).build());
        const LevelWalk::Result& walk = info.Walk();
        QCOMPARE(walk.tileCountPosition, 1796);
        QCOMPARE(walk.tileCount, qint64(tiles));
        QCOMPARE(walk.tiles8Size, tiles8Size);
        QCOMPARE(walk.tiles16Size, tiles16Size);
        if (!complete) {
            ExpectedWalk().verify(info);
            return;
        }
        emptyWalk(game).shiftedBy(tiles8Size + tiles16Size).verify(info);
    }

    void hugeCounts_data()
    {
        QTest::addColumn<SyntheticLevel>("level");
        QTest::addColumn<ExpectedWalk>("expected");

        ExpectedWalk e;
        e.objectTexture = {1850, 0xFFFFFFFF, 0};
        QTest::newRow("TR2 object textures 0xFFFFFFFF") << overridden(Game::TR2, Field::ObjectTextures, 0xFFFFFFFF) << e;

        // 20 * 0x0CCCCCCC still fits in 32 bits; the position after it does not.
        e.objectTexture = {1850, 0x0CCCCCCC, 0xFFFFFFF0};
        QTest::newRow("TR2 object textures 0x0CCCCCCC") << overridden(Game::TR2, Field::ObjectTextures, 0x0CCCCCCC) << e;

        e = emptyWalk(Game::TR2).shiftedBy(0x1400000);
        e.objectTexture = {1850, 0x100000, 0x1400000};
        QTest::newRow("TR2 object textures past the end") << overridden(Game::TR2, Field::ObjectTextures, 0x100000) << e;

        e = emptyWalk(Game::TR3);
        e.objectTexture = {1878, 0xFFFFFFFF, 0};
        e.items = 0;
        e.complete = false;
        QTest::newRow("TR3 object textures 0xFFFFFFFF") << overridden(Game::TR3, Field::ObjectTextures, 0xFFFFFFFF) << e;

        e = ExpectedWalk();
        e.objectTexture = {1850, 0, 0};
        e.spriteTexture = {1854, 0x10000000, 0};
        QTest::newRow("TR2 sprite textures 0x10000000") << overridden(Game::TR2, Field::SpriteTextures, 0x10000000) << e;

        e.spriteTexture = {1854, 0, 0};
        e.spriteSequence = {1858, 0x20000000, 0};
        QTest::newRow("TR2 sprite sequences 0x20000000") << overridden(Game::TR2, Field::SpriteSequences, 0x20000000) << e;

        e.spriteSequence = {1858, 0, 0};
        e.cameras = 1862;
        QTest::newRow("TR2 boxes 0x20000000") << overridden(Game::TR2, Field::Boxes, 0x20000000) << e;
        // 8 boxes per count fit, the 20-byte zones behind the overlaps do not.
        QTest::newRow("TR2 boxes 0x10000000") << overridden(Game::TR2, Field::Boxes, 0x10000000) << e;

        e = emptyWalk(Game::TR3);
        e.animatedTexture = {1874, 0x80000000, 0};
        e.objectTexture = {};
        e.items = 0;
        e.complete = false;
        QTest::newRow("TR3 animated textures 0x80000000") << overridden(Game::TR3, Field::AnimatedTextures, 0x80000000) << e;

        QTest::newRow("TR2 floor data 0x80000000") << overridden(Game::TR2, Field::FloorData, 0x80000000) << ExpectedWalk();
        QTest::newRow("TR3 mesh data 0x7FFFFFFF") << overridden(Game::TR3, Field::MeshData, 0x7FFFFFFF) << ExpectedWalk();
        QTest::newRow("TR2 state changes 0xFFFFFFFF") << overridden(Game::TR2, Field::StateChanges, 0xFFFFFFFF) << ExpectedWalk();

        for (Game game : {Game::TR2, Game::TR3}) {
            const QByteArray name = LevelVersion::gameName(game).toLatin1();
            e = emptyWalk(game);
            e.complete = false;
            QTest::addRow("%s items 0xFFFFFFFF", name.constData()) << overridden(game, Field::Items, 0xFFFFFFFF) << e;
            QTest::addRow("%s sample indices 0x40000000", name.constData()) << overridden(game, Field::SampleIndices, 0x40000000) << e;
        }
    }

    void hugeCounts()
    {
        QFETCH(SyntheticLevel, level);
        QFETCH(ExpectedWalk, expected);
        expected.verify(walkBytes(level.build()));
    }

    void tailCounts_data()
    {
        QTest::addColumn<SyntheticLevel>("level");
        QTest::addColumn<bool>("complete");
        const auto counted = [](Game game, Field field, qint64 count) {
            SyntheticLevel level = withTables(game, 3, 2, 1);
            level.setCount(field, count);
            return level;
        };
        const auto claimed = [](Game game, Field field, quint32 raw) {
            SyntheticLevel level = withTables(game, 3, 2, 1);
            level.overrideCount(field, raw);
            return level;
        };
        for (Game game : {Game::TR2, Game::TR3}) {
            const QByteArray name = LevelVersion::gameName(game).toLatin1();
            QTest::addRow("%s cinematic frames 2047", name.constData()) << counted(game, Field::CinematicFrames, 2047) << true;
            QTest::addRow("%s cinematic frames 2048", name.constData()) << counted(game, Field::CinematicFrames, 2048) << false;
            QTest::addRow("%s cinematic frames -2048", name.constData()) << counted(game, Field::CinematicFrames, -2048) << false;
            QTest::addRow("%s demo data 32767", name.constData()) << counted(game, Field::DemoData, 32767) << true;
            QTest::addRow("%s demo data -1", name.constData()) << counted(game, Field::DemoData, -1) << true;
            QTest::addRow("%s demo data -32768", name.constData()) << counted(game, Field::DemoData, -32768) << false;
            // Demo data is counted in bytes: 8000 back from about 10200 stays in
            // the file, 16000 back would not.
            QTest::addRow("%s demo data -8000", name.constData()) << counted(game, Field::DemoData, -8000) << true;
            // Cinematic frames that step to just before the start: the demo data
            // count would lie at a negative position, so the walk ends there
            // even though the sound map would bring it back into the file.
            const qint64 cinematics = withTables(game, 3, 2, 1).layout().at(Field::CinematicFrames);
            const qint64 frames = (cinematics + 2) / 16 + 1;
            QTest::addRow("%s cinematic frames to just before the start", name.constData())
                << counted(game, Field::CinematicFrames, -frames) << false;
            QTest::addRow("%s sound details 4095", name.constData()) << counted(game, Field::SoundDetails, 4095) << true;
            QTest::addRow("%s sound details 4096", name.constData()) << counted(game, Field::SoundDetails, 4096) << false;
            // Only the low half of the sound detail field is a count.
            QTest::addRow("%s sound details 0xFFFF0000", name.constData()) << claimed(game, Field::SoundDetails, 0xFFFF0000) << true;
            QTest::addRow("%s sound details 0x00011000", name.constData()) << claimed(game, Field::SoundDetails, 0x00011000) << false;
            QTest::addRow("%s sample indices 0x3FFFFFFF", name.constData()) << claimed(game, Field::SampleIndices, 0x3FFFFFFF) << false;
        }
    }

    // Blocks after the items decide only whether the walk completes; the
    // tables are found either way.
    void tailCounts()
    {
        QFETCH(SyntheticLevel, level);
        QFETCH(bool, complete);
        ExpectedWalk expected = ExpectedWalk::of(level);
        expected.complete = complete;
        expected.verify(walkBytes(level.build()));
    }

    void truncatedAnywhere_data()
    {
        QTest::addColumn<SyntheticLevel>("level");
        QTest::newRow("TR2") << everyBlock(Game::TR2);
        QTest::newRow("TR3") << everyBlock(Game::TR3);
        QTest::newRow("TR2 hostile room") << withRooms(Game::TR2, {room(5, 2, 1, 1, 0, 0), claimingRoom(0, 0, 64, 64, 0, 0)});
        QTest::newRow("TR3 negative portals") << withRooms(Game::TR3, {room(5, 0, 0, 0, 0, 0), claimingRoom(0, -3, 0, 0, 0, 0)});
    }

    // A level cut anywhere walks exactly like the same cut padded with zeros:
    // bytes past the end read as zeros, and nothing else changes.
    void truncatedAnywhere()
    {
        QFETCH(SyntheticLevel, level);
        SyntheticLevel small = level;
        small.setTileCount(0); // the cut-by-cut walk stays quick
        const QByteArray bytes = small.build();
        const QByteArray padding(4096, '\0');
        for (qsizetype cut = 0; cut < bytes.size(); ++cut) {
            const QByteArray head = bytes.left(cut);
            const QList<qint64> walked = everything(walkBytes(head));
            if (walked != everything(walkBytes(head + padding)))
                QFAIL(qPrintable(QStringLiteral("cut at %1 walks unlike its zero-padded twin").arg(cut)));
        }
    }

    void truncatedAt_data()
    {
        QTest::addColumn<SyntheticLevel>("level");
        QTest::addColumn<qint64>("cut");
        QTest::addColumn<ExpectedWalk>("expected");

        for (Game game : {Game::TR2, Game::TR3}) {
            const QByteArray name = LevelVersion::gameName(game).toLatin1();
            const SyntheticLevel level = everyBlock(game);
            const SyntheticLayout layout = level.layout();
            // Nothing but zeros after the version: an empty level.
            QTest::addRow("%s in the palettes", name.constData()) << level << qint64(100) << emptyWalk(game);
            QTest::addRow("%s at the tile count", name.constData()) << level << qint64(1796) << emptyWalk(game);

            ExpectedWalk e = ExpectedWalk::of(level);
            QTest::addRow("%s at the items", name.constData()) << level << layout.items() << e;
            QTest::addRow("%s one byte short", name.constData()) << level << layout.length - 1 << e;

            // The cut table is empty and every table after it a bare count.
            const qint64 s = layout.spriteTexture();
            e.spriteTexture = {s, 0, 0};
            e.spriteSequence = {s + 4, 0, 0};
            e.cameras = s + 8;
            e.animatedTexture = {s + 24, 0, 0};
            if (game == Game::TR3) {
                e.objectTexture = {s + 28, 0, 0};
                e.items = s + 32;
            } else {
                e.items = s + 28;
            }
            QTest::addRow("%s at the sprite textures", name.constData()) << level << s << e;
        }
        const SyntheticLevel tr3 = everyBlock(Game::TR3);
        ExpectedWalk e = ExpectedWalk::of(tr3);
        const qint64 o = tr3.layout().objectTexture();
        e.objectTexture = {o, 0, 0};
        e.items = o + 4;
        QTest::newRow("TR3 at the object textures") << tr3 << o << e;
        // Only the low byte of the count survives the cut: 300 (0x012C) reads as 44.
        const SyntheticLevel many = withTables(Game::TR3, 300, 2, 2);
        const qint64 m = many.layout().objectTexture();
        e = ExpectedWalk::of(many);
        e.objectTexture = {m, 44, 44 * ObjectTexture::Size};
        e.items = m + 4 + 44 * ObjectTexture::Size;
        QTest::newRow("TR3 inside the object texture count") << many << m + 1 << e;
    }

    void truncatedAt()
    {
        QFETCH(SyntheticLevel, level);
        QFETCH(qint64, cut);
        QFETCH(ExpectedWalk, expected);
        const C_LevelInfo info = walkBytes(level.build().left(cut));
        expected.verify(info);
        QCOMPARE(info.FileLength(), cut);
    }

    void truncatedVersion_data()
    {
        QTest::addColumn<Game>("game");
        QTest::addColumn<int>("cut");
        QTest::addColumn<quint32>("version");
        QTest::addColumn<bool>("walked");
        // TR2's long is 2D 00 00 00 on disk: its first byte alone still reads as it.
        QTest::newRow("TR2 1 byte") << Game::TR2 << 1 << quint32(0x2D) << true;
        QTest::newRow("TR2 3 bytes") << Game::TR2 << 3 << quint32(0x2D) << true;
        QTest::newRow("TR3 1 byte") << Game::TR3 << 1 << quint32(0x38) << false;
        QTest::newRow("TR3 3 bytes") << Game::TR3 << 3 << quint32(0x180038) << false;
        QTest::newRow("TR3 4 bytes") << Game::TR3 << 4 << LevelVersion::TR3 << true;
    }

    void truncatedVersion()
    {
        QFETCH(Game, game);
        QFETCH(int, cut);
        QFETCH(quint32, version);
        QFETCH(bool, walked);
        const C_LevelInfo info = walkBytes(everyBlock(game).build().left(cut));
        QCOMPARE(info.Version(), version);
        if (walked)
            emptyWalk(game).verify(info);
        else
            verifyNothingWalked(info);
    }

    void emptyFile()
    {
        ScratchDir dir;
        const QString path = dir.write(QStringLiteral("empty.tr2"), {});
        QVERIFY(!path.isEmpty());
        C_LevelInfo info;
        info.Init(path);
        QVERIFY(info.IsOpened());
        QCOMPARE(info.Version(), 0u);
        QCOMPARE(info.VersionString(), QStringLiteral("00000000"));
        QCOMPARE(info.Game(), Game::Unknown);
        QCOMPARE(info.FileLength(), 0);
        verifyNothingWalked(info);
    }

    void notWalked_data()
    {
        QTest::addColumn<SyntheticLevel>("level");
        QTest::addColumn<QString>("versionString");
        QTest::addColumn<Game>("game");
        QTest::newRow("TR1") << everyBlock(Game::TR1) << QStringLiteral("00000020") << Game::TR1;
        SyntheticLevel unknown = everyBlock(Game::TR2);
        unknown.setVersion(0x12345678);
        QTest::newRow("unknown") << unknown << QStringLiteral("12345678") << Game::Unknown;
        unknown.setVersion(0x0000002E);
        QTest::newRow("one past TR2") << unknown << QStringLiteral("0000002E") << Game::Unknown;
        QTest::newRow("version 0") << SyntheticLevel(Game::Unknown) << QStringLiteral("00000000") << Game::Unknown;
    }

    void notWalked()
    {
        QFETCH(SyntheticLevel, level);
        QFETCH(QString, versionString);
        QFETCH(Game, game);
        ScratchDir dir;
        C_LevelInfo info;
        info.Init(dir.write(QStringLiteral("level.tr2"), level.build()));
        QVERIFY(info.IsOpened());
        QCOMPARE(info.Version(), level.version());
        QCOMPARE(info.VersionString(), versionString);
        QCOMPARE(info.Game(), game);
        QCOMPARE(info.FileLength(), level.layout().length);
        verifyNothingWalked(info);
    }

    void initFile_data()
    {
        QTest::addColumn<SyntheticLevel>("level");
        QTest::newRow("TR2") << everyBlock(Game::TR2);
        QTest::newRow("TR3") << everyBlock(Game::TR3);
    }

    void initFile()
    {
        QFETCH(SyntheticLevel, level);
        ScratchDir dir;
        const QString path = dir.filePath(QStringLiteral("level.tr2"));
        QString error;
        QVERIFY2(level.writeTo(path, &error), qPrintable(error));
        C_LevelInfo info;
        info.Init(path);
        QVERIFY(info.IsOpened());
        QCOMPARE(info.FileName(), path);
        QCOMPARE(info.FileLength(), level.layout().length);
        QCOMPARE(info.Game(), level.game());
        ExpectedWalk::of(level).verify(info);
    }

    void initMissingFile()
    {
        ScratchDir dir;
        const QString path = dir.filePath(QStringLiteral("missing.tr2"));
        C_LevelInfo info;
        info.Init(path);
        QVERIFY(!info.IsOpened());
        QVERIFY(!info.ErrorString().isEmpty());
        QVERIFY(!QFile::exists(path));
        QCOMPARE(info.FileLength(), 0);
        verifyNothingWalked(info);
    }

    void initDirectory()
    {
        ScratchDir dir;
        C_LevelInfo info;
        info.Init(dir.path());
        QVERIFY(!info.IsOpened());
        QVERIFY(!info.ErrorString().isEmpty());
        QCOMPARE(info.FileLength(), 0);
        QCOMPARE(info.Version(), 0u);
        verifyNothingWalked(info);
    }

    void initEmptyName()
    {
        C_LevelInfo info;
        info.Init(QString());
        QVERIFY(!info.IsOpened());
        QVERIFY(info.FileName().isEmpty());
        QVERIFY(info.ErrorString().isEmpty());
        verifyNothingWalked(info);
    }

    // An editor keeps one level info and opens level after level with it: a
    // level that cannot be walked must not show the previous one's tables.
    void initAgain_data()
    {
        QTest::addColumn<QString>("second");
        QTest::newRow("unknown version") << QStringLiteral("unknown.tr2");
        QTest::newRow("missing file") << QStringLiteral("missing.tr2");
        QTest::newRow("empty file") << QStringLiteral("empty.tr2");
    }

    void initAgain()
    {
        QFETCH(QString, second);
        ScratchDir dir;
        SyntheticLevel unknown = everyBlock(Game::TR2);
        unknown.setVersion(0x12345678);
        dir.write(QStringLiteral("unknown.tr2"), unknown.build());
        dir.write(QStringLiteral("empty.tr2"), {});
        C_LevelInfo info;
        info.Init(dir.write(QStringLiteral("first.tr2"), everyBlock(Game::TR3).build()));
        QVERIFY(info.IsWalkComplete());
        info.Init(dir.filePath(second));
        verifyNothingWalked(info);
        QVERIFY(info.Version() != LevelVersion::TR3);
        QVERIFY(info.FileLength() != everyBlock(Game::TR3).layout().length);
    }
};

QTEST_GUILESS_MAIN(tst_LevelWalk)
#include "tst_LevelWalk.moc"
