#include "LevelTileBitmap.h"

#include "BinaryReader.h"
#include "WalkedLevelFile.h"

#include <QSaveFile>
#include <QtEndian>

#include <array>
#include <cstring>
#include <limits>
#include <vector>

namespace {

constexpr int InfoHeaderSize = 40;
constexpr int BitsPerPixel = 24;
constexpr qint32 PixelsPerMetre = 2835; // 72 dots per inch
constexpr qint64 RowSize = LevelTileBitmap::TileSide * 3; // a multiple of 4: no row padding

// The eight-bit value of every five-bit channel value.
constexpr std::array<quint8, 32> widened = [] {
    std::array<quint8, 32> table{};
    for (int c = 0; c < 32; ++c)
        table[size_t(c)] = quint8((c << 3) | (c >> 2));
    return table;
}();

// The bitmap's blue, green and red bytes of every 16-bit pixel, in the low
// three bytes: one look-up per pixel instead of a branch on bit 15 that
// random pixels mispredict half the time.
const std::vector<quint32>& bitmapBytesOfEveryPixel()
{
    static const std::vector<quint32> table = [] {
        std::vector<quint32> bytes(65536);
        for (quint32 pixel = 0; pixel < bytes.size(); ++pixel) {
            const QRgb colour = LevelTileBitmap::colourOf(quint16(pixel));
            bytes[pixel] = quint32(qBlue(colour)) | quint32(qGreen(colour)) << 8 | quint32(qRed(colour)) << 16;
        }
        return bytes;
    }();
    return table;
}

template <typename T>
void put(QByteArray& bytes, qsizetype at, T value)
{
    qToLittleEndian(value, bytes.data() + at);
}

} // namespace

LevelTileBitmap::LevelTileBitmap(const QString& levelPath, const QString& bmpPath)
    : m_levelPath(levelPath)
    , m_bmpPath(bmpPath)
{
}

bool LevelTileBitmap::write(const QString& levelPath, const QString& bmpPath, QString* error, QString* errorFile)
{
    LevelTileBitmap bitmap(levelPath, bmpPath);
    const bool written = bitmap.run();
    if (error)
        *error = bitmap.m_error;
    if (errorFile)
        *errorFile = bitmap.m_errorFile;
    return written;
}

QRgb LevelTileBitmap::colourOf(quint16 pixel)
{
    if (!(pixel & 0x8000))
        return SeeThrough;
    return qRgb(widened[(pixel >> 10) & 31], widened[(pixel >> 5) & 31], widened[pixel & 31]);
}

bool LevelTileBitmap::run()
{
    WalkedLevelFile level(m_levelPath);
    QString cause;
    if (!level.open(cause))
        return fail(m_levelPath, cause);
    return locateTiles(level) && writeBitmap(level);
}

// The 8-bit tiles come first; the 16-bit ones follow them. The count is
// taken as unsigned: a count no file could hold runs past its end.
bool LevelTileBitmap::locateTiles(WalkedLevelFile& level)
{
    const qint64 countPosition = level.walk().tileCountPosition;
    BinaryReader reader(level.file(), 4);
    m_tileCount = reader.u32(countPosition);
    m_tilesPosition = countPosition + 4 + m_tileCount * Tile8Size;
    if (m_tileCount == 0)
        return fail(m_levelPath, QStringLiteral("holds no texture tiles"));
    if (m_tilesPosition + m_tileCount * Tile16Size > reader.size()) {
        return fail(m_levelPath,
                    QStringLiteral("its %1 texture tiles run past the end of the file").arg(m_tileCount));
    }
    if (HeaderSize + m_tileCount * BitmapTileSize > std::numeric_limits<quint32>::max())
        return fail(m_levelPath, QStringLiteral("its %1 texture tiles exceed one bitmap").arg(m_tileCount));
    return true;
}

bool LevelTileBitmap::writeBitmap(WalkedLevelFile& level)
{
    QSaveFile bitmap(m_bmpPath);
    if (!bitmap.open(QIODevice::WriteOnly))
        return fail(m_bmpPath, bitmap.errorString());
    if (bitmap.write(header()) != HeaderSize)
        return fail(m_bmpPath, bitmap.errorString());
    if (!writeTiles(level.file(), bitmap))
        return false;
    if (!bitmap.commit())
        return fail(m_bmpPath, bitmap.errorString());
    return true;
}

// The bitmap stores its bottom row first: the last tile goes first, each
// tile upside down.
bool LevelTileBitmap::writeTiles(QFileDevice& level, QFileDevice& bitmap)
{
    QByteArray tile16(Tile16Size, Qt::Uninitialized);
    QByteArray converted(BitmapTileSize, Qt::Uninitialized);
    for (qint64 tile = m_tileCount - 1; tile >= 0; --tile) {
        if (!level.seek(m_tilesPosition + tile * Tile16Size) || level.read(tile16.data(), Tile16Size) != Tile16Size)
            return fail(m_levelPath, level.errorString());
        convertTile(tile16.constData(), converted.data());
        if (bitmap.write(converted) != BitmapTileSize)
            return fail(m_bmpPath, bitmap.errorString());
    }
    return true;
}

void LevelTileBitmap::convertTile(const char* tile16, char* bitmapTile)
{
    const quint32* bytesOf = bitmapBytesOfEveryPixel().data();
    for (int row = 0; row < TileSide; ++row) {
        const char* in = tile16 + qint64(row) * TileSide * 2;
        char* out = bitmapTile + (TileSide - 1 - row) * RowSize;
        for (int x = 0; x < TileSide; ++x, in += 2, out += 3) {
            const quint32 bgr = qToLittleEndian(bytesOf[qFromLittleEndian<quint16>(in)]);
            std::memcpy(out, &bgr, 3);
        }
    }
}

// BITMAPFILEHEADER then BITMAPINFOHEADER: uncompressed, 24 bits, a positive
// height for rows stored bottom-up.
QByteArray LevelTileBitmap::header() const
{
    const qint64 pixelBytes = m_tileCount * BitmapTileSize;
    QByteArray bytes(HeaderSize, '\0');
    bytes[0] = 'B';
    bytes[1] = 'M';
    put<quint32>(bytes, 2, quint32(HeaderSize + pixelBytes));
    put<quint32>(bytes, 10, quint32(HeaderSize));
    put<quint32>(bytes, 14, InfoHeaderSize);
    put<qint32>(bytes, 18, TileSide);
    put<qint32>(bytes, 22, qint32(m_tileCount * TileSide));
    put<quint16>(bytes, 26, 1); // planes
    put<quint16>(bytes, 28, BitsPerPixel);
    put<quint32>(bytes, 34, quint32(pixelBytes));
    put<qint32>(bytes, 38, PixelsPerMetre);
    put<qint32>(bytes, 42, PixelsPerMetre);
    return bytes;
}

bool LevelTileBitmap::fail(const QString& file, const QString& cause)
{
    m_errorFile = file;
    m_error = cause;
    return false;
}
