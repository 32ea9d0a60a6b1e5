#include "AnimatedTextureBlock.h"

AnimatedTextureBlock AnimatedTextureBlock::fromWords(const quint16* words, qsizetype count)
{
    AnimatedTextureBlock block;
    if (count <= 0)
        return block;
    const int rangeCount = words[0];
    qsizetype at = 1;
    for (int r = 0; r < rangeCount && at < count; ++r) {
        const qsizetype length = qsizetype(words[at++]) + 1;
        const qsizetype present = qMin(length, count - at);
        block.ranges.append(Range(words + at, words + at + present));
        at += present;
    }
    return block;
}

QList<quint16> AnimatedTextureBlock::toWords() const
{
    QList<quint16> words;
    words.append(static_cast<quint16>(ranges.size()));
    for (const Range& range : ranges) {
        words.append(static_cast<quint16>(range.size() - 1));
        words.append(range);
    }
    return words;
}
