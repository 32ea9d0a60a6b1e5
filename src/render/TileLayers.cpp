#include "render/TileLayers.h"

#include "level/TilePixelEncoder.h"

TileLayers::TileLayers(const QImage& bitmap)
{
    m_count = (bitmap.height() + TileSize - 1) / TileSize;
    m_texels.assign(size_t(m_count) * TileSize * TileSize, 0);
    const QImage image = bitmap.convertToFormat(QImage::Format_ARGB32);
    const int width = qMin(image.width(), TileSize);
    for (int y = 0; y < image.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        quint16* out = m_texels.data() + size_t(y) * TileSize;
        for (int x = 0; x < width; ++x)
            out[x] = texel(line[x]);
    }
}

quint16 TileLayers::texel(QRgb pixel)
{
    // The same see-through rule as the level's own tiles take.
    if (TilePixelEncoder::shownColour(pixel, true) == TilePixelEncoder::SeeThrough)
        return 0;
    return quint16(0x8000 | (qRed(pixel) >> 3) << 10 | (qGreen(pixel) >> 3) << 5 | (qBlue(pixel) >> 3));
}
