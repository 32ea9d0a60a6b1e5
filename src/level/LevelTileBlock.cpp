#include "level/LevelTileBlock.h"

#include "level/BinaryReader.h"
#include "level/BitmapTileConverter.h"
#include "level/PaletteNearestIndex.h"
#include "level/TileBitmapReader.h"
#include "level/TileBitmapSource.h"
#include "level/TilePixelEncoder.h"

#include <QFileDevice>
#include <QtEndian>

#include <vector>

namespace {

constexpr int Side = TileBitmapReader::Side;

// The colour every 16-bit word shows, as the tiles bitmap shows it: the
// comparison that keeps an unchanged pixel is one look-up.
const std::vector<QRgb>& shownOfEveryWord()
{
    static const std::vector<QRgb> table = [] {
        std::vector<QRgb> colours(65536);
        for (quint32 word = 0; word < colours.size(); ++word)
            colours[word] = BitmapTileConverter::colourOf(quint16(word));
        return colours;
    }();
    return table;
}

} // namespace

bool LevelTileBlock::build(QFileDevice& level, const LevelWalk::Result& walk, const QImage& bitmap,
                           const QString& bitmapName)
{
    if (bitmap.width() != Side || bitmap.height() % Side != 0)
        return failBitmap(bitmapName, QStringLiteral("is not a column of 256 x 256 tiles"));
    TileBitmapSource tiles(bitmap);
    return build(level, walk, tiles, bitmapName);
}

bool LevelTileBlock::build(QFileDevice& level, const LevelWalk::Result& walk, TileBitmapSource& bitmap,
                           const QString& bitmapName)
{
    m_first = walk.tileCountPosition;
    if (m_first == 0)
        return failLevel(level, QStringLiteral("ends before its texture tiles"));
    BinaryReader reader(level, 4);
    const qint64 levelTiles = reader.u32(m_first);
    m_levelTiles = levelTiles;
    m_last = m_first + 4 + levelTiles * (Tile8Size + Tile16Size) - 1;
    if (m_last >= reader.size()) {
        return failLevel(level,
                    QStringLiteral("its %1 texture tiles run past the end of the file").arg(levelTiles));
    }
    m_tileCount = bitmap.tileCount();
    if (m_tileCount < levelTiles) {
        return failBitmap(bitmapName, QStringLiteral("holds %1 tiles, fewer than the level's %2: tiles cannot be taken away")
                                    .arg(m_tileCount)
                                    .arg(levelTiles));
    }
    if (!readLevelTiles(level, levelTiles))
        return false;

    const QByteArray paletteBytes = reader.bytes(walk.palette8Position, PaletteNearestIndex::PaletteSize);
    PaletteNearestIndex palette(paletteBytes);
    m_changedTiles = 0;
    for (qint64 tile = 0; tile < m_tileCount; ++tile) {
        const QImage pixels = bitmap.tile(tile);
        if (pixels.isNull()) {
            m_error = bitmap.error();
            return false;
        }
        if (!paintTile(tile, pixels, palette))
            return failLevel(level,
                        QStringLiteral("its 8-bit palette holds only black, no colour for the painted pixels"));
    }
    return true;
}

// The block starts as the level's own tiles; added tiles start as zeros,
// see-through in both depths.
bool LevelTileBlock::readLevelTiles(QFileDevice& level, qint64 levelTiles)
{
    m_bytes = QByteArray(4 + m_tileCount * (Tile8Size + Tile16Size), '\0');
    qToLittleEndian(quint32(m_tileCount), m_bytes.data());
    char* tiles8 = m_bytes.data() + 4;
    char* tiles16 = tiles8 + m_tileCount * Tile8Size;
    const auto readAt = [&](qint64 position, char* into, qint64 length) {
        return level.seek(position) && level.read(into, length) == length;
    };
    const qint64 levelTiles16 = m_first + 4 + levelTiles * Tile8Size;
    if (!readAt(m_first + 4, tiles8, levelTiles * Tile8Size)
        || !readAt(levelTiles16, tiles16, levelTiles * Tile16Size))
        return failLevel(level, QStringLiteral("was cut short while its texture tiles were read"));
    return true;
}

// Writes the pixels of one tile whose colour differs from what the level's
// word shows. False when such a pixel needs a palette colour and there is
// none.
bool LevelTileBlock::paintTile(qint64 tile, const QImage& pixels, PaletteNearestIndex& palette)
{
    const QRgb* shownOf = shownOfEveryWord().data();
    char* tile8 = m_bytes.data() + 4 + tile * Tile8Size;
    char* tile16 = m_bytes.data() + 4 + m_tileCount * Tile8Size + tile * Tile16Size;
    bool changed = false;
    for (int y = 0; y < Side; ++y) {
        const QRgb* row = reinterpret_cast<const QRgb*>(pixels.constScanLine(y));
        char* words = tile16 + y * Side * 2;
        for (int x = 0; x < Side; ++x) {
            const QRgb colour = row[x];
            if (shownOf[qFromLittleEndian<quint16>(words + x * 2)] == colour)
                continue;
            changed = true;
            qToLittleEndian(TilePixelEncoder::pixel16(colour), words + x * 2);
            if (colour == TilePixelEncoder::SeeThrough) {
                tile8[y * Side + x] = 0;
            } else {
                if (!palette.hasColours())
                    return false;
                tile8[y * Side + x] = char(palette.nearest(colour));
            }
        }
    }
    m_changedTiles += changed || tile >= m_levelTiles ? 1 : 0;
    return true;
}

bool LevelTileBlock::failBitmap(const QString& bitmapName, const QString& cause)
{
    m_error = FileError::reading(bitmapName, cause);
    return false;
}

bool LevelTileBlock::failLevel(const QFileDevice& level, const QString& cause)
{
    m_error = FileError(level.fileName(), FileError::cannotReceive(), cause);
    return false;
}
