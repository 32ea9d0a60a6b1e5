#pragma once

#include "common/FileError.h"

#include <QImage>
#include <QString>

class QIODevice;

// Reads a texture bitmap, BMP or PNG, whose pixels are to go into a level's
// tiles: 256 pixels wide, a whole number of 256-pixel tiles high. The header
// is checked against the file before anything is decoded, so no allocation
// is sized by a claim the file cannot back: an uncompressed bitmap must hold
// every row it claims, a compressed one at least the fewest bytes its rows
// can pack into.
//
// Nothing is decoded whose pixels no level could address or whose decoded
// size is out of all proportion to its file (decodeRefusal): a few kilobytes
// of PNG may claim a quarter of a gigabyte of pixels.
//
// The image comes back as 32-bit pixels, each the colour it stands for:
// TilePixelEncoder::SeeThrough where it is see-through (magenta, or with an
// alpha channel less than half opaque), otherwise opaque.
class TileBitmapReader
{
public:
    static constexpr int Side = 256;
    // A texture names its tile in a 16-bit word: no level addresses more.
    static constexpr qint64 AddressableTiles = 65536;
    // So many tiles are decoded whatever the size of their file: a level's
    // own tiles of flat colour pack into very little.
    static constexpr qint64 FreeTiles = 32;
    // Beyond them, the decoded 32-bit pixels may take at most this many times
    // the file's size: deflate packs at best 1,032 bytes into one, and each
    // byte of a PNG of 8-bit samples becomes at most four decoded bytes. Only
    // a file of fewer bits a sample, or one whose header lies, goes past it.
    static constexpr qint64 ExpansionFactor = 1032 * 4;

    // A null image, with one line saying why in error, when the file cannot
    // be read, is no BMP or PNG, is truncated, has the wrong size or may not
    // be decoded (decodeRefusal). levelTiles: the tiles of the level the
    // bitmap goes into, which are decoded whatever the file's size.
    static QImage read(const QString& path, FileError* error = nullptr, qint64 levelTiles = 0);
    static QImage read(QIODevice& device, QString* error = nullptr, qint64 levelTiles = 0);

    // Why the image on device is not to be decoded at all, from its header
    // and its size: no BMP or PNG, a header this program cannot read, more
    // tiles than a level addresses, or more decoded bytes than
    // ExpansionFactor times the file's size beyond FreeTiles and levelTiles.
    // Empty when it may be decoded. Any width is taken.
    static QString decodeRefusal(QIODevice& device, qint64 levelTiles = 0);

    // Why the file holds less than its header claims: the rows of a BMP run
    // past its end, a PNG stops before its end chunk. Empty when it is whole.
    static QString cutCause(QIODevice& device);

private:
    struct Claim
    {
        qint64 width = 0;
        qint64 height = 0;
        qint64 leastBytes = 0; // the fewest bytes of the file its pixels need
        bool isPng = false;
        QString error;
    };

    static Claim claimOf(QIODevice& device);
    static QString decodeRefusal(const Claim& claim, qint64 fileSize, qint64 levelTiles);
    static QString cutCause(QIODevice& device, const Claim& claim);
    static Claim bmpClaim(const QByteArray& head);
    static Claim pngClaim(const QByteArray& head);
    static QString sizeError(const Claim& claim);
    static void showColours(QImage& image);
};
