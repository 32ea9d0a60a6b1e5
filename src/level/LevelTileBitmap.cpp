#include "level/LevelTileBitmap.h"

#include "level/BinaryReader.h"
#include "level/BitmapTileConverter.h"
#include "common/FileIdentity.h"
#include "common/ImageFile.h"
#include "common/ReplacingFile.h"
#include "level/WalkedLevelFile.h"

#include <QImage>
#include <QtEndian>

#include <cstring>
#include <limits>

namespace {

constexpr int InfoHeaderSize = 40;
constexpr int BitsPerPixel = 24;
constexpr qint32 PixelsPerMetre = 2835; // 72 dots per inch
constexpr int TileSide = BitmapTileConverter::TileSide;
constexpr qint64 Tile16Size = BitmapTileConverter::Tile16Size;
constexpr qint64 BitmapTileSize = BitmapTileConverter::BitmapTileSize;

// What one step reads, converts and writes stays in the processor's
// second-level cache: a quarter mebibyte of bitmap, two tiles of the level.
constexpr qint64 ChunkSize = 1 << 18;
constexpr qint64 TilesPerRead = 2;
constexpr qint64 PageSize = 4096;
static_assert(ChunkSize >= BitmapTileSize, "a chunk holds at least the tile that fills it");

template <typename T>
void put(char* at, T value)
{
    qToLittleEndian(value, at);
}

} // namespace

LevelTileBitmap::LevelTileBitmap(const QString& levelPath, const QString& bmpPath)
    : m_levelPath(levelPath)
    , m_bmpPath(bmpPath)
{
}

bool LevelTileBitmap::write(const QString& levelPath, const QString& bmpPath, FileError* error)
{
    LevelTileBitmap bitmap(levelPath, bmpPath);
    const bool written = bitmap.run();
    if (error)
        *error = bitmap.m_error;
    return written;
}

QImage LevelTileBitmap::read(const QString& levelPath, FileError* error)
{
    LevelTileBitmap bitmap(levelPath, {});
    WalkedLevelFile level(levelPath, LevelWalk::Reach::Tiles);
    QImage image;
    const bool read = bitmap.open(level) && bitmap.readImage(level, image);
    if (error)
        *error = bitmap.m_error;
    return read ? image : QImage();
}

bool LevelTileBitmap::open(WalkedLevelFile& level)
{
    FileError cause;
    if (!level.open(cause))
        return failWith(cause);
    return locateTiles(level);
}

bool LevelTileBitmap::run()
{
    if (const FileError sameAsLevel = FileIdentity::outputRefusal(m_bmpPath, {m_levelPath}); sameAsLevel.failed())
        return failWith(sameAsLevel);
    WalkedLevelFile level(m_levelPath, LevelWalk::Reach::Tiles);
    if (!open(level))
        return false;
    return isPng() ? writePng(level) : writeBitmap(level);
}

bool LevelTileBitmap::isPng() const
{
    return m_bmpPath.endsWith(QStringLiteral(".png"), Qt::CaseInsensitive);
}

bool LevelTileBitmap::writePng(WalkedLevelFile& level)
{
    QImage image;
    if (!readImage(level, image))
        return false;
    // Like the BMP, the PNG can always be made again from the level.
    FileError error;
    if (!ImageFile::write(image, m_bmpPath, "png", ReplacingFile::SkipDiskSync, error))
        return failWith(error);
    return true;
}

bool LevelTileBitmap::readImage(WalkedLevelFile& level, QImage& image)
{
    constexpr QRgb SeeThroughPng = 0x00FF00FF; // magenta at alpha 0
    image = QImage(TileSide, int(qMin<qint64>(m_tileCount * TileSide, std::numeric_limits<int>::max())),
                   QImage::Format_ARGB32);
    if (image.isNull() || image.height() != m_tileCount * TileSide) {
        const QString why = QStringLiteral("%1 texture tiles are too many for one image").arg(m_tileCount);
        return failWith(m_bmpPath.isEmpty() ? FileError::reading(m_levelPath, why) : FileError::writing(m_bmpPath, why));
    }
    QByteArray tiles16(qMin(m_tileCount, TilesPerRead) * Tile16Size, Qt::Uninitialized);
    for (qint64 first = 0; first < m_tileCount; first += TilesPerRead) {
        const qint64 count = qMin(TilesPerRead, m_tileCount - first);
        if (!readTiles(level.file(), first, count, tiles16.data()))
            return false;
        for (qint64 row = 0; row < count * TileSide; ++row) {
            const char* words = tiles16.constData() + row * TileSide * 2;
            QRgb* pixels = reinterpret_cast<QRgb*>(image.scanLine(int(first * TileSide + row)));
            for (int x = 0; x < TileSide; ++x) {
                const quint16 word = qFromLittleEndian<quint16>(words + x * 2);
                pixels[x] = word & 0x8000 ? BitmapTileConverter::colourOf(word) : SeeThroughPng;
            }
        }
    }
    return true;
}

