#include "BenchList.h"

#include "list/LevelListExtractor.h"
#include "synthetic/SyntheticLevel.h"

#include <QTemporaryDir>

#include <cstdio>

namespace {

SyntheticLevel levelWithLargeTables(qint64 levelBytes, const BenchList::Shape& shape)
{
    SyntheticLevel level = SyntheticLevel::ofSize(LevelVersion::Game::TR2, levelBytes, 100);
    QList<ObjectTexture> textures(shape.objectTextures);
    for (int i = 0; i < textures.size(); ++i) {
        textures[i].setColumn(1, i % 16);
        textures[i].setColumn(3, i % 256);
        textures[i].setColumn(4, (i * 7) % 256);
    }
    AnimatedTextureBlock block;
    for (int r = 0; r < shape.ranges; ++r) {
        AnimatedTextureBlock::Range range;
        for (int i = 0; i < shape.rangeLength; ++i)
            range.append(quint16(r * shape.rangeLength + i));
        block.ranges.append(range);
    }
    QList<SpriteTexture> sprites(shape.sprites);
    for (int i = 0; i < sprites.size(); ++i)
        sprites[i].x = quint8(i);
    QList<SpriteSequence> sequences(shape.sequences);
    const int perSequence = shape.sprites / shape.sequences;
    for (int i = 0; i < sequences.size(); ++i) {
        sequences[i].objectId = 100 + i;
        sequences[i].setNumber(perSequence);
        sequences[i].first = qint16(i * perSequence);
    }
    level.setObjectTextures(textures);
    level.setAnimatedTextures(block);
    level.setSpriteTextures(sprites);
    level.setSpriteSequences(sequences);
    return level;
}

} // namespace

QString BenchList::levelPath(const QTemporaryDir& dir)
{
    return dir.filePath(QStringLiteral("level.tr2"));
}

QString BenchList::listPath(const QTemporaryDir& dir)
{
    return dir.filePath(QStringLiteral("list.trt"));
}

bool BenchList::write(const QTemporaryDir& dir, qint64 levelBytes, const char* figure, const Shape& shape)
{
    QString error;
    if (!dir.isValid() || !levelWithLargeTables(levelBytes, shape).writeTo(levelPath(dir), &error)) {
        std::fprintf(stderr, "%s: cannot write the level: %s\n", figure, qPrintable(error));
        return false;
    }
    const auto extracted =
        LevelListExtractor::Extract(levelPath(dir), dir.filePath(QStringLiteral("tiles.bmp")), listPath(dir));
    if (extracted.status != LevelListExtractor::Status::Done) {
        std::fprintf(stderr, "%s: cannot extract the list: %s\n", figure, qPrintable(extracted.error.text()));
        return false;
    }
    return true;
}
