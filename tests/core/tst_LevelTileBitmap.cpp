#include "level/BitmapTileConverter.h"
#include "level/LevelTileBitmap.h"
#include "support/ScratchDir.h"
#include "synthetic/SyntheticLevel.h"

#include <QImage>
#include <QTest>
#include <QtEndian>

using Game = LevelVersion::Game;
using Field = SyntheticField;

Q_DECLARE_METATYPE(SyntheticLevel)
Q_DECLARE_METATYPE(BitmapTileConverter::Way)

namespace {

constexpr int Side = 256;
constexpr QRgb Magenta = 0xFFFF00FF;

struct Pixel
{
    int tile;
    int x;
    int y;
    quint16 word;
};

// 16-bit tiles of zeros (all see-through) but for the pixels given.
QByteArray tilesWith(int tiles, const QList<Pixel>& pixels)
{
    QByteArray bytes(tiles * SyntheticLevel::Tile16Size, '\0');
    for (const Pixel& p : pixels)
        qToLittleEndian(p.word, bytes.data() + p.tile * SyntheticLevel::Tile16Size + (p.y * Side + p.x) * 2);
    return bytes;
}

SyntheticLevel levelWithTiles(Game game, int tiles, const QList<Pixel>& pixels)
{
    SyntheticLevel level(game);
    level.setTileCount(quint32(tiles), tilesWith(tiles, pixels));
    level.setRooms({{5, 1, 1, 1, 0, 0}});
    return level;
}

} // namespace

class tst_LevelTileBitmap : public QObject
{
    Q_OBJECT

    ScratchDir m_dir;

    QString bitmapOf(const SyntheticLevel& level, const QString& name)
    {
        const QString levelPath = m_dir.write(name + QStringLiteral(".tr2"), level.build());
        const QString bmpPath = m_dir.filePath(name + QStringLiteral(".bmp"));
        FileError error;
        if (!LevelTileBitmap::write(levelPath, bmpPath, &error))
            qWarning("%s", qPrintable(error.text()));
        return bmpPath;
    }

private slots:
    void everyWordByEveryWay_data()
    {
        QTest::addColumn<BitmapTileConverter::Way>("way");
        const char* names[] = {"table", "SSSE3", "AVX2", "AVX-512"};
        for (BitmapTileConverter::Way way : BitmapTileConverter::waysOfThisProcessor())
            QTest::newRow(names[int(way)]) << way;
    }

    // One tile holds each of the 65,536 words once, word w at row w / 256:
    // every way must give every word its colour, in the row a bottom-up
    // bitmap keeps it, and write nothing outside the tile.
    void everyWordByEveryWay()
    {
        QFETCH(BitmapTileConverter::Way, way);
        QByteArray tile(BitmapTileConverter::Tile16Size, Qt::Uninitialized);
        for (int word = 0; word < 65536; ++word)
            qToLittleEndian(quint16(word), tile.data() + word * 2);
        const int guard = 64;
        QByteArray out(BitmapTileConverter::BitmapTileSize + 2 * guard, '\x5A');
        BitmapTileConverter::convertTile(tile.constData(), out.data() + guard, way);
        QCOMPARE(out.left(guard), QByteArray(guard, '\x5A'));
        QCOMPARE(out.right(guard), QByteArray(guard, '\x5A'));
        for (int word = 0; word < 65536; ++word) {
            const auto* bgr = reinterpret_cast<const uchar*>(out.constData()) + guard
                              + ((Side - 1 - word / Side) * Side + word % Side) * 3;
            const QRgb expected = BitmapTileConverter::colourOf(quint16(word));
            if (qRgb(bgr[2], bgr[1], bgr[0]) != expected)
                QFAIL(qPrintable(QStringLiteral("word %1").arg(word, 4, 16, QLatin1Char('0'))));
        }
    }

