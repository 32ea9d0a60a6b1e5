#include "level/BitmapTileConverter.h"
#include "level/PaletteNearestIndex.h"
#include "level/TileBitmapReader.h"
#include "level/TileBitmapSource.h"
#include "level/TilePixelEncoder.h"

#include "common/ImageFile.h"
#include "support/ScratchDir.h"

#include <QBuffer>
#include <QImage>
#include <QRandomGenerator>
#include <QTest>
#include <QtEndian>

namespace {

constexpr QRgb SeeThrough = TilePixelEncoder::SeeThrough;

int widened(int c)
{
    return (c << 3) | (c >> 2);
}

// A palette of black but for the entries given, as 6-bit red, green, blue.
QByteArray paletteWith(const QList<std::array<int, 4>>& entries)
{
    QByteArray palette(PaletteNearestIndex::PaletteSize, '\0');
    for (const auto& [index, r, g, b] : entries) {
        palette[index * 3] = char(r);
        palette[index * 3 + 1] = char(g);
        palette[index * 3 + 2] = char(b);
    }
    return palette;
}

QImage filled(int width, int height, QRgb colour, QImage::Format format = QImage::Format_RGB32)
{
    QImage image(width, height, format);
    image.fill(colour);
    return image;
}

// Three tiles, every pixel its own colour, magenta here and there.
QImage threeTiles()
{
    QImage image(256, 3 * 256, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < 256; ++x)
            image.setPixel(x, y, (x + y) % 97 == 0 ? 0xFFFF00FF : qRgb(x, y & 0xFF, (x * y / 256) & 0xFF));
    return image;
}

// The rows of a bottom-up 24-bit BMP put top down, as a negative height says.
QByteArray topDown(const QByteArray& bottomUp)
{
    constexpr qint64 HeaderSize = 54, RowBytes = 256 * 3;
    QByteArray flipped = bottomUp.left(HeaderSize);
    const qint32 height = qFromLittleEndian<qint32>(bottomUp.constData() + 22);
    qToLittleEndian(qint32(-height), flipped.data() + 22);
    for (qint64 row = height - 1; row >= 0; --row)
        flipped += bottomUp.mid(HeaderSize + row * RowBytes, RowBytes);
    return flipped;
}

} // namespace

class tst_TileEncoding : public QObject
{
    Q_OBJECT

private slots:
    // Every 8-bit value against every 5-bit one: none lies nearer than the
    // chosen one, and of two equally near the smaller is taken.
    void channelIsTheNearestWidening()
    {
        for (int v = 0; v < 256; ++v) {
            const int chosen = TilePixelEncoder::channel5(quint8(v));
            const int distance = qAbs(widened(chosen) - v);
            for (int c = 0; c < 32; ++c) {
                QVERIFY2(qAbs(widened(c) - v) > distance || (qAbs(widened(c) - v) == distance && c >= chosen),
                         qPrintable(QStringLiteral("v %1 took %2, %3 is as near").arg(v).arg(chosen).arg(c)));
            }
        }
    }

    // What any opaque word shows comes back as that word; a see-through
    // word, and the opaque one that shows magenta, as the see-through word 0.
    void everyShownWordComesBack()
    {
        constexpr int OpaqueMagenta = 0x8000 | 31 << 10 | 31;
        for (int word = 0; word < 65536; ++word) {
            const quint16 expected = word & 0x8000 && word != OpaqueMagenta ? quint16(word) : 0;
            QCOMPARE(TilePixelEncoder::pixel16(BitmapTileConverter::colourOf(quint16(word))), expected);
        }
    }

