#include "level/BitmapTileConverter.h"
#include "level/C_LevelInfo.h"
#include "level/LevelTileBitmap.h"
#include "level/PaletteNearestIndex.h"
#include "level/TileBitmapReader.h"
#include "level/TilePixelEncoder.h"
#include "list/C_ListInfo.h"
#include "list/C_ListInserter.h"
#include "list/ListViewSet.h"
#include "support/ListFixture.h"
#include "support/ScratchDir.h"
#include "synthetic/SyntheticLevel.h"

#include <QFile>
#include <QImage>
#include <QRandomGenerator>
#include <QTest>
#include <QtEndian>

using Game = LevelVersion::Game;
using Status = C_ListInserter::Status;

namespace {

constexpr int Side = 256;
constexpr qint64 TileBytes = SyntheticLevel::Tile8Size + SyntheticLevel::Tile16Size;
constexpr qint64 TilesAt = 4 + 768 + 1024 + 4; // the first 8-bit tile
constexpr QRgb Painted = 0xFFC82A5A;

// Random bytes, a fifth of the 16-bit words see-through with colour bits.
QByteArray randomBytes(qint64 length, quint32 seed)
{
    QByteArray bytes(length, Qt::Uninitialized);
    QRandomGenerator random(seed);
    for (char& byte : bytes)
        byte = char(random.bounded(256));
    return bytes;
}

SyntheticLevel levelWith(Game game, int tiles, const ListFixture& tables, const QByteArray& palette)
{
    SyntheticLevel level(game);
    level.setTileCount(quint32(tiles), randomBytes(tiles * SyntheticLevel::Tile16Size, 11));
    level.setTiles8(randomBytes(tiles * SyntheticLevel::Tile8Size, 12));
    level.setPalette8(palette);
    level.setRooms({{30, 2, 2, 3, 1, 1}});
    level.setCount(SyntheticField::Cameras, 2);
    level.setCount(SyntheticField::Items, 3);
    level.setObjectTextures(tables.objectTextures);
    level.setSpriteTextures(tables.sprites);
    level.setSpriteSequences(tables.sequences);
    level.setAnimatedTextures(tables.animations);
    return level;
}

QByteArray randomPalette()
{
    QByteArray palette = randomBytes(768, 13);
    for (char& channel : palette)
        channel = char(channel & 0x3F);
    return palette;
}

// The bitmap with a rectangle of one colour painted into it.
QImage paint(QImage image, const QRect& block, QRgb colour)
{
    image = image.convertToFormat(QImage::Format_ARGB32);
    for (int y = block.top(); y <= block.bottom(); ++y)
        for (int x = block.left(); x <= block.right(); ++x)
            image.setPixel(x, y, colour);
    return image;
}

QRgb shown(QRgb colour)
{
    return BitmapTileConverter::colourOf(TilePixelEncoder::pixel16(colour));
}

} // namespace

class tst_TileInsertion : public QObject
{
    Q_OBJECT

    ScratchDir m_dir;
    ListFixture m_tables = ListFixture::random(40, 3, 2, 5, 2, 21);

    struct Files
    {
        QString level, list, bitmap;
    };

    // A level, its own tiles as a bitmap (BMP or PNG) and a list of other
    // tables that names the bitmap.
    Files writeFiles(const QString& name, Game game, int tiles, const QByteArray& palette, const char* format)
    {
        Files files;
        files.level = m_dir.write(name + QStringLiteral(".tr2"), levelWith(game, tiles, m_tables, palette).build());
        files.bitmap = m_dir.filePath(name + QStringLiteral(".") + QLatin1String(format));
        FileError error;
        if (!LevelTileBitmap::write(files.level, files.bitmap, &error))
            qWarning("%s", qPrintable(error.text()));
        ListViewSet views;
        files.list = m_dir.filePath(name + QStringLiteral(".trt"));
        ListFixture::random(25, 2, 3, 4, 1, 22).write(views, files.list, files.level, files.bitmap);
        return files;
    }

    // Into a new output: an older one would keep its tail.
    C_ListInserter::Result insert(const Files& files, const QString& output, const QString& bitmap = {},
                                  bool tiles = true)
    {
        QFile::remove(m_dir.filePath(output));
        C_ListInserter inserter;
        if (tiles)
            inserter.WriteTiles(bitmap);
        return inserter.Insert(files.level, files.list, m_dir.filePath(output));
    }

