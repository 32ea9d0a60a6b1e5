#include "InsertTilesPeakFigure.h"

#include "ChildPeakMemory.h"
#include "level/LevelTileBitmap.h"
#include "list/LevelListExtractor.h"
#include "synthetic/SyntheticLevel.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtEndian>

#include <cstdio>

namespace {

constexpr qint64 MiB = 1024 * 1024;
constexpr qint64 TileSide = 256;
constexpr qint64 RowBytes = TileSide * 3;

QString path(const QTemporaryDir& dir, const char* name)
{
    return dir.filePath(QString::fromLatin1(name));
}

// Tiles of their own colours: no pixel shows what a fresh tile's zeros do.
QByteArray paintedRows(int tiles)
{
    QByteArray rows(tiles * TileSide * RowBytes, Qt::Uninitialized);
    for (qsizetype at = 0; at < rows.size(); ++at)
        rows[at] = char((at * 7 + at / RowBytes) & 0xFF);
    return rows;
}

} // namespace

// A BMP stores its bottom row first: tiles added at the bottom go in front
// of the rows already there, and the header counts them.
bool InsertTilesPeakFigure::addTiles(const QString& bitmap, int tiles)
{
    QFile in(bitmap);
    QFile out(bitmap + QStringLiteral(".taller"));
    if (!in.open(QIODevice::ReadOnly) || !out.open(QIODevice::WriteOnly))
        return false;
    QByteArray header = in.read(LevelTileBitmap::HeaderSize);
    const qint32 height = qFromLittleEndian<qint32>(header.constData() + 22);
    if (header.size() != LevelTileBitmap::HeaderSize || height <= 0)
        return false;
    const qint64 added = tiles * TileSide * RowBytes;
    qToLittleEndian(quint32(in.size() + added), header.data() + 2);
    qToLittleEndian(qint32(height + tiles * TileSide), header.data() + 22);
    qToLittleEndian(quint32(in.size() - LevelTileBitmap::HeaderSize + added), header.data() + 34);
    out.write(header);
    out.write(paintedRows(tiles));
    while (!in.atEnd())
        out.write(in.read(4 * MiB));
    out.close();
    in.close();
    return out.error() == QFile::NoError && QFile::remove(bitmap) && QFile::rename(out.fileName(), bitmap);
}

bool InsertTilesPeakFigure::writeFiles(const QTemporaryDir& dir)
{
    constexpr qint64 TileBytes = SyntheticLevel::Tile8Size + SyntheticLevel::Tile16Size;
    SyntheticLevel level = SyntheticLevel::ofSize(LevelVersion::Game::TR2, LevelBytes - Tiles * TileBytes, 100);
    level.setTileCount(Tiles, QByteArray(Tiles * SyntheticLevel::Tile16Size, '\x55'));
    QByteArray palette(768, '\0');
    for (int i = 0; i < palette.size(); ++i)
        palette[i] = char(i % 64);
    level.setPalette8(palette);
    level.setAnimatedTextureWords({1, 0, 0});
    QString error;
    if (!level.writeTo(path(dir, "level.tr2"), &error)) {
        std::fprintf(stderr, "insert_tiles_peak_mb: cannot write the level: %s\n", qPrintable(error));
        return false;
    }
    const QString bitmap = path(dir, "tiles.bmp");
    FileError bitmapError;
    if (!LevelTileBitmap::write(path(dir, "level.tr2"), bitmap, &bitmapError) || !addTiles(bitmap, AddedTiles)
        || LevelListExtractor::Extract(path(dir, "level.tr2"), bitmap, path(dir, "list.trt")).status
               != LevelListExtractor::Status::Done) {
        std::fprintf(stderr, "insert_tiles_peak_mb: cannot write the bitmap or the list %s\n",
                     qPrintable(bitmapError.text()));
        return false;
    }
    return true;
}

std::optional<double> InsertTilesPeakFigure::measure()
{
    QTemporaryDir dir;
    if (!dir.isValid() || !writeFiles(dir))
        return std::nullopt;
    const QString output = path(dir, "out.tr2");
    const std::optional<qint64> peak = ChildPeakMemory::run(
        QStringLiteral(BRINDLE_CLI_PATH),
        {QStringLiteral("insert"), path(dir, "level.tr2"), path(dir, "list.trt"), QStringLiteral("--tiles"),
         QStringLiteral("-o"), output});
    if (!peak) {
        std::fprintf(stderr, "insert_tiles_peak_mb: brindle-cli insert --tiles failed, or its peak cannot be read\n");
        return std::nullopt;
    }
    const qint64 outputSize = QFileInfo(output).size();
    std::fprintf(stderr, "insert_tiles_peak_mb: output %.1f MB, budget %.1f MB (the output's size plus 32 MB)\n",
                 double(outputSize) / MiB, double(outputSize) / MiB + 32);
    return double(*peak) / MiB;
}
