#pragma once

#include "level/ObjectTexture.h"

#include <QList>
#include <QSet>

#include <vector>

// What the shaders know of each object texture, as a float table the vertex
// shader fetches from: per texture its four corners (pixel within the tile,
// the far side of a pixel when its sub-pixel byte is 128 or more, and the
// tile) and one texel of state (the attribute, whether it is highlighted,
// whether the list has it at all). Texture t's texels start at column
// (t % PerRow) * TexelsPerTexture of row t / PerRow.
class TextureTable
{
public:
    static constexpr int PerRow = 256;
    static constexpr int TexelsPerTexture = 5;
    static constexpr int Width = PerRow * TexelsPerTexture;
    static constexpr int BlendedAttribute = 2; // drawn added onto what lies behind

    // shownAs[t], where given, is the texture whose corners t shows now: an
    // animated range cycling. highlighted are texture numbers.
    static TextureTable build(const QList<ObjectTexture>& textures, const QList<int>& shownAs = {},
                              const QSet<int>& highlighted = {});

    int rows() const { return m_rows; }
    int textureCount() const { return m_count; }
    const std::vector<float>& texels() const { return m_texels; }

    // The pixel position of a corner's texel value: x, y, tile.
    static std::array<float, 3> cornerOf(const ObjectTexture& texture, int corner);

private:
    int m_rows = 1;
    int m_count = 0;
    std::vector<float> m_texels;
};
