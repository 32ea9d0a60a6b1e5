#pragma once

#include "common/FileError.h"
#include "level/AnimatedTextureBlock.h"
#include "demo/DemoAtlas.h"
#include "level/ObjectTexture.h"
#include "level/SpriteSequence.h"
#include "level/SpriteTexture.h"
#include "synthetic/SyntheticLevel.h"

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QString>
#include <QStringList>

// The level a new user opens first: a texture bitmap of four tiles drawn by
// code (wall and floor textures; animated water and lava and a few
// triangles; sprites), the four texture tables that describe exactly what it
// shows, and a small TR2 level that carries them. Every run makes the same
// bytes.
class DemoLevel
{
public:
    static constexpr int TileCount = 4;

    DemoLevel();

    // 256 x 1024, the tiles stacked downwards; DemoColor::SeeThrough where
    // nothing is drawn.
    const QImage& bitmap() const { return m_atlas.image(); }
    const QList<ObjectTexture>& objectTextures() const { return m_atlas.objectTextures(); }
    const AnimatedTextureBlock& animatedTextures() const { return m_atlas.animatedTextures(); }
    const QList<SpriteTexture>& spriteTextures() const { return m_atlas.spriteTextures(); }
    const QList<SpriteSequence>& spriteSequences() const { return m_atlas.spriteSequences(); }

    // The bitmap as the level's 16-bit tiles.
    QByteArray tiles16() const;
    SyntheticLevel level() const;

    // The absolute paths of the three files inside dir.
    static QString levelPath(const QString& dir);
    static QString bitmapPath(const QString& dir);
    static QString listPath(const QString& dir);
    static QStringList paths(const QString& dir);

    // Creates dir if needed and writes the level, the bitmap and the list
    // extracted from that level into it. On failure error holds the cause
    // and file the path it is about.
    static bool writeInto(const QString& dir, FileError* error = nullptr);

private:
    void drawWallTile();
    void drawAnimationTile();
    void drawSpriteTiles();
    bool writeBitmap(const QString& path, FileError* error) const;

    DemoAtlas m_atlas;
};