    QString saved(const QImage& image, const QString& name)
    {
        const QString path = m_dir.filePath(name);
        image.save(path);
        return path;
    }

private slots:
    void initTestCase() { QVERIFY(m_dir.isValid()); }

    void unchangedBitmapChangesNothing_data()
    {
        QTest::addColumn<Game>("game");
        QTest::addColumn<QByteArray>("palette");
        QTest::addColumn<QString>("format");
        QTest::newRow("TR2 BMP") << Game::TR2 << randomPalette() << "bmp";
        QTest::newRow("TR3 BMP") << Game::TR3 << randomPalette() << "bmp";
        QTest::newRow("TR2 PNG") << Game::TR2 << randomPalette() << "png";
        QTest::newRow("TR3 PNG") << Game::TR3 << randomPalette() << "png";
        QTest::newRow("TR2 black palette") << Game::TR2 << QByteArray(768, '\0') << "bmp";
    }

    // The level's own tiles, taken out as a bitmap and put back, give the
    // same bytes as the insertion that leaves the tiles alone.
    void unchangedBitmapChangesNothing()
    {
        QFETCH(Game, game);
        QFETCH(QByteArray, palette);
        QFETCH(QString, format);
        const Files files = writeFiles(QStringLiteral("same"), game, 3, palette, qPrintable(format));
        const C_ListInserter::Result plain = insert(files, QStringLiteral("plain.tr2"), {}, false);
        const C_ListInserter::Result tiled = insert(files, QStringLiteral("tiled.tr2"));
        QCOMPARE(plain.status, Status::Done);
        QVERIFY2(tiled.status == Status::Done, qPrintable(tiled.error));
        QCOMPARE(tiled.changedTiles, 0);
        QVERIFY(ScratchDir::read(tiled.outputPath) == ScratchDir::read(plain.outputPath));
    }

    void paintedPixelsReadBack_data()
    {
        QTest::addColumn<Game>("game");
        QTest::addColumn<QString>("format");
        QTest::addColumn<QRgb>("colour");
        QTest::newRow("TR2 BMP colour") << Game::TR2 << "bmp" << Painted;
        QTest::newRow("TR3 PNG colour") << Game::TR3 << "png" << Painted;
        QTest::newRow("TR2 BMP magenta") << Game::TR2 << "bmp" << TilePixelEncoder::SeeThrough;
        QTest::newRow("TR3 PNG clear") << Game::TR3 << "png" << qRgba(10, 200, 30, 20);
    }

    // A painted block reads back through the tiles bitmap as the colour
    // nearest it, in the 8-bit tile as the nearest palette entry; every
    // other pixel of both tiles keeps its bytes.
    void paintedPixelsReadBack()
    {
        QFETCH(Game, game);
        QFETCH(QString, format);
        QFETCH(QRgb, colour);
        const QByteArray palette = randomPalette();
        const Files files = writeFiles(QStringLiteral("paint"), game, 2, palette, qPrintable(format));
        const QImage before(files.bitmap);
        const QRect block(40, 300, 30, 20); // in tile 1
        const QString painted = saved(paint(before, block, colour), QStringLiteral("painted.") + format);
        const C_ListInserter::Result result = insert(files, QStringLiteral("painted.tr2"), painted);
        QVERIFY2(result.status == Status::Done, qPrintable(result.error));
        QCOMPARE(result.changedTiles, 1);

        const QString readBack = m_dir.filePath(QStringLiteral("readback.") + format);
        QVERIFY(LevelTileBitmap::write(result.outputPath, readBack));
        const QImage after = TileBitmapReader::read(readBack);
        const QImage shownBefore = TileBitmapReader::read(files.bitmap);
        const bool clear = qAlpha(colour) < 128 || colour == TilePixelEncoder::SeeThrough;
        const QByteArray out = ScratchDir::read(result.outputPath);
        const QByteArray level = ScratchDir::read(files.level);
        PaletteNearestIndex nearest(palette);
        for (int y = 0; y < 2 * Side; ++y) {
            for (int x = 0; x < Side; ++x) {
                const qint64 at8 = TilesAt + y * Side + x;
                const bool wasClear = shownBefore.pixel(x, y) == TilePixelEncoder::SeeThrough;
                if (block.contains(x, y)) {
                    QCOMPARE(after.pixel(x, y), clear ? TilePixelEncoder::SeeThrough : shown(colour));
                    // A see-through pixel painted see-through is unchanged.
                    const int index8 = clear ? (wasClear ? int(quint8(level[at8])) : 0) : int(nearest.nearest(colour));
                    QCOMPARE(int(quint8(out[at8])), index8);
                } else if (after.pixel(x, y) != shownBefore.pixel(x, y) || out[at8] != level[at8]) {
                    QFAIL(qPrintable(QStringLiteral("pixel %1, %2 changed").arg(x).arg(y)));
                }
            }
        }
    }

