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

    // Writes level.tr2, tiles.bmp and list.trt into dir; false with a message
    // on stderr when it cannot.
    static bool write(const QTemporaryDir& dir, qint64 levelBytes, const char* figure);

    static QString levelPath(const QTemporaryDir& dir);
    static QString listPath(const QTemporaryDir& dir);
};
