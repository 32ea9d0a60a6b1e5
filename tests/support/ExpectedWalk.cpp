#include "ExpectedWalk.h"

#include <QTest>

namespace {

TablePosition tableOf(const SyntheticLevel& level, SyntheticField field, qint64 offset, int recordSize)
{
    const qint64 number = level.count(field);
    return {offset, number, number * recordSize};
}

void compareTable(const TablePosition& actual, const TablePosition& expected, const char* name)
{
    if (actual == expected)
        return;
    QFAIL(qPrintable(QStringLiteral("%1: walked {offset %2, number %3, size %4}, expected {%5, %6, %7}")
                         .arg(QLatin1String(name))
                         .arg(actual.offset).arg(actual.number).arg(actual.size)
                         .arg(expected.offset).arg(expected.number).arg(expected.size)));
}

} // namespace

ExpectedWalk ExpectedWalk::of(const SyntheticLevel& level)
{
    const SyntheticLayout layout = level.layout();
    ExpectedWalk expected;
    expected.objectTexture = tableOf(level, SyntheticField::ObjectTextures, layout.objectTexture(), ObjectTexture::Size);
    expected.spriteTexture = tableOf(level, SyntheticField::SpriteTextures, layout.spriteTexture(), SpriteTexture::Size);
    expected.spriteSequence = tableOf(level, SyntheticField::SpriteSequences, layout.spriteSequence(), SpriteSequence::Size);
    expected.animatedTexture = tableOf(level, SyntheticField::AnimatedTextures, layout.animatedTexture(), 2);
    expected.cameras = layout.cameras();
    expected.items = layout.items();
    expected.complete = true;
    return expected;
}

ExpectedWalk ExpectedWalk::shiftedBy(qint64 bytes) const
{
    ExpectedWalk moved = *this;
    for (TablePosition* table : {&moved.objectTexture, &moved.spriteTexture, &moved.spriteSequence,
                                 &moved.animatedTexture})
        table->offset += bytes;
    moved.cameras += bytes;
    moved.items += bytes;
    return moved;
}

void ExpectedWalk::verify(const C_LevelInfo& info) const
{
    compareTable({info.OffsetObjectTexture(), info.NumberObjectTexture(), info.SizeObjectTexture()},
                 objectTexture, "object textures");
    compareTable({info.OffsetSpriteTexture(), info.NumberSpriteTexture(), info.SizeSpriteTexture()},
                 spriteTexture, "sprite textures");
    compareTable({info.OffsetSpriteSequence(), info.NumberSpriteSequence(), info.SizeSpriteSequence()},
                 spriteSequence, "sprite sequences");
    compareTable({info.OffsetAnimatedTexture(), info.NumberAnimatedTexture(), info.SizeAnimatedTexture()},
                 animatedTexture, "animated textures");
    QCOMPARE(info.OffsetCameras(), cameras);
    QCOMPARE(info.OffsetItems(), items);
    QCOMPARE(info.IsWalkComplete(), complete);
}
