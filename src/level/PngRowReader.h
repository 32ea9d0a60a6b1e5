#pragma once

#include <QString>

#include <memory>

class QIODevice;
class QImage;

// A PNG read row after row through libpng, 256 rows at a time, each pixel
// as the 32-bit colour Qt's reader gives it: palettes, grey and fewer bits
// widened, 16-bit channels to the nearest 8-bit value, no gamma applied. A
// tall bitmap then costs one tile of memory, not all of its pixels.
// Interlaced files, whose rows come in passes, are not read this way.
class PngRowReader
{
public:
    // Reads the header from device, which must stay open while rows are read.
    explicit PngRowReader(QIODevice& device);
    ~PngRowReader();
    PngRowReader(const PngRowReader&) = delete;
    PngRowReader& operator=(const PngRowReader&) = delete;

    // The header was read and the rows can be read in order: not interlaced.
    bool isReadable() const;
    bool hasAlpha() const;
    int width() const;
    qint64 height() const;

    // The next image.height() rows into image (ARGB32, width() wide), top
    // first. False with error() saying why when the file cannot give them.
    bool readRows(QImage& image);
    QString error() const;

private:
    struct Png;
    std::unique_ptr<Png> m_png;
};
