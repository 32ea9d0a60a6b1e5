#pragma once

#include <QString>

class QTemporaryDir;

// The large list the list figures work on: 20,000 object textures, 500
// animation ranges of 4, 2,000 sprite textures and 200 sequences, extracted
// from a synthetic TR2 level of the given size the way New List makes a list.
class BenchList
{
public:
    static constexpr int ObjectTextures = 20000;
    static constexpr int Ranges = 500;
    static constexpr int RangeLength = 4;
    static constexpr int Sprites = 2000;
    static constexpr int Sequences = 200;

    // How many rows each table of a list gets.
    struct Shape
    {
        int objectTextures;
        int ranges;
        int rangeLength;
        int sprites;
        int sequences;
    };
    static constexpr Shape Large{ObjectTextures, Ranges, RangeLength, Sprites, Sequences};
    // The most a level can address (a face holds a texture number in 15
    // bits): 32,768 object textures, 1,000 ranges, 4,096 sprites, 500 sequences.
    static constexpr Shape Max{32768, 1000, 4, 4096, 500};

    // Writes level.tr2, tiles.bmp and list.trt into dir; false with a message
    // on stderr when it cannot.
    static bool write(const QTemporaryDir& dir, qint64 levelBytes, const char* figure, const Shape& shape = Large);

    static QString levelPath(const QTemporaryDir& dir);
    static QString listPath(const QTemporaryDir& dir);
};
