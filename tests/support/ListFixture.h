#pragma once

#include "level/AnimatedTextureBlock.h"
#include "level/ObjectTexture.h"
#include "level/SpriteSequence.h"
#include "level/SpriteTexture.h"

#include <QList>
#include <QString>
#include <QStringList>

class C_ListInfo;
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

    // Fills views with these tables and saves them as a new list of level.
    qint16 write(ListViewSet& views, const QString& path, const QString& level,
                 const QString& bitmap = QStringLiteral("C:\\a.bmp")) const;

    // Every row of every view: its key, text and sub-items.
    static QList<QStringList> viewRows(ListViewSet& views);
};
