#include "C_LevelInfo.h"
#include "ScratchDir.h"
#include "SyntheticLevel.h"

#include <QFile>
#include <QFileInfo>
#include <QTest>
#include <QtEndian>

using Game = LevelVersion::Game;
using Field = SyntheticField;

Q_DECLARE_METATYPE(SyntheticLevel)

namespace {

quint32 longAt(const QByteArray& bytes, qint64 pos)
{
    return qFromLittleEndian<quint32>(bytes.constData() + pos);
}

quint16 shortAt(const QByteArray& bytes, qint64 pos)
{
    return qFromLittleEndian<quint16>(bytes.constData() + pos);
}

SyntheticLevel withRecords(Game game)
{
    SyntheticLevel level(game);
    ObjectTexture object;
    object.bytes.fill(0xA7);
    level.setObjectTextures({object, object});
    SpriteTexture sprite;
    sprite.tile = 0x1234;
    level.setSpriteTextures({sprite});
    SpriteSequence sequence;
    sequence.setNumber(1);
    level.setSpriteSequences({sequence, sequence, sequence});
    level.setAnimatedTextureWords({1, 0, 0xBEEF});
    return level;
}

} // namespace

class tst_SyntheticLevel : public QObject
{
    Q_OBJECT

private slots:
    void tablesLandAtTheirCounts_data()
    {
        QTest::addColumn<Game>("game");
        QTest::newRow("TR2") << Game::TR2;
        QTest::newRow("TR3") << Game::TR3;
    }

    void tablesLandAtTheirCounts()
    {
        QFETCH(Game, game);
        const SyntheticLevel level = withRecords(game);
        const QByteArray bytes = level.build();
        const SyntheticLayout layout = level.layout();
        QCOMPARE(qint64(bytes.size()), layout.length);
        QCOMPARE(longAt(bytes, 0), level.version());
        QCOMPARE(longAt(bytes, layout.objectTexture()), 2u);
        QCOMPARE(bytes.mid(layout.objectTexture() + 4, 40), QByteArray(40, '\xA7'));
        QCOMPARE(longAt(bytes, layout.spriteTexture()), 1u);
        QCOMPARE(shortAt(bytes, layout.spriteTexture() + 4), quint16(0x1234));
        QCOMPARE(longAt(bytes, layout.spriteSequence()), 3u);
        QCOMPARE(shortAt(bytes, layout.spriteSequence() + 4 + 4), quint16(0xFFFF));
        QCOMPARE(longAt(bytes, layout.animatedTexture()), 3u);
        QCOMPARE(shortAt(bytes, layout.animatedTexture() + 8), quint16(0xBEEF));
    }

    void tilePixels()
    {
        SyntheticLevel level(Game::TR2);
        QByteArray pixels(SyntheticLevel::Tile16Size + 10, '\x11'); // one tile and ten bytes too many
        level.setTileCount(1, pixels);
        const QByteArray bytes = level.build();
        const qint64 tiles16 = level.layout().at(Field::TileCount) + 4 + SyntheticLevel::Tile8Size;
        QCOMPARE(longAt(bytes, tiles16 - SyntheticLevel::Tile8Size - 4), 1u);
        QCOMPARE(bytes.mid(tiles16 - SyntheticLevel::Tile8Size, SyntheticLevel::Tile8Size),
                 QByteArray(SyntheticLevel::Tile8Size, '\0'));
        QCOMPARE(bytes.mid(tiles16, SyntheticLevel::Tile16Size), pixels.left(SyntheticLevel::Tile16Size));
        QCOMPARE(longAt(bytes, tiles16 + SyntheticLevel::Tile16Size), 0u); // the unused word
        QCOMPARE(level.layout().length, SyntheticLevel(Game::TR2).layout().length + 3 * SyntheticLevel::Tile8Size);
    }

    void countsWithoutBytes_data()
    {
        QTest::addColumn<SyntheticLevel>("level");
        QTest::addColumn<int>("field");
        QTest::addColumn<quint32>("written");
        QTest::addColumn<int>("width");
        const auto overridden = [](Field field, quint32 raw) {
            SyntheticLevel level(Game::TR2);
            level.overrideCount(field, raw);
            return level;
        };
        const auto negative = [](Field field, qint64 count) {
            SyntheticLevel level(Game::TR3);
            level.setCount(field, count);
            return level;
        };
        QTest::newRow("tile count 0xFFFFFFFF") << overridden(Field::TileCount, 0xFFFFFFFF)
                                               << int(Field::TileCount) << quint32(0xFFFFFFFF) << 4;
        QTest::newRow("room count 0x8000") << overridden(Field::RoomCount, 0x8000)
                                           << int(Field::RoomCount) << quint32(0x8000) << 2;
        QTest::newRow("object textures 0xFFFFFFFF") << overridden(Field::ObjectTextures, 0xFFFFFFFF)
                                                    << int(Field::ObjectTextures) << quint32(0xFFFFFFFF) << 4;
        QTest::newRow("items 12") << overridden(Field::Items, 12) << int(Field::Items) << quint32(12) << 4;
        QTest::newRow("sound details high half") << overridden(Field::SoundDetails, 0xFFFF0001)
                                                 << int(Field::SoundDetails) << quint32(0xFFFF0001) << 4;
        QTest::newRow("negative cinematic frames") << negative(Field::CinematicFrames, -5)
                                                   << int(Field::CinematicFrames) << quint32(0xFFFB) << 2;
        QTest::newRow("negative demo data") << negative(Field::DemoData, -32768)
                                            << int(Field::DemoData) << quint32(0x8000) << 2;
        QTest::newRow("negative sound details") << negative(Field::SoundDetails, -1)
                                                << int(Field::SoundDetails) << quint32(0xFFFFFFFF) << 4;
    }

