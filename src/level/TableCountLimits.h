#pragma once

#include <QString>

// The most rows a table can have and still be addressed by a level. A face
// holds its object texture's number in 15 bits; sprite textures and
// sequences are numbered in 16. A list or a level that claims more is
// refused before any row is built, so memory follows what a level can use,
// not what a hostile file claims.
class TableCountLimits
{
public:
    static constexpr qint64 ObjectTextures = 32768;
    static constexpr qint64 SpriteTextures = 65536;
    static constexpr qint64 SpriteSequences = 65536;

    struct Claims
    {
        qint64 objectTextures = 0;
        qint64 spriteTextures = 0;
        qint64 spriteSequences = 0;
        qint64 animationWords = 0;
        // What the file holds from the first animation word on.
        qint64 animationBytesPresent = 0;
    };

    // Empty when every count is within its limit; otherwise which count is
    // not and what the limit is, as one clause ("it claims 40000 object
    // textures, more than the 32768 a level can address").
    static QString excess(const Claims& claims);
};
