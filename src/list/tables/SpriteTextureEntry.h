#pragma once

#include "level/SpriteTexture.h"

// One sprite texture of an open list: its record and the number its row is
// known by (key "S" and the number, text the number zero-padded to width
// digits). As with textures, a deletion leaves the other rows' numbers alone.
struct SpriteTextureEntry
{
    SpriteTexture record;
    qint32 number = 0;
    qint16 width = 0;

    friend bool operator==(const SpriteTextureEntry&, const SpriteTextureEntry&) = default;
};
