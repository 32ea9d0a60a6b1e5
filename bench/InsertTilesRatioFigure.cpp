#include "InsertTilesRatioFigure.h"

#include "DurationSamples.h"
#include "level/LevelTileBitmap.h"
#include "list/C_ListInserter.h"
#include "list/LevelListExtractor.h"
#include "synthetic/SyntheticLevel.h"

#include <QFile>
#include <QImage>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <cstdio>
#include <cstring>

namespace {

QByteArray randomBytes(qint64 length, quint32 seed)
{
    QByteArray bytes(length, Qt::Uninitialized);
    QRandomGenerator random(seed);
    for (qsizetype at = 0; at + 4 <= bytes.size(); at += 4) {
        const quint32 word = random.generate();
        std::memcpy(bytes.data() + at, &word, 4);
    }
    return bytes;
}

QString path(const QTemporaryDir& dir, const char* name)
{
    return dir.filePath(QString::fromLatin1(name));
}

} // namespace

// The level's own tiles come out as the list's bitmap, the way New List
// makes it; then every eighth tile is painted over.
bool InsertTilesRatioFigure::writeFiles(const QTemporaryDir& dir)
{
    constexpr qint64 TileBytes = SyntheticLevel::Tile8Size + SyntheticLevel::Tile16Size;
    SyntheticLevel level = SyntheticLevel::ofSize(LevelVersion::Game::TR2, LevelBytes - Tiles * TileBytes, 100);
    level.setTileCount(Tiles, randomBytes(Tiles * SyntheticLevel::Tile16Size, 1));
    level.setTiles8(randomBytes(Tiles * SyntheticLevel::Tile8Size, 2));
    level.setPalette8(randomBytes(768, 3));
    level.setAnimatedTextureWords({1, 0, 0});
    QString error;
    if (!level.writeTo(path(dir, "level.tr2"), &error)) {
        std::fprintf(stderr, "insert_tiles_ratio: cannot write the level: %s\n", qPrintable(error));
        return false;
    }
    const QString bitmap = path(dir, "tiles.bmp");
    FileError bitmapError;
    if (!LevelTileBitmap::write(path(dir, "level.tr2"), bitmap, &bitmapError)
        || LevelListExtractor::Extract(path(dir, "level.tr2"), bitmap, path(dir, "list.trt")).status
               != LevelListExtractor::Status::Done) {
        std::fprintf(stderr, "insert_tiles_ratio: cannot write the bitmap or the list %s\n", qPrintable(bitmapError.text()));
        return false;
    }
    QImage image(bitmap);
    for (int tile = 0; tile < Tiles; tile += RepaintEvery)
        for (int y = 0; y < 256; ++y)
            for (int x = 0; x < 256; ++x)
                image.setPixel(x, tile * 256 + y, qRgb(x, y, (x + y + tile) & 0xFF));
    return image.save(bitmap, "BMP");
}

std::optional<double> InsertTilesRatioFigure::measure()
{
    QTemporaryDir dir;
    if (!dir.isValid() || !writeFiles(dir))
        return std::nullopt;
    const QString level = path(dir, "level.tr2");
    const QString output = path(dir, "templevel.tr2");
    const QString copy = path(dir, "copy.tr2");

    DurationSamples inserts;
    DurationSamples copies;
    for (int i = 0; i < Repetitions; ++i) {
        QFile::remove(output);
        const auto result = inserts.time([&] {
            C_ListInserter inserter;
            inserter.WriteTiles();
            return inserter.Insert(level, path(dir, "list.trt"), output);
        });
        if (result.status != C_ListInserter::Status::Done || result.changedTiles != Tiles / RepaintEvery) {
            std::fprintf(stderr, "insert_tiles_ratio: insertion failed: %s\n", qPrintable(result.error));
            return std::nullopt;
        }
        QFile::remove(copy);
        if (!copies.time([&] { return QFile::copy(level, copy); })) {
            std::fprintf(stderr, "insert_tiles_ratio: the copy failed\n");
            return std::nullopt;
        }
    }
    std::fprintf(stderr, "insert_tiles_ratio: insert with tiles %.1f ms, copy %.1f ms (medians of %d)\n",
                 inserts.median() / 1e6, copies.median() / 1e6, Repetitions);
    return inserts.median() / copies.median();
}