    void nearestPaletteEntry_data()
    {
        QTest::addColumn<QByteArray>("palette");
        QTest::addColumn<QRgb>("colour");
        QTest::addColumn<int>("expected");
        QTest::newRow("exact entry") << paletteWith({{5, 10, 20, 30}, {6, 11, 20, 30}}) << qRgb(40, 80, 120) << 5;
        QTest::newRow("between two entries, nearer the second")
            << paletteWith({{3, 10, 10, 10}, {4, 20, 10, 10}}) << qRgb(70, 40, 40) << 4;
        QTest::newRow("tie goes to the lower index")
            << paletteWith({{7, 20, 0, 0}, {3, 10, 0, 0}}) << qRgb(60, 0, 0) << 3;
        QTest::newRow("tie across cells")
            << paletteWith({{200, 50, 32, 33}, {9, 50, 32, 31}}) << qRgb(200, 128, 128) << 9;
        QTest::newRow("duplicate colour, lower index")
            << paletteWith({{40, 33, 1, 60}, {12, 33, 1, 60}}) << qRgb(132, 4, 240) << 12;
        QTest::newRow("index 0 look-alike is never chosen")
            << paletteWith({{0, 63, 0, 0}, {9, 40, 0, 0}}) << qRgb(252, 0, 0) << 9;
        QTest::newRow("black is an opaque entry, not index 0")
            << paletteWith({{1, 63, 63, 63}, {2, 63, 63, 62}}) << qRgb(0, 0, 0) << 3;
        QTest::newRow("channel bits above six ignored") << paletteWith({{1, 0xC0 | 63, 0, 0}, {2, 30, 0, 0}})
                                                        << qRgb(250, 0, 0) << 1;
    }

    void nearestPaletteEntry()
    {
        QFETCH(QByteArray, palette);
        QFETCH(QRgb, colour);
        QFETCH(int, expected);
        PaletteNearestIndex index(palette);
        QCOMPARE(int(index.nearest(colour)), expected);
        // Asked again, as a run of one colour asks, and after another.
        QCOMPARE(int(index.nearest(colour)), expected);
        index.nearest(qRgb(1, 2, 3));
        QCOMPARE(int(index.nearest(colour)), expected);
    }

    // The cells must never leave out the nearest entry: against a search of
    // all 255 entries on palettes of spread, clustered and repeated colours.
    void cellsAgreeWithAFullSearch_data()
    {
        QTest::addColumn<int>("spread"); // the 6-bit range the entries are drawn from
        QTest::addColumn<quint32>("seed");
        QTest::newRow("spread") << 64 << 1u;
        QTest::newRow("clustered") << 6 << 2u;
        QTest::newRow("few distinct") << 2 << 3u;
    }

    void cellsAgreeWithAFullSearch()
    {
        QFETCH(int, spread);
        QFETCH(quint32, seed);
        QRandomGenerator random(seed);
        QByteArray palette(PaletteNearestIndex::PaletteSize, '\0');
        for (char& channel : palette)
            channel = char(random.bounded(spread) + (spread < 64 ? 30 : 0));
        PaletteNearestIndex index(palette);
        for (int i = 0; i < 20000; ++i) {
            const QRgb colour = random.generate() | 0xFF000000;
            int best = 1;
            const auto distance = [&](int entry) {
                const QRgb e = index.colourOf(entry);
                const int r = qRed(e) - qRed(colour), g = qGreen(e) - qGreen(colour), b = qBlue(e) - qBlue(colour);
                return r * r + g * g + b * b;
            };
            for (int entry = 2; entry < 256; ++entry)
                best = distance(entry) < distance(best) ? entry : best;
            QCOMPARE(int(index.nearest(colour)), best);
        }
    }

    void blackPaletteHasNoColours_data()
    {
        QTest::addColumn<QByteArray>("palette");
        QTest::addColumn<bool>("hasColours");
        QTest::newRow("all zeros") << QByteArray(768, '\0') << false;
        QTest::newRow("only index 0 coloured") << paletteWith({{0, 63, 63, 63}}) << false;
        QTest::newRow("short palette") << QByteArray(6, '\0') << false;
        QTest::newRow("one colour") << paletteWith({{255, 0, 0, 1}}) << true;
    }

    void blackPaletteHasNoColours()
    {
        QFETCH(QByteArray, palette);
        QFETCH(bool, hasColours);
        QCOMPARE(PaletteNearestIndex(palette).hasColours(), hasColours);
    }