    void colours_data()
    {
        QTest::addColumn<quint16>("word");
        QTest::addColumn<QRgb>("colour");
        QTest::newRow("opaque white") << quint16(0xFFFF) << qRgb(255, 255, 255);
        QTest::newRow("opaque black") << quint16(0x8000) << qRgb(0, 0, 0);
        QTest::newRow("red 1 widens to 8") << quint16(0x8400) << qRgb(8, 0, 0);
        QTest::newRow("green 16 widens to 132") << quint16(0x8200) << qRgb(0, 132, 0);
        QTest::newRow("blue 31 alone") << quint16(0x801F) << qRgb(0, 0, 255);
        QTest::newRow("channels kept apart") << quint16(0x8000 | 3 << 10 | 17 << 5 | 30) << qRgb(24, 140, 247);
        QTest::newRow("white without bit 15") << quint16(0x7FFF) << Magenta;
        QTest::newRow("zero") << quint16(0) << Magenta;
    }

    // Every colour lands where its word was: in a middle tile, away from its
    // edges, so a row or tile order slip moves it.
    void colours()
    {
        QFETCH(quint16, word);
        QFETCH(QRgb, colour);
        const QString bmp = bitmapOf(levelWithTiles(Game::TR3, 3, {{1, 7, 9, word}}), QTest::currentDataTag());
        const QImage image(bmp);
        QCOMPARE(image.size(), QSize(Side, 3 * Side));
        QCOMPARE(image.pixel(7, Side + 9), colour);
        QCOMPARE(image.pixel(8, Side + 9), Magenta);
        QCOMPARE(image.pixel(7, 9), Magenta);
    }

    // Every pixel of tiles of random words against a decoding of its own:
    // tile 0 at the top, rows in order, and the seams where the level is
    // read and the bitmap written out in pieces, which fall inside tiles and
    // pixels and leave a short last piece for odd counts.
    void everyPixelOfManyTiles_data()
    {
        QTest::addColumn<int>("tiles");
        QTest::newRow("one") << 1;
        QTest::newRow("five") << 5;
        QTest::newRow("twelve") << 12;
    }

