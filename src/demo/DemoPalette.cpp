#include "demo/DemoPalette.h"

#include "level/BitmapTileConverter.h"
#include "level/PaletteNearestIndex.h"

#include <QtEndian>

namespace {

constexpr int Reds = 6;
constexpr int Greens = 7;
constexpr int Blues = 6;
constexpr int Greys[] = {16, 32, 48};
constexpr int Top = 63; // the brightest six-bit value

void put(QByteArray& palette, int index, int red, int green, int blue)
{
    palette[index * 3] = char(red);
    palette[index * 3 + 1] = char(green);
    palette[index * 3 + 2] = char(blue);
}

} // namespace

QByteArray DemoPalette::palette()
{
    QByteArray palette(PaletteNearestIndex::PaletteSize, '\0');
    int index = 1;
    for (int r = 0; r < Reds; ++r)
        for (int g = 0; g < Greens; ++g)
            for (int b = 0; b < Blues; ++b)
                put(palette, index++, r * Top / (Reds - 1), g * Top / (Greens - 1), b * Top / (Blues - 1));
    for (int grey : Greys)
        put(palette, index++, grey, grey, grey);
    return palette;
}

QByteArray DemoPalette::tiles8(const QByteArray& tiles16, const QByteArray& palette)
{
    PaletteNearestIndex nearest(palette);
    QByteArray tiles(tiles16.size() / 2, '\0');
    for (qsizetype i = 0; i < tiles.size(); ++i) {
        const quint16 word = qFromLittleEndian<quint16>(tiles16.constData() + i * 2);
        if (word & 0x8000)
            tiles[i] = char(nearest.nearest(BitmapTileConverter::colourOf(word)));
    }
    return tiles;
}
