#pragma once

#include "level/ObjectTexture.h"

// One object texture of an open list: its record, and the number its row
// is known by (key "T" and the number, text the number zero-padded to width
// digits). Rows keep their numbers when another row is deleted, so the
// number is the row's name, not its place; the place is what the list saves.
struct TextureEntry
{
    ObjectTexture record;
    qint32 number = 0;
    qint16 width = 0;

    friend bool operator==(const TextureEntry&, const TextureEntry&) = default;
};