    void everyPixelOfManyTiles()
    {
        QFETCH(int, tiles);
        QByteArray words(tiles * SyntheticLevel::Tile16Size, Qt::Uninitialized);
        quint32 state = 7;
        for (qsizetype at = 0; at < words.size(); at += 2) {
            state = state * 1103515245u + 12345u;
            qToLittleEndian(quint16(state >> 15), words.data() + at);
        }
        SyntheticLevel level(Game::TR2);
        level.setTileCount(tiles, words);
        const QImage image(bitmapOf(level, QStringLiteral("many")));
        QCOMPARE(image.size(), QSize(Side, tiles * Side));
        const auto widen = [](int c) { return c * 33 / 4; };
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < Side; ++x) {
                const auto word = qFromLittleEndian<quint16>(words.constData() + (y * Side + x) * 2);
                const QRgb expected = (word & 0x8000) == 0
                                          ? Magenta
                                          : qRgb(widen(word >> 10 & 31), widen(word >> 5 & 31), widen(word & 31));
                if (image.pixel(x, y) != expected)
                    QFAIL(qPrintable(QStringLiteral("pixel %1, %2").arg(x).arg(y)));
            }
        }
    }

    // The header fields a bitmap reader relies on, and exactly the pixel bytes after them.
    void header()
    {
        const QByteArray bmp = ScratchDir::read(bitmapOf(levelWithTiles(Game::TR2, 2, {}), QStringLiteral("header")));
        const char* d = bmp.constData();
        const quint32 pixelBytes = 2 * Side * Side * 3;
        QCOMPARE(bmp.left(2), QByteArray("BM"));
        QCOMPARE(qFromLittleEndian<quint32>(d + 2), 54 + pixelBytes);
        QCOMPARE(qint64(bmp.size()), 54 + qint64(pixelBytes));
        QCOMPARE(qFromLittleEndian<quint32>(d + 10), 54u);
        QCOMPARE(qFromLittleEndian<quint32>(d + 14), 40u);
        QCOMPARE(qFromLittleEndian<qint32>(d + 18), Side);
        QCOMPARE(qFromLittleEndian<qint32>(d + 22), 2 * Side); // positive: bottom-up rows
        QCOMPARE(qFromLittleEndian<quint16>(d + 26), quint16(1));
        QCOMPARE(qFromLittleEndian<quint16>(d + 28), quint16(24));
        QCOMPARE(qFromLittleEndian<quint32>(d + 30), 0u); // uncompressed
        QCOMPARE(qFromLittleEndian<quint32>(d + 34), pixelBytes);
        QCOMPARE(bmp.mid(54, 3), QByteArray("\xFF\x00\xFF", 3)); // blue, green, red of magenta
    }

    void refused_data()
    {
        QTest::addColumn<QByteArray>("level");
        QTest::addColumn<QString>("cause");
        const QByteArray twoTiles = levelWithTiles(Game::TR2, 2, {}).build();
        const qint64 tiles16End = 1796 + 4 + 2 * (SyntheticLevel::Tile8Size + SyntheticLevel::Tile16Size);
        SyntheticLevel huge(Game::TR3);
        huge.overrideCount(Field::TileCount, 0xFFFFFFFF);
        QTest::newRow("TR1") << QByteArray::fromHex("20000000") + QByteArray(4000, '\1') << "not a TR2 or TR3 level";
        QTest::newRow("empty file") << QByteArray() << "not a TR2 or TR3 level";
        QTest::newRow("no tiles") << SyntheticLevel(Game::TR2).build() << "no texture tiles";
        QTest::newRow("cut in the last tile") << twoTiles.left(tiles16End - 1) << "past the end";
        QTest::newRow("count 0xFFFFFFFF") << huge.build() << "past the end";
        // The walk stops at a count whose tile bytes overflow; the version
        // word must not stand in for it, however long the file.
        SyntheticLevel overflowing(Game::TR2);
        overflowing.overrideCount(Field::TileCount, 0x10000000);
        QTest::newRow("count 0x10000000, long file")
            << overflowing.build() + QByteArray(50 * SyntheticLevel::Tile16Size * 3 / 2, '\0') << "268435456";
    }

    // A level that cannot give a bitmap leaves the bitmap already there as it was.
    void refused()
    {
        QFETCH(QByteArray, level);
        QFETCH(QString, cause);
        const QString levelPath = m_dir.write(QStringLiteral("refused.tr2"), level);
        const QString bmpPath = m_dir.write(QStringLiteral("kept.bmp"), "old bitmap");
        FileError error;
        QVERIFY(!LevelTileBitmap::write(levelPath, bmpPath, &error));
        QVERIFY2(error.why().contains(cause), qPrintable(error.text()));
        QCOMPARE(error.file(), levelPath);
        QCOMPARE(ScratchDir::read(bmpPath), QByteArray("old bitmap"));
    }

    void unreadableFiles()
    {
        FileError error;
        QVERIFY(!LevelTileBitmap::write(m_dir.filePath(QStringLiteral("missing.tr2")), m_dir.filePath("m.bmp"), &error));
        QVERIFY(error.file().endsWith(QStringLiteral("missing.tr2")));
        QVERIFY(error.failed());
        const QString level = m_dir.write(QStringLiteral("fine.tr2"), levelWithTiles(Game::TR2, 1, {}).build());
        QVERIFY(!LevelTileBitmap::write(level, m_dir.filePath(QStringLiteral("no/such/dir/t.bmp")), &error));
        QVERIFY(error.file().endsWith(QStringLiteral("t.bmp")));
    }
};

QTEST_GUILESS_MAIN(tst_LevelTileBitmap)
#include "tst_LevelTileBitmap.moc"
