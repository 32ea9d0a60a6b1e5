#include "level/TilePixelEncoder.h"

#include <array>

namespace {

constexpr int widen(int c)
{
    return (c << 3) | (c >> 2);
}

// The widenings climb by 8 or 9, so the nearest five-bit value of every
// eight-bit one is worth a table of 256 bytes.
constexpr std::array<quint8, 256> nearestChannel = [] {
    std::array<quint8, 256> table{};
    for (int v = 0; v < 256; ++v) {
        int best = 0;
        for (int c = 1; c < 32; ++c) {
            const int distance = widen(c) > v ? widen(c) - v : v - widen(c);
            const int bestDistance = widen(best) > v ? widen(best) - v : v - widen(best);
            if (distance < bestDistance)
                best = c;
        }
        table[size_t(v)] = quint8(best);
    }
    return table;
}();

constexpr int OpaqueAlpha = 128;

} // namespace

quint8 TilePixelEncoder::channel5(quint8 v)
{
    return nearestChannel[v];
}

quint16 TilePixelEncoder::pixel16(QRgb colour)
{
    if (colour == SeeThrough)
        return 0;
    return quint16(0x8000 | channel5(quint8(qRed(colour))) << 10 | channel5(quint8(qGreen(colour))) << 5
                   | channel5(quint8(qBlue(colour))));
}

QRgb TilePixelEncoder::shownColour(QRgb pixel, bool hasAlpha)
{
    if (hasAlpha && qAlpha(pixel) < OpaqueAlpha)
        return SeeThrough;
    return pixel | 0xFF000000;
}
