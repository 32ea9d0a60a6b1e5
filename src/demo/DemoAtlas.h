#pragma once

#include "level/AnimatedTextureBlock.h"
#include "level/ObjectTexture.h"
#include "level/SpriteSequence.h"
#include "level/SpriteTexture.h"

#include <QImage>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QRgb>

#include <array>
#include <functional>

// A texture bitmap being drawn together with the four tables that describe
// it: every texture or sprite is painted into its place and recorded at once,
// so the tables always match the pixels. The bitmap is 256 pixels wide with
// its 256 x 256 tiles stacked downwards; what is never painted stays
// DemoColor::SeeThrough.
class DemoAtlas
{
public:
    static constexpr int TileSize = 256;
    // World units per bitmap pixel when a sprite is stretched into a room.
    static constexpr int WorldUnitsPerPixel = 4;

    // The colour of a cell pixel (u, v), counted from the cell's top left.
    using Paint = std::function<QRgb(int u, int v)>;
    using FramePaint = std::function<QRgb(int frame, int u, int v)>;

    // Where a sprite stands in the world: on the floor below its centre, or
    // floating around it.
    enum class Stand { OnFloor, Floating };

    explicit DemoAtlas(int tiles);

    // Paints cell (tile coordinates) and records it as a four-cornered object
    // texture, transparent when the paint left see-through pixels in it.
    // Returns the texture's index.
    int addQuad(int tile, const QRect& cell, const Paint& paint);

    // Paints the pixels of the triangle with the given corners (clockwise,
    // tile coordinates, corners on the edges of the triangle's bounding box)
    // and records it as a three-cornered object texture, transparent when the
    // paint left see-through pixels in it. Paint gets pixels relative to the
    // bounding box. Returns the texture's index.
    int addTriangle(int tile, const std::array<QPoint, 3>& corners, const Paint& paint);

    // One range the game cycles through, in the order given.
    void addAnimationRange(const QList<int>& textures);

    // Paints frame i into cells[i] (tile coordinates, all of one size) and
    // records a sprite texture per frame and the sequence that groups them.
    // All frames get the same box, the smallest that holds every frame's
    // drawing, so the animation does not jitter.
    void addSpriteSequence(qint32 objectId, int tile, const QList<QRect>& cells, const FramePaint& paint,
                           Stand stand);
    void addSprite(qint32 objectId, int tile, const QRect& cell, const Paint& paint, Stand stand);

    const QImage& image() const { return m_image; }
    const QList<ObjectTexture>& objectTextures() const { return m_objectTextures; }
    const AnimatedTextureBlock& animatedTextures() const { return m_animatedTextures; }
    const QList<SpriteTexture>& spriteTextures() const { return m_spriteTextures; }
    const QList<SpriteSequence>& spriteSequences() const { return m_spriteSequences; }

private:
    QRect onBitmap(int tile, const QRect& cell) const;
    bool paintCell(int tile, const QRect& cell, const Paint& paint);
    QRect drawnBox(int tile, const QRect& cell) const;
    SpriteTexture spriteRecord(int tile, const QRect& box, Stand stand) const;

    QImage m_image;
    QList<ObjectTexture> m_objectTextures;
    AnimatedTextureBlock m_animatedTextures;
    QList<SpriteTexture> m_spriteTextures;
    QList<SpriteSequence> m_spriteSequences;
};
