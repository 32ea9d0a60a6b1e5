#pragma once

#include <QRgb>

// The way back from what a bitmap shows to a level's 16-bit tile pixel:
// bit 15 opaque, then five bits each of red, green and blue. A colour the
// level can show comes back as the very word that shows it.
class TilePixelEncoder
{
public:
    // The colour a bitmap pixel stands for when it is see-through: magenta,
    // as the level's tiles bitmap shows a see-through pixel.
    static constexpr QRgb SeeThrough = 0xFFFF00FF;

    // The five-bit c whose widening (c << 3) | (c >> 2) lies nearest to v;
    // of two equally near, the smaller.
    static quint8 channel5(quint8 v);

    // The 16-bit word for a colour; SeeThrough gives the see-through word 0.
    static quint16 pixel16(QRgb colour);

    // What a bitmap pixel stands for: SeeThrough for magenta and, in a
    // bitmap with alpha, for any pixel less than half opaque; otherwise the
    // opaque colour.
    static QRgb shownColour(QRgb pixel, bool hasAlpha);
};
