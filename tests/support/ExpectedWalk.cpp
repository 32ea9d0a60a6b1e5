#include "support/ExpectedWalk.h"

#include <QTest>

ExpectedWalk ExpectedWalk::of(const SyntheticLevel& level)
{
    const SyntheticLayout layout = level.layout();
    const auto table = [&](SyntheticField field, int recordSize) {
        return TablePosition{layout.at(field), level.count(field), level.count(field) * recordSize};
    };
    return {table(SyntheticField::ObjectTextures, ObjectTexture::Size),
            table(SyntheticField::SpriteTextures, SpriteTexture::Size),
            table(SyntheticField::SpriteSequences, SpriteSequence::Size),
            table(SyntheticField::AnimatedTextures, 2),
            layout.cameras(),
            layout.items(),
            true};
}

ExpectedWalk ExpectedWalk::shiftedBy(qint64 bytes) const
{
    ExpectedWalk moved = *this;
    for (qint64* position : {&moved.objectTexture.offset, &moved.spriteTexture.offset, &moved.spriteSequence.offset,
                             &moved.animatedTexture.offset, &moved.cameras, &moved.items})
        *position += bytes;
    return moved;
}

QList<qint64> ExpectedWalk::positions() const
{
    QList<qint64> all;
    for (const TablePosition& table : {objectTexture, spriteTexture, spriteSequence, animatedTexture})
        all << table.offset << table.number << table.size;
    return all << cameras << items << complete;
}

QList<qint64> ExpectedWalk::walked(const C_LevelInfo& info)
{
    return {info.OffsetObjectTexture(), info.NumberObjectTexture(), info.SizeObjectTexture(),
            info.OffsetSpriteTexture(), info.NumberSpriteTexture(), info.SizeSpriteTexture(),
            info.OffsetSpriteSequence(), info.NumberSpriteSequence(), info.SizeSpriteSequence(),
            info.OffsetAnimatedTexture(), info.NumberAnimatedTexture(), info.SizeAnimatedTexture(),
            info.OffsetCameras(), info.OffsetItems(), info.IsWalkComplete()};
}

void ExpectedWalk::verify(const C_LevelInfo& info) const
{
    QCOMPARE(walked(info), positions());
}