    void addedTilesMoveTheTables_data()
    {
        QTest::addColumn<Game>("game");
        QTest::newRow("TR2") << Game::TR2;
        QTest::newRow("TR3") << Game::TR3;
    }

    // Two tiles added to two: the count and both blocks grow, and the walk
    // of the output finds every table where the list puts it, moved by
    // the added tiles.
    void addedTilesMoveTheTables()
    {
        QFETCH(Game, game);
        const Files files = writeFiles(QStringLiteral("grow"), game, 2, randomPalette(), "bmp");
        QImage taller(Side, 4 * Side, QImage::Format_ARGB32);
        taller.fill(TilePixelEncoder::SeeThrough);
        const QImage own(files.bitmap);
        for (int y = 0; y < own.height(); ++y)
            std::memcpy(taller.scanLine(y), own.convertToFormat(QImage::Format_ARGB32).constScanLine(y), Side * 4);
        taller = paint(taller, QRect(0, 3 * Side + 5, 8, 1), Painted);
        const QString bitmap = saved(taller, QStringLiteral("taller.bmp"));

        const C_ListInserter::Result plain = insert(files, QStringLiteral("plain.tr2"), {}, false);
        const C_ListInserter::Result grown = insert(files, QStringLiteral("grown.tr2"), bitmap);
        QVERIFY2(grown.status == Status::Done, qPrintable(grown.error));
        QCOMPARE(grown.tileCount, 4);
        QCOMPARE(grown.changedTiles, 2); // both added

        C_LevelInfo before;
        before.Init(plain.outputPath);
        C_LevelInfo after;
        after.Init(grown.outputPath);
        QVERIFY(after.IsWalkComplete());
        QCOMPARE(after.Walk().tileCount, 4);
        const qint64 moved = 2 * TileBytes;
        for (auto offset : {&C_LevelInfo::OffsetObjectTexture, &C_LevelInfo::OffsetSpriteTexture,
                            &C_LevelInfo::OffsetSpriteSequence, &C_LevelInfo::OffsetAnimatedTexture,
                            &C_LevelInfo::OffsetCameras, &C_LevelInfo::OffsetItems})
            QCOMPARE(qint64((after.*offset)()), (before.*offset)() + moved);
        QCOMPARE(after.NumberObjectTexture(), before.NumberObjectTexture());
        QCOMPARE(after.SizeAnimatedTexture(), before.SizeAnimatedTexture());

        const QByteArray plainBytes = ScratchDir::read(plain.outputPath);
        const QByteArray grownBytes = ScratchDir::read(grown.outputPath);
        const qint64 plainTilesEnd = TilesAt + 2 * TileBytes;
        QCOMPARE(grownBytes.mid(plainTilesEnd + moved), plainBytes.mid(plainTilesEnd));
        // The added 16-bit tiles: see-through but for the painted pixels.
        const qint64 tile3 = TilesAt + 4 * SyntheticLevel::Tile8Size + 3 * SyntheticLevel::Tile16Size;
        QCOMPARE(qFromLittleEndian<quint16>(grownBytes.constData() + tile3 + (5 * Side + 7) * 2),
                 TilePixelEncoder::pixel16(Painted));
        QCOMPARE(qFromLittleEndian<quint16>(grownBytes.constData() + tile3 + (5 * Side + 8) * 2), quint16(0));
    }