    void readerRefuses_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("cause");
        const QByteArray bmp = ImageFile::encode(filled(256, 512, qRgb(1, 2, 3)), "BMP");
        const QByteArray png = ImageFile::encode(filled(256, 512, qRgb(1, 2, 3)), "PNG");
        QByteArray tallBmp = bmp;
        qToLittleEndian<qint32>(256 * 64, tallBmp.data() + 22);
        QByteArray tallPng = png;
        qToBigEndian<quint32>(256 * 65536, tallPng.data() + 20);
        QTest::newRow("not an image") << QByteArray("plain text, not pixels") << "not a BMP or PNG";
        QTest::newRow("empty") << QByteArray() << "not a BMP or PNG";
        QTest::newRow("BMP too narrow") << ImageFile::encode(filled(128, 256, 0xFF000000), "BMP") << "128 pixels wide";
        QTest::newRow("PNG too wide") << ImageFile::encode(filled(512, 256, 0xFF000000), "PNG") << "512 pixels wide";
        QTest::newRow("half a tile high") << ImageFile::encode(filled(256, 384, 0xFF000000), "BMP") << "384 pixels high";
        QTest::newRow("BMP truncated") << bmp.left(bmp.size() / 2) << "more than its";
        QTest::newRow("BMP claims more rows") << tallBmp << "more than its";
        QTest::newRow("BMP cut in its header") << bmp.left(20) << "cut short";
        QTest::newRow("PNG claims more rows") << tallPng << "would decode";
        QTest::newRow("PNG truncated") << png.left(png.size() - 30) << "is cut short";
        QTest::newRow("PNG without its end chunk") << png.chopped(12) << "stops before the PNG's end chunk";
        QTest::newRow("PNG cut in its header") << png.left(12) << "cut short";
    }

    // Refused with a cause, and nothing allocated for a claim the bytes
    // cannot back.
    void readerRefuses()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, cause);
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        QString error;
        QVERIFY(TileBitmapReader::read(buffer, &error).isNull());
        QVERIFY2(error.contains(cause), qPrintable(error));
    }

    // Nothing is decoded that no level could address, or that would take
    // far more memory than its file's size explains, unless it is no more
    // than a level's own tiles.
    void decodingIsBounded_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<qint64>("levelTiles");
        QTest::addColumn<QString>("refusal"); // "" when it may be decoded
        QImage bomb(256, 512 * 256, QImage::Format_Mono);
        bomb.fill(0);
        const QByteArray onebit = ImageFile::encode(bomb, "PNG");
        QTest::newRow("1-bit PNG of 512 flat tiles") << onebit << qint64(0) << "would decode its 256 x 131072 pixels";
        QTest::newRow("the same as a level's own 512 tiles") << onebit << qint64(512) << "";
        QTest::newRow("the same beyond a level's 511 tiles") << onebit << qint64(511) << "would decode";
        QTest::newRow("64 flat tiles of 8-bit samples")
            << ImageFile::encode(filled(256, 64 * 256, qRgb(40, 80, 120)), "PNG") << qint64(0) << "";
        QTest::newRow("32 tiles, whatever the file") << ImageFile::encode(bomb.copy(0, 0, 256, 32 * 256), "PNG")
                                                     << qint64(0) << "";
        QByteArray tall = ImageFile::encode(filled(256, 256, qRgb(1, 2, 3)), "BMP");
        qToLittleEndian<qint32>(256 * 65537, tall.data() + 22);
        QTest::newRow("more tiles than a level addresses") << tall << qint64(70000) << "more than the 65536";
    }

    void decodingIsBounded()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(qint64, levelTiles);
        QFETCH(QString, refusal);
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        const QString found = TileBitmapReader::decodeRefusal(buffer, levelTiles);
        QCOMPARE(found.isEmpty(), refusal.isEmpty());
        QVERIFY2(found.contains(refusal), qPrintable(found));
    }

    // Taken one tile at a time, from the file's rows or from a whole
    // decoding, a bitmap gives the tiles the reader's image holds.
    void sourceGivesTheReadersTiles_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("rowByRow"); // read in order from the file, never again
        const QByteArray bmp = ImageFile::encode(threeTiles(), "BMP");
        QTest::newRow("24-bit BMP, bottom up") << bmp << false;
        QTest::newRow("24-bit BMP, top down") << topDown(bmp) << false;
        QTest::newRow("PNG") << ImageFile::encode(threeTiles(), "PNG") << true;
        QImage seeThrough = threeTiles().convertToFormat(QImage::Format_ARGB32);
        for (int y = 0; y < seeThrough.height(); y += 3)
            seeThrough.setPixel(y % 256, y, qRgba(10, 20, 30, y % 256));
        QTest::newRow("PNG with alpha") << ImageFile::encode(seeThrough, "PNG") << true;
        QTest::newRow("PNG of 16-bit channels")
            << ImageFile::encode(seeThrough.convertToFormat(QImage::Format_RGBA64), "PNG") << true;
        QTest::newRow("PNG of grey") << ImageFile::encode(threeTiles().convertToFormat(QImage::Format_Grayscale8), "PNG")
                                  << true;
        QTest::newRow("PNG of 16-bit grey")
            << ImageFile::encode(threeTiles().convertToFormat(QImage::Format_Grayscale16), "PNG") << true;
        QTest::newRow("PNG of a palette")
            << ImageFile::encode(threeTiles().convertToFormat(QImage::Format_Indexed8), "PNG") << true;
        QImage mono(256, 3 * 256, QImage::Format_Mono);
        mono.fill(0);
        for (int y = 0; y < mono.height(); ++y)
            mono.setPixel(y % 256, y, 1);
        QTest::newRow("1-bit PNG") << ImageFile::encode(mono, "PNG") << true;
    }

    void sourceGivesTheReadersTiles()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(bool, rowByRow);
        ScratchDir dir;
        const QString path = dir.write(QStringLiteral("tiles"), bytes);
        const QImage whole = TileBitmapReader::read(path);
        QCOMPARE(whole.height(), 3 * 256);
        TileBitmapSource source(path, 0);
        QCOMPARE(source.tileCount(), 3);
        for (int tile = 0; tile < 3; ++tile)
            QCOMPARE(source.tile(tile).convertToFormat(QImage::Format_RGB32),
                     whole.copy(0, tile * 256, 256, 256).convertToFormat(QImage::Format_RGB32));
        QVERIFY(source.tile(3).isNull());
        QCOMPARE(source.tile(0).isNull(), rowByRow);
    }

    void readerShowsColours_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QRgb>("expected");
        const QImage::Format alpha = QImage::Format_ARGB32;
        QTest::newRow("BMP colour") << ImageFile::encode(filled(256, 256, qRgb(8, 130, 255)), "BMP") << qRgb(8, 130, 255);
        QTest::newRow("BMP magenta") << ImageFile::encode(filled(256, 256, 0xFFFF00FF), "BMP") << SeeThrough;
        QTest::newRow("PNG opaque") << ImageFile::encode(filled(256, 256, qRgb(8, 130, 255)), "PNG") << qRgb(8, 130, 255);
        QTest::newRow("PNG alpha 127") << ImageFile::encode(filled(256, 256, qRgba(8, 130, 255, 127), alpha), "PNG")
                                       << SeeThrough;
        QTest::newRow("PNG alpha 128 is opaque") << ImageFile::encode(filled(256, 256, qRgba(8, 130, 255, 128), alpha), "PNG")
                                                 << qRgb(8, 130, 255);
        QTest::newRow("PNG opaque magenta") << ImageFile::encode(filled(256, 256, 0xFFFF00FF, alpha), "PNG") << SeeThrough;
        QTest::newRow("PNG grey") << ImageFile::encode(filled(256, 256, qRgb(90, 90, 90)).convertToFormat(QImage::Format_Grayscale8), "PNG")
                                  << qRgb(90, 90, 90);
    }

    void readerShowsColours()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QRgb, expected);
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        QString error;
        const QImage image = TileBitmapReader::read(buffer, &error);
        QVERIFY2(!image.isNull(), qPrintable(error));
        QCOMPARE(image.size(), QSize(256, 256));
        QCOMPARE(image.pixel(17, 201), expected);
    }
};

QTEST_GUILESS_MAIN(tst_TileEncoding)
#include "tst_TileEncoding.moc"
