#pragma once

#include <QList>
#include <QtGlobal>

class BinaryReader;
struct TablePosition;

// The animated texture block: after its 32-bit word count, word 0 holds the
// number of ranges R; then, per range, its texture count minus one followed by
// that many object texture indices.
struct AnimatedTextureBlock
{
    using Range = QList<quint16>;
    QList<Range> ranges;

    // Reads the words that follow the count field. A block that claims more
    // than its words hold yields the ranges and textures actually present.
    static AnimatedTextureBlock fromWords(const quint16* words, qsizetype count);

    // The block a walk found in a file: the words lying inside the file.
    static AnimatedTextureBlock fromTable(BinaryReader& file, const TablePosition& table);
    static QList<quint16> wordsOfTable(BinaryReader& file, const TablePosition& table);

    // Why the words after the count field cannot be a block: ranges that
    // need more words than there are, a range longer than the words left.
    // Empty for a sound block, and for no words at all. Words left over
    // after the last range harm nothing and pass.
    static QString damage(const QList<quint16>& words);

    // R, then n - 1 and the n indices of every range.
    QList<quint16> toWords() const;

    friend bool operator==(const AnimatedTextureBlock&, const AnimatedTextureBlock&) = default;
};
