#pragma once

#include "common/FileError.h"

#include <QImage>
#include <QString>

class QFileDevice;
class ReplacingFile;
class WalkedLevelFile;

// A level's 16-bit texture tiles as a Windows bitmap: 24 bits per pixel, 256
// pixels wide and 256 per tile high, tile 0 at the top. Each pixel is a
// little-endian word: bit 15 opaque, then five bits each of red, green and
// blue. The bitmap is written straight from the tiles, from the bottom row
// up as the format stores them, with a mebibyte of tiles and one of bitmap
// in memory at a time.
//
// A path ending in ".png" gets a PNG instead, with an alpha channel: a
// see-through pixel is magenta at alpha 0, every other pixel opaque. A PNG
// is packed whole, so it holds all the tiles in memory.
class LevelTileBitmap
{
public:
    static constexpr qint64 Tile8Size = 256 * 256;
    static constexpr qint64 HeaderSize = 54;

    // Writes the tiles of the level at levelPath as a bitmap at bmpPath,
    // which a complete bitmap replaces in one step. The level is only read.
    // False, saying why in error: the level cannot be read, is not TR2 or
    // TR3, holds no tiles or holds fewer bytes than its tiles need; or the
    // bitmap cannot be written.
    static bool write(const QString& levelPath, const QString& bmpPath, FileError* error = nullptr);
    // The tiles as the PNG would hold them, in memory; a null image, saying
    // why in error, for the same causes.
    static QImage read(const QString& levelPath, FileError* error = nullptr);

private:
    LevelTileBitmap(const QString& levelPath, const QString& bmpPath);

    bool run();
    bool locateTiles(WalkedLevelFile& level);
    bool writeBitmap(WalkedLevelFile& level);
    bool writePng(WalkedLevelFile& level);
    bool open(WalkedLevelFile& level);
    bool readImage(WalkedLevelFile& level, QImage& image);
    bool isPng() const;
    bool writeTiles(QFileDevice& level, ReplacingFile& bitmap);
    bool writeChunk(ReplacingFile& bitmap, QByteArray& chunk, qint64& filled);
    bool readTiles(QFileDevice& level, qint64 first, qint64 count, char* tiles16);
    qint64 putHeader(char* bytes) const;
    qint64 bitmapSize() const;
    bool failReading(const QString& cause);
    bool failWith(const FileError& error);

    QString m_levelPath;
    QString m_bmpPath;
    qint64 m_tilesPosition = 0; // the first 16-bit tile
    qint64 m_tileCount = 0;
    FileError m_error;
};
