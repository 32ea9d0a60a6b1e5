#include "TilesRatioFigure.h"

#include "level/LevelTileBitmap.h"
#include "synthetic/SyntheticLevel.h"

#include <QDir>
#include <QFile>
#include <QtEndian>

#include <cstdio>

// Pixels drawn at random, about half of them see-through,
// so no branch of the conversion is always taken.
bool TilesRatioFigure::writeLevel(const QString& path, QString* error) const
{
    QByteArray pixels(Tiles * SyntheticLevel::Tile16Size, Qt::Uninitialized);
    quint32 state = 1;
    for (qsizetype at = 0; at < pixels.size(); at += 2) {
        state = state * 1664525u + 1013904223u;
        qToLittleEndian(quint16(state >> 16), pixels.data() + at);
    }
    SyntheticLevel level(LevelVersion::Game::TR2);
    level.setTileCount(Tiles, pixels);
    level.setRooms(QList<SyntheticRoom>(10));
    return level.writeTo(path, error);
}

bool TilesRatioFigure::run(const QString& path, const QString& dir)
{
    FileError error;
    if (LevelTileBitmap::write(path, bitmapPath(dir), &error))
        return true;
    std::fprintf(stderr, "tiles_ratio: %s\n", qPrintable(error.text()));
    return false;
}

void TilesRatioFigure::tidy(const QString& dir)
{
    QFile::remove(bitmapPath(dir));
}

QString TilesRatioFigure::bitmapPath(const QString& dir)
{
    return QDir(dir).filePath(QStringLiteral("tiles.bmp"));
}
