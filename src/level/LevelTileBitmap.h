#pragma once

#include <QRgb>
#include <QString>

class QFileDevice;
class WalkedLevelFile;

// A level's 16-bit texture tiles as a Windows bitmap: 24 bits per pixel, 256
// pixels wide and 256 per tile high, tile 0 at the top. Each pixel is a
// little-endian word: bit 15 opaque, then five bits each of red, green and
// blue. The bitmap is written straight from the tiles, row by row from the
// bottom as the format stores them, one tile in memory at a time.
class LevelTileBitmap
{
public:
    static constexpr int TileSide = 256;
    static constexpr qint64 Tile8Size = TileSide * TileSide;
    static constexpr qint64 Tile16Size = TileSide * TileSide * 2;
    static constexpr qint64 BitmapTileSize = TileSide * TileSide * 3;
    static constexpr qint64 HeaderSize = 54;
    static constexpr QRgb SeeThrough = 0xFFFF00FF; // magenta

    // Writes the tiles of the level at levelPath as a bitmap at bmpPath,
    // which a complete bitmap replaces atomically. The level is only read.
    // False with a one-line cause in error and the file it is about in
    // errorFile: the level cannot be read, is not TR2 or TR3, holds no tiles
    // or holds fewer bytes than its tiles need; or the bitmap cannot be written.
    static bool write(const QString& levelPath, const QString& bmpPath, QString* error = nullptr,
                      QString* errorFile = nullptr);

    // What a 16-bit pixel shows: each 5-bit channel c widened to
    // (c << 3) | (c >> 2); SeeThrough where bit 15 is clear.
    static QRgb colourOf(quint16 pixel);

private:
    LevelTileBitmap(const QString& levelPath, const QString& bmpPath);

    bool run();
    bool locateTiles(WalkedLevelFile& level);
    bool writeBitmap(WalkedLevelFile& level);
    bool writeTiles(QFileDevice& level, QFileDevice& bitmap);
    QByteArray header() const;
    static void convertTile(const char* tile16, char* bitmapTile);
    bool fail(const QString& file, const QString& cause);

    QString m_levelPath;
    QString m_bmpPath;
    qint64 m_tilesPosition = 0; // the first 16-bit tile
    qint64 m_tileCount = 0;
    QString m_error;
    QString m_errorFile;
};
