#pragma once

#include <QList>
#include <QRgb>

// Turns one 256 x 256 tile of 16-bit level pixels into the rows of a 24-bit
// bitmap. A level pixel is a little-endian word: bit 15 opaque, then five
// bits each of red, green and blue. On x86 processors the vector units take
// eight (SSSE3), sixteen (AVX2) or sixty-four (AVX-512 with its byte
// permutes) pixels at once; elsewhere each pixel is one table look-up. Every
// way gives the same bytes.
class BitmapTileConverter
{
public:
    static constexpr int TileSide = 256;
    static constexpr int Tile16Size = TileSide * TileSide * 2;
    static constexpr int BitmapTileSize = TileSide * TileSide * 3;
    static constexpr QRgb SeeThrough = 0xFFFF00FF; // magenta

    enum class Way { Table, Ssse3, Avx2, Avx512 };

    // What a 16-bit pixel shows: each 5-bit channel c widened to
    // (c << 3) | (c >> 2); SeeThrough where bit 15 is clear.
    static QRgb colourOf(quint16 pixel);

    // Writes the tile's blue, green and red bytes to bitmapTile, its last
    // row first, as a bottom-up bitmap stores them. bitmapTile holds
    // BitmapTileSize bytes. Takes the fastest way this processor has.
    static void convertTile(const char* tile16, char* bitmapTile);

    // The same by a chosen way, which must be one of waysOfThisProcessor().
    static void convertTile(const char* tile16, char* bitmapTile, Way way);

    // Table first, fastest last.
    static QList<Way> waysOfThisProcessor();
};
