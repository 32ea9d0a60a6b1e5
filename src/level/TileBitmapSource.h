#pragma once

#include "common/FileError.h"

#include <QFile>
#include <QImage>
#include <QString>

#include <memory>

class PngRowReader;

// A texture bitmap handed out one 256 x 256 tile at a time, each tile as
// TileBitmapReader gives its rows. An uncompressed 24-bit BMP, the kind the
// level's tiles are written as, is read tile by tile from its file, and a
// PNG that is not interlaced row after row, so a bitmap of hundreds of tiles
// costs one tile of memory; any other bitmap is decoded whole, within
// TileBitmapReader's bounds, and cut into tiles. Tiles are taken in order.
class TileBitmapSource
{
public:
    // A bitmap already decoded by TileBitmapReader.
    explicit TileBitmapSource(const QImage& decoded);
    // The bitmap at path, checked as TileBitmapReader::read checks it:
    // isNull() and error() say why when it cannot be used. levelTiles: the
    // tiles of the level it goes into (TileBitmapReader::decodeRefusal).
    TileBitmapSource(const QString& path, qint64 levelTiles);
    ~TileBitmapSource();

    bool isNull() const { return m_tileCount == 0; }
    const FileError& error() const { return m_error; }

    qint64 tileCount() const { return m_tileCount; }

    // Tile index, top to bottom, as 32-bit pixels; a null image when the
    // file can no longer be read, with error() saying why.
    QImage tile(qint64 index);

private:
    bool openRows();
    bool openPngRows();
    QImage readRows(qint64 index);
    QImage readPngRows(qint64 index);

    QImage m_decoded;
    QFile m_file;
    bool m_fromRows = false;
    std::unique_ptr<PngRowReader> m_png;
    qint64 m_nextTile = 0;
    bool m_bottomUp = true;
    qint64 m_pixelsAt = 0;
    qint64 m_height = 0;
    qint64 m_tileCount = 0;
    FileError m_error;
};
