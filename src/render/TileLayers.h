#pragma once

#include <QImage>

#include <vector>

// A texture bitmap as the layers of the tile array the renderer samples: one
// 256 x 256 layer per tile, 16 bits a texel (one bit of opacity and five of
// each colour, the level's own depth), so the tiles take no more memory
// than the bitmap does. The see-through key (magenta, or alpha below 128)
// becomes a transparent texel; a last tile cut short is filled with them.
class TileLayers
{
public:
    static constexpr int TileSize = 256;

    explicit TileLayers(const QImage& bitmap);

    int count() const { return m_count; }
    const std::vector<quint16>& texels() const { return m_texels; } // A1R5G5B5, layer after layer
    qint64 bytes() const { return qint64(m_texels.size()) * 2; }

    static quint16 texel(QRgb pixel);

private:
    int m_count = 0;
    std::vector<quint16> m_texels;
};
