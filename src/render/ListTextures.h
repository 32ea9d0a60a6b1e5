#pragma once

#include "level/AnimatedTextureBlock.h"
#include "level/ObjectTexture.h"

#include <QList>

class ListDocument;

// The object textures and animated ranges the rooms are drawn with, read
// from the open list as it stands now. Row n of the texture list is what a
// face's texture n will be once the list is saved into the level, so rows
// are taken in their order. This is the one place the drawing reads the
// list's rows.
class ListTextures
{
public:
    QList<ObjectTexture> textures;
    QList<AnimatedTextureBlock::Range> ranges;

    static ListTextures of(const ListDocument& document);

    // Which texture each texture shows at frame (the preview's frame count):
    // every texture of a range moves on by one a frame, others show
    // themselves.
    QList<int> shownAt(qint64 frame) const;
};