// The 8-bit tiles come first; the 16-bit ones follow them. The count is
// taken as unsigned: a count no file could hold runs past its end.
bool LevelTileBitmap::locateTiles(WalkedLevelFile& level)
{
    const qint64 countPosition = level.walk().tileCountPosition;
    if (countPosition == 0)
        return failReading(QStringLiteral("ends before its texture tiles"));
    BinaryReader reader(level.file(), 4);
    m_tileCount = reader.u32(countPosition);
    m_tilesPosition = countPosition + 4 + m_tileCount * Tile8Size;
    if (m_tileCount == 0)
        return failReading(QStringLiteral("holds no texture tiles"));
    if (m_tilesPosition + m_tileCount * Tile16Size > reader.size()) {
        return failReading(
                    QStringLiteral("its %1 texture tiles run past the end of the file").arg(m_tileCount));
    }
    if (bitmapSize() > std::numeric_limits<quint32>::max())
        return failReading(QStringLiteral("its %1 texture tiles exceed one bitmap").arg(m_tileCount));
    return true;
}

bool LevelTileBitmap::writeBitmap(WalkedLevelFile& level)
{
    ReplacingFile bitmap(m_bmpPath, ReplacingFile::SkipDiskSync);
    if (!bitmap.open() || !bitmap.reserve(bitmapSize()))
        return failWith(bitmap.error());
    if (!writeTiles(level.file(), bitmap))
        return false;
    if (!bitmap.commit())
        return failWith(bitmap.error());
    return true;
}

// The bitmap stores its bottom row first: the last tile goes first, each
// tile upside down. The tiles are read, not mapped: a level another program
// cuts short while it is mapped would end the process. They are read two
// at a time, the last first, which spares the many small reads their cost.
// The header and the tiles go out in chunks of whole pages from the start
// of the file: the page cache takes such writes in large pages, where a
// write for each tile, at the header's odd offset, costs it a third more.
bool LevelTileBitmap::writeTiles(QFileDevice& level, ReplacingFile& bitmap)
{
    QByteArray tiles16(qMin(m_tileCount, TilesPerRead) * Tile16Size, Qt::Uninitialized);
    // A chunk's worth and room for the tile that overflows it.
    QByteArray chunk(ChunkSize + BitmapTileSize, Qt::Uninitialized);
    qint64 filled = putHeader(chunk.data());
    for (qint64 end = m_tileCount; end > 0; end -= TilesPerRead) {
        const qint64 first = qMax<qint64>(0, end - TilesPerRead);
        if (!readTiles(level, first, end - first, tiles16.data()))
            return false;
        for (qint64 tile = end - 1; tile >= first; --tile) {
            BitmapTileConverter::convertTile(tiles16.constData() + (tile - first) * Tile16Size, chunk.data() + filled);
            filled += BitmapTileSize;
            if (filled >= ChunkSize && !writeChunk(bitmap, chunk, filled))
                return false;
        }
    }
    if (!bitmap.write(chunk.constData(), filled))
        return failWith(bitmap.error());
    return true;
}

// Writes the chunk's whole pages and moves the part page left over, at
// most a few kibibytes, to its start: every write begins on a page of the
// file.
bool LevelTileBitmap::writeChunk(ReplacingFile& bitmap, QByteArray& chunk, qint64& filled)
{
    const qint64 whole = filled - filled % PageSize;
    if (!bitmap.write(chunk.constData(), whole))
        return failWith(bitmap.error());
    filled -= whole;
    std::memmove(chunk.data(), chunk.constData() + whole, size_t(filled));
    return true;
}

// A level shortened by another program since it was measured reads short
// without an error of its own.
bool LevelTileBitmap::readTiles(QFileDevice& level, qint64 first, qint64 count, char* tiles16)
{
    if (!level.seek(m_tilesPosition + first * Tile16Size))
        return failReading(level.errorString());
    const qint64 read = level.read(tiles16, count * Tile16Size);
    if (read < 0)
        return failReading(level.errorString());
    if (read != count * Tile16Size)
        return failReading(QStringLiteral("was cut short while its texture tiles were read"));
    return true;
}

// BITMAPFILEHEADER then BITMAPINFOHEADER: uncompressed, 24 bits, a positive
// height for rows stored bottom-up.
qint64 LevelTileBitmap::putHeader(char* bytes) const
{
    const qint64 pixelBytes = m_tileCount * BitmapTileSize;
    std::memset(bytes, 0, HeaderSize);
    bytes[0] = 'B';
    bytes[1] = 'M';
    put<quint32>(bytes + 2, quint32(bitmapSize()));
    put<quint32>(bytes + 10, quint32(HeaderSize));
    put<quint32>(bytes + 14, InfoHeaderSize);
    put<qint32>(bytes + 18, TileSide);
    put<qint32>(bytes + 22, qint32(m_tileCount * TileSide));
    put<quint16>(bytes + 26, 1); // planes
    put<quint16>(bytes + 28, BitsPerPixel);
    put<quint32>(bytes + 34, quint32(pixelBytes));
    put<qint32>(bytes + 38, PixelsPerMetre);
    put<qint32>(bytes + 42, PixelsPerMetre);
    return HeaderSize;
}

qint64 LevelTileBitmap::bitmapSize() const
{
    return HeaderSize + m_tileCount * BitmapTileSize;
}

bool LevelTileBitmap::failReading(const QString& cause)
{
    return failWith(FileError::reading(m_levelPath, cause));
}

bool LevelTileBitmap::failWith(const FileError& error)
{
    m_error = error;
    return false;
}
