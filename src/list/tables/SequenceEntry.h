#pragma once

#include "level/SpriteSequence.h"

// One sprite sequence of an open list: its record and its number (text the
// number in five digits, key "S" and that text).
struct SequenceEntry
{
    SpriteSequence record;
    qint32 number = 0;

    friend bool operator==(const SequenceEntry&, const SequenceEntry&) = default;
};
