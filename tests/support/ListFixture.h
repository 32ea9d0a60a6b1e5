#pragma once

#include "AnimatedTextureBlock.h"
#include "ObjectTexture.h"
#include "SpriteSequence.h"
#include "SpriteTexture.h"

#include <QByteArray>
#include <QList>
#include <QString>

class ListViewSet;

// Texture tables made up for tests, and the views filled from them with the
// same row routines the list document uses.
struct ListFixture
{
    QList<ObjectTexture> objectTextures;
    AnimatedTextureBlock animations;
    QList<SpriteTexture> sprites;
    QList<SpriteSequence> sequences;

    // Records with every byte drawn from seed, so a field mapped to the wrong
    // column or offset shows up as a difference.
    static ListFixture random(int textures, int ranges, int rangeLength, int spriteCount, int sequenceCount,
                              quint32 seed);

    void fill(ListViewSet& views) const;

    static QByteArray readFile(const QString& path);
    static bool writeFile(const QString& path, const QByteArray& bytes);
};
