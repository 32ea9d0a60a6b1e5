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
// The image comes back as 32-bit pixels, each the colour it stands for:
// TilePixelEncoder::SeeThrough where it is see-through (magenta, or with an
// alpha channel less than half opaque), otherwise opaque.
class TileBitmapReader
{
public:
    static constexpr int Side = 256;

    // A null image, with one line saying why in error, when the file cannot
    // be read, is no BMP or PNG, is truncated or has the wrong size.
    static QImage read(const QString& path, FileError* error = nullptr);
    static QImage read(QIODevice& device, QString* error = nullptr);

private:
    struct Claim
    {
        qint64 width = 0;
        qint64 height = 0;
        qint64 leastBytes = 0; // the fewest bytes of the file its pixels need
        QString error;
    };

    static Claim bmpClaim(const QByteArray& head);
    static Claim pngClaim(const QByteArray& head);
    static QString sizeError(const Claim& claim);
    static void showColours(QImage& image);
};
