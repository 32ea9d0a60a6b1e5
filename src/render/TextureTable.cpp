#include "render/TextureTable.h"

namespace {

float edge(int pixel, int subPixel)
{
    return float(pixel + (subPixel >= 128 ? 1 : 0));
}

} // namespace

std::array<float, 3> TextureTable::cornerOf(const ObjectTexture& texture, int corner)
{
    return {edge(texture.column(ObjectTexture::XColumn(corner)), texture.column(ObjectTexture::XHiColumn(corner))),
            edge(texture.column(ObjectTexture::YColumn(corner)), texture.column(ObjectTexture::YHiColumn(corner))),
            float(texture.tile() & 0x7FFF)};
}

TextureTable TextureTable::build(const QList<ObjectTexture>& textures, const QList<int>& shownAs,
                                 const QSet<int>& highlighted)
{
    TextureTable table;
    table.m_count = int(textures.size());
    table.m_rows = qMax(1, (table.m_count + PerRow - 1) / PerRow);
    table.m_texels.assign(size_t(table.m_rows) * Width * 4, 0.0f);
    for (int t = 0; t < table.m_count; ++t) {
        const int shown = t < shownAs.size() && shownAs[t] >= 0 && shownAs[t] < table.m_count ? shownAs[t] : t;
        const ObjectTexture& record = textures[shown];
        float* texel = table.m_texels.data() + (size_t(t / PerRow) * Width + size_t(t % PerRow) * TexelsPerTexture) * 4;
        for (int c = 0; c < 4; ++c) {
            const auto [x, y, tile] = cornerOf(record, c);
            texel[c * 4 + 0] = x;
            texel[c * 4 + 1] = y;
            texel[c * 4 + 2] = tile;
        }
        float* state = texel + 16;
        state[0] = float(textures[t].attribute());
        state[1] = highlighted.contains(t) ? 1.0f : 0.0f;
        state[2] = 1.0f;
    }
    return table;
}
