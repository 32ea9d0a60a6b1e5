// Inserts arbitrary bytes, taken as a list file of the level's version, into
// a synthetic TR2 level: whatever the list claims, insertion must refuse it
// or write an output, never crash, hang or touch its inputs.
#include "list/C_ListInserter.h"
#include "level/LevelVersion.h"
#include "synthetic/SyntheticLevel.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>

#include <cstddef>
#include <cstdint>

namespace {

QString levelPath(const QTemporaryDir& dir)
{
    const QString path = dir.filePath(QStringLiteral("level.tr2"));
    if (!QFile::exists(path)) {
        SyntheticLevel level(LevelVersion::Game::TR2);
        level.setRooms({SyntheticRoom{8, 1, 2, 2, 1, 1, false}});
        level.setCount(SyntheticField::Cameras, 2);
        level.setCount(SyntheticField::Items, 3);
        level.setObjectTextures(QList<ObjectTexture>(5));
        level.setSpriteTextures(QList<SpriteTexture>(2));
        level.writeTo(path);
    }
    return path;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static QTemporaryDir dir;
    QByteArray list(reinterpret_cast<const char*>(data), qsizetype(size));
    if (list.size() >= 4)
        qToLittleEndian(LevelVersion::TR2, list.data()); // reach past the version check
    const QString listPath = dir.filePath(QStringLiteral("list.trt"));
    {
        QFile file(listPath);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            return 0;
        file.write(list);
    }
    const QString output = dir.filePath(QStringLiteral("out.tr2"));
    QFile::remove(output);
    C_ListInserter().Insert(levelPath(dir), listPath, output);
    return 0;
}