    // An overridden or negative count is written as asked and adds no byte.
    void countsWithoutBytes()
    {
        QFETCH(SyntheticLevel, level);
        QFETCH(int, field);
        QFETCH(quint32, written);
        QFETCH(int, width);
        const QByteArray bytes = level.build();
        QCOMPARE(qint64(bytes.size()), SyntheticLevel(level.game()).layout().length);
        const qint64 at = level.layout().at(Field(field));
        QCOMPARE(width == 2 ? shortAt(bytes, at) : longAt(bytes, at), written);
    }

    void rooms_data()
    {
        QTest::addColumn<Game>("game");
        QTest::addColumn<bool>("countsOnly");
        QTest::addColumn<qint64>("size");
        // 40 bytes of counts and fixed fields (41 in TR3), then 2 * 10 + 32 * 2
        // + 8 * 3 * 4 + 24 * 5 + 20 * 6 bytes of what they announce.
        QTest::newRow("TR2") << Game::TR2 << false << qint64(40 + 20 + 64 + 96 + 120 + 120);
        QTest::newRow("TR3") << Game::TR3 << false << qint64(41 + 20 + 64 + 96 + 120 + 120);
        QTest::newRow("TR2 counts only") << Game::TR2 << true << qint64(40);
        QTest::newRow("TR3 counts only") << Game::TR3 << true << qint64(41);
    }

    void rooms()
    {
        QFETCH(Game, game);
        QFETCH(bool, countsOnly);
        QFETCH(qint64, size);
        SyntheticLevel level(game);
        level.setRooms({{10, 2, 3, 4, 5, 6, countsOnly}, {}});
        const SyntheticLayout layout = level.layout();
        QCOMPARE(layout.rooms.size(), 2);
        QCOMPARE(layout.rooms[1] - layout.rooms[0], size);
        const QByteArray bytes = level.build();
        QCOMPARE(longAt(bytes, layout.rooms[0] + 16), 10u);
        QCOMPARE(shortAt(bytes, layout.at(Field::RoomCount)), quint16(2));
    }

    void ofSize_data()
    {
        QTest::addColumn<Game>("game");
        QTest::addColumn<qint64>("bytes");
        QTest::addColumn<int>("rooms");
        QTest::newRow("TR2 30 MB in 300 rooms") << Game::TR2 << qint64(30) * 1024 * 1024 << 300;
        QTest::newRow("TR3 64 MB in 7 rooms") << Game::TR3 << qint64(64) * 1024 * 1024 << 7;
        QTest::newRow("TR2 no rooms") << Game::TR2 << qint64(100000) << 0;
        QTest::newRow("TR3 odd size, odd rooms") << Game::TR3 << qint64(100001) << 3;
        QTest::newRow("TR2 odd size") << Game::TR2 << qint64(100001) << 4;
        QTest::newRow("TR3 even size, odd rooms") << Game::TR3 << qint64(100000) << 3;
    }

    void ofSize()
    {
        QFETCH(Game, game);
        QFETCH(qint64, bytes);
        QFETCH(int, rooms);
        const SyntheticLevel level = SyntheticLevel::ofSize(game, bytes, rooms);
        QCOMPARE(level.game(), game);
        QCOMPARE(level.rooms().size(), rooms);
        QCOMPARE(level.layout().length, bytes);
        for (const SyntheticRoom& room : level.rooms())
            QVERIFY(room.dataWords + 1 >= level.rooms().first().dataWords);
    }

    // A big level goes to disk in pieces and walks like any other.
    void writeLarge()
    {
        ScratchDir dir;
        const QString path = dir.filePath(QStringLiteral("large.tr2"));
        const SyntheticLevel level = SyntheticLevel::ofSize(Game::TR2, qint64(64) * 1024 * 1024, 300);
        QString error;
        QVERIFY2(level.writeTo(path, &error), qPrintable(error));
        QCOMPARE(QFileInfo(path).size(), level.layout().length);
        C_LevelInfo info;
        info.Init(path);
        QVERIFY(info.IsWalkComplete());
        QCOMPARE(info.OffsetItems(), level.layout().items());
    }

    void writeToMatchesBuild()
    {
        ScratchDir dir;
        const SyntheticLevel level = withRecords(Game::TR3);
        const QString path = dir.filePath(QStringLiteral("level.tr2"));
        QVERIFY(level.writeTo(path));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), level.build());
    }

    void writeToFails()
    {
        ScratchDir dir;
        QString error;
        QVERIFY(!SyntheticLevel(Game::TR2).writeTo(dir.filePath(QStringLiteral("no/such/dir/level.tr2")), &error));
        QVERIFY(!error.isEmpty());
    }
};

QTEST_GUILESS_MAIN(tst_SyntheticLevel)
#include "tst_SyntheticLevel.moc"
