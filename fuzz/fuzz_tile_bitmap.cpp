// Reads arbitrary bytes as the bitmap that insertion writes into a level's
// tiles, whole and one tile at a time from its file, and when they read as
// one, builds the tile block of a synthetic TR2 level of two tiles from
// them: whatever the header claims, the readers must refuse it or decode no
// more than the bytes hold, never crash or hang.
#include "level/C_LevelInfo.h"
#include "level/LevelTileBlock.h"
#include "level/TileBitmapReader.h"
#include "level/TileBitmapSource.h"
#include "synthetic/SyntheticLevel.h"

#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>

namespace {

QString levelPath(const QTemporaryDir& dir)
{
    const QString path = dir.filePath(QStringLiteral("level.tr2"));
    if (!QFile::exists(path)) {
        SyntheticLevel level(LevelVersion::Game::TR2);
        QByteArray tiles16(2 * SyntheticLevel::Tile16Size, '\0');
        for (qsizetype i = 0; i < tiles16.size(); ++i)
            tiles16[i] = char(i * 7 + i / 512);
        level.setTileCount(2, tiles16);
        QByteArray palette(768, '\0');
        for (int i = 0; i < palette.size(); ++i)
            palette[i] = char(i % 64);
        level.setPalette8(palette);
        level.setRooms({SyntheticRoom{4, 1, 1, 1, 0, 0, false}});
        level.writeTo(path);
    }
    return path;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static QTemporaryDir dir;
    QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    TileBitmapReader::read(buffer);

    // Insertion takes the bitmap from its file one tile at a time.
    const QString bitmapPath = dir.filePath(QStringLiteral("bitmap"));
    {
        QFile file(bitmapPath);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            return 0;
        file.write(bytes);
    }
    TileBitmapSource bitmap(bitmapPath, 2);
    if (bitmap.isNull())
        return 0;
    QFile level(levelPath(dir));
    if (!level.open(QIODevice::ReadOnly))
        return 0;
    C_LevelInfo info;
    info.WalkDevice(level, LevelWalk::Reach::Tiles);
    LevelTileBlock().build(level, info.Walk(), bitmap, QStringLiteral("fuzzed"));
    return 0;
}
