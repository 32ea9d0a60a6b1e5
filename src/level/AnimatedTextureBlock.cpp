#include "level/AnimatedTextureBlock.h"

#include "level/ReadTableRecords.h"

#include <QtEndian>

namespace {

// One word of the block, read like the other tables' records.
struct BlockWord
{
    static constexpr int Size = 2;
    quint16 value;
    static BlockWord fromBytes(const char* data) { return {qFromLittleEndian<quint16>(data)}; }
};

} // namespace

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

QList<quint16> AnimatedTextureBlock::wordsOfTable(BinaryReader& file, const TablePosition& table)
{
    const QList<BlockWord> read = ReadTableRecords<BlockWord>(file, table);
    QList<quint16> words;
    words.reserve(read.size());
    for (const BlockWord& word : read)
        words.append(word.value);
    return words;
}

AnimatedTextureBlock AnimatedTextureBlock::fromTable(BinaryReader& file, const TablePosition& table)
{
    const QList<quint16> words = wordsOfTable(file, table);
    return fromWords(words.constData(), words.size());
}

QString AnimatedTextureBlock::damage(const QList<quint16>& words)
{
    if (words.isEmpty())
        return {};
    const int rangeCount = words[0];
    qsizetype at = 1;
    for (int r = 0; r < rangeCount; ++r) {
        if (at >= words.size()) {
            return QStringLiteral("its animated texture block claims %1 ranges, but its %2 words end after %3")
                .arg(rangeCount)
                .arg(words.size())
                .arg(r);
        }
        const qsizetype length = qsizetype(words[at++]) + 1;
        if (length > words.size() - at) {
            return QStringLiteral("animation range %1 claims %2 textures, but its block has only %3 words left")
                .arg(r)
                .arg(length)
                .arg(words.size() - at);
        }
        at += length;
    }
    return {};
}
