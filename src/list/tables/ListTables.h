#pragma once

#include "list/tables/RangeEntry.h"
#include "list/tables/RangeTextureEntry.h"
#include "list/tables/RecordTable.h"
#include "list/tables/SequenceEntry.h"
#include "list/tables/SpriteTextureEntry.h"
#include "list/tables/TextureEntry.h"

#include <QList>

class AnimatedTextureBlock;

// The tables of an open list as records: object textures, sprite textures,
// sprite sequences, and the animated texture ranges with their textures.
// The list document owns them; the list file reader fills them, the writer
// and the level inserter read them, and the list views show them.
class ListTables
{
public:
    RecordTable<TextureEntry> textures;
    RecordTable<RangeEntry> ranges;
    RecordTable<RangeTextureEntry> rangeTextures;
    RecordTable<SpriteTextureEntry> sprites;
    RecordTable<SequenceEntry> sequences;

    void clear();

    // Per range, the rows of rangeTextures that hold its textures, ordered
    // by their places. A range with no rows of its own takes "Number" rows
    // from the first row holding its "First" (at least one row; a texture
    // past the last row is -1). Saving, previews and the renumbering after
    // a deleted texture all read a range through this.
    QList<QList<int>> RangeTextureRows() const;
    QList<int> RangeTextureRows(int rangeRow) const;
    // The textures of range row rangeRow in the order the list saves them
    // (a texture past the rows is 0).
    QList<quint16> TexturesOfRange(int rangeRow) const;
    // Every range's textures so, worked out in one pass.
    QList<QList<quint16>> TexturesOfRanges() const;

    // The block's words: the range count, then per range its texture count
    // less one and its textures (at most 65536 a range).
    QList<quint16> AnimatedTextureWords() const;

    // Fills the ranges from a block: range r numbered r, its textures at
    // places 0 onwards.
    void AssignRanges(const AnimatedTextureBlock& block);

private:
    // The textures the rows of rangeTextures hold, -1 as 0.
    QList<quint16> TexturesAt(const QList<int>& rows) const;
};