    void refusals_data()
    {
        QTest::addColumn<QString>("bitmap"); // a name of a bitmap written below, or a file
        QTest::addColumn<bool>("blackPalette");
        QTest::addColumn<Status>("status");
        QTest::addColumn<QString>("cause");
        QTest::newRow("fewer tiles") << "one-tile.bmp" << false << Status::BitmapUnusable << "fewer than the level's 2";
        QTest::newRow("too wide") << "wide.bmp" << false << Status::BitmapUnusable << "need 256";
        QTest::newRow("height not whole tiles") << "ragged.png" << false << Status::BitmapUnusable << "whole number";
        QTest::newRow("truncated") << "truncated.bmp" << false << Status::BitmapUnusable << "more than its";
        QTest::newRow("not an image") << "text.bmp" << false << Status::BitmapUnusable << "not a BMP or PNG";
        QTest::newRow("missing") << "absent.bmp" << false << Status::BitmapUnusable << "absent.bmp";
        QTest::newRow("painted with a black palette")
            << "painted.bmp" << true << Status::TilesUnusable << "palette holds only black";
    }

    // One line saying why, nothing written, the level untouched.
    void refusals()
    {
        QFETCH(QString, bitmap);
        QFETCH(bool, blackPalette);
        QFETCH(Status, status);
        QFETCH(QString, cause);
        const QByteArray palette = blackPalette ? QByteArray(768, '\0') : randomPalette();
        const Files files = writeFiles(QStringLiteral("refuse"), Game::TR2, 2, palette, "bmp");
        const QImage own(files.bitmap);
        saved(own.copy(0, 0, Side, Side), QStringLiteral("one-tile.bmp"));
        saved(own.scaled(512, 512), QStringLiteral("wide.bmp"));
        saved(own.copy(0, 0, Side, 300), QStringLiteral("ragged.png"));
        saved(paint(own, QRect(1, 1, 4, 4), Painted), QStringLiteral("painted.bmp"));
        m_dir.write(QStringLiteral("truncated.bmp"), ScratchDir::read(files.bitmap).left(100000));
        m_dir.write(QStringLiteral("text.bmp"), "not a bitmap at all");
        const QByteArray level = ScratchDir::read(files.level);

        const QString output = QStringLiteral("refused.tr2");
        const C_ListInserter::Result result = insert(files, output, m_dir.filePath(bitmap));
        QCOMPARE(result.status, status);
        QVERIFY2(result.error.contains(cause), qPrintable(result.error));
        QVERIFY(!result.error.contains(QLatin1Char('\n')));
        QVERIFY(!QFile::exists(m_dir.filePath(output)));
        QCOMPARE(ScratchDir::read(files.level), level);
    }

    // A level whose tile block runs past its end is refused before any
    // bitmap is read.
    void levelCutInItsTiles()
    {
        const Files files = writeFiles(QStringLiteral("cut"), Game::TR2, 2, randomPalette(), "bmp");
        m_dir.write(QStringLiteral("cut.tr2"), ScratchDir::read(files.level).left(TilesAt + TileBytes));
        const C_ListInserter::Result result = insert(files, QStringLiteral("cut-out.tr2"));
        QVERIFY(result.status != Status::Done);
        QVERIFY(!result.error.isEmpty());
        QVERIFY(!QFile::exists(m_dir.filePath(QStringLiteral("cut-out.tr2"))));
    }

    // The tiles as a PNG keep see-through pixels apart by alpha alone.
    void tilesAsPngCarryAlpha()
    {
        SyntheticLevel level(Game::TR3);
        QByteArray tiles(SyntheticLevel::Tile16Size, '\0');
        qToLittleEndian<quint16>(0x8000 | 31 << 10 | 31, tiles.data() + 2); // opaque magenta
        qToLittleEndian<quint16>(0x7FFF, tiles.data() + 4);                 // see-through white
        level.setTileCount(1, tiles);
        level.setRooms({{5, 1, 1, 1, 0, 0}});
        const QString levelPath = m_dir.write(QStringLiteral("alpha.tr2"), level.build());
        const QString png = m_dir.filePath(QStringLiteral("alpha.PNG"));
        FileError error;
        QVERIFY2(LevelTileBitmap::write(levelPath, png, &error), qPrintable(error.text()));
        QCOMPARE(ScratchDir::read(png).left(4), QByteArray("\x89PNG"));
        const QImage image(png);
        QVERIFY(image.hasAlphaChannel());
        QCOMPARE(image.pixel(0, 0), 0x00FF00FFu);
        QCOMPARE(image.pixel(1, 0), 0xFFFF00FFu);
        QCOMPARE(image.pixel(2, 0), 0x00FF00FFu);
    }
};

QTEST_GUILESS_MAIN(tst_TileInsertion)
#include "tst_TileInsertion.moc"
