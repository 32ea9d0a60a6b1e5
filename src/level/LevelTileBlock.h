#pragma once

#include "common/FileError.h"
#include "level/LevelWalk.h"

#include <QByteArray>
#include <QImage>
#include <QString>

class PaletteNearestIndex;
class TileBitmapSource;
class QFileDevice;

// A level's texture tiles rebuilt from a bitmap of them: the tile count,
// the 8-bit tiles and the 16-bit tiles, as one block that takes the place of
// the level's own. The block starts as a copy of the level's tiles, and a
// pixel is written only where the bitmap shows another colour than the
// level's 16-bit pixel does, so what the bitmap did not change keeps its
// bytes, and the bitmap of a level's own tiles gives back the level's block.
// A bitmap taller than the level's tiles adds tiles after them.
//
// A changed pixel gets the 16-bit word nearest its colour, and in the 8-bit
// tile the nearest opaque palette entry; a see-through one gets 0 in both.
class LevelTileBlock
{
public:
    static constexpr qint64 Tile8Size = 256 * 256;
    static constexpr qint64 Tile16Size = 256 * 256 * 2;

    // Builds the block from the walked level and a bitmap as
    // TileBitmapReader gives it. False with one line naming the file and the
    // cause: the level's tiles run past its end, the bitmap holds fewer
    // tiles than the level, or a changed pixel needs a colour from a palette
    // that holds none.
    bool build(QFileDevice& level, const LevelWalk::Result& walk, const QImage& bitmap, const QString& bitmapName);
    // The same from a bitmap taken one tile at a time: what is held is the
    // block and one tile of the bitmap.
    bool build(QFileDevice& level, const LevelWalk::Result& walk, TileBitmapSource& bitmap, const QString& bitmapName);

    // The level bytes the block replaces, from the tile count field through
    // the last 16-bit tile.
    qint64 first() const { return m_first; }
    qint64 last() const { return m_last; }

    const QByteArray& bytes() const { return m_bytes; }
    // What failed, on the level or on the bitmap.
    const FileError& error() const { return m_error; }

    // The tiles in the block, and how many of them the bitmap changed or added.
    qint64 tileCount() const { return m_tileCount; }
    qint64 changedTiles() const { return m_changedTiles; }

private:
    bool readLevelTiles(QFileDevice& level, qint64 levelTiles);
    bool paintTile(qint64 tile, const QImage& pixels, PaletteNearestIndex& palette);
    bool failBitmap(const QString& bitmapName, const QString& cause);
    bool failLevel(const QFileDevice& level, const QString& cause);

    qint64 m_first = 0;
    qint64 m_last = -1;
    qint64 m_tileCount = 0;
    qint64 m_levelTiles = 0;
    qint64 m_changedTiles = 0;
    QByteArray m_bytes;
    FileError m_error;
};
