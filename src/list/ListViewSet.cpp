#include "ListViewSet.h"

#include "ObjectTexture.h"
#include "SpriteSequence.h"
#include "SpriteTexture.h"

ListViewSet::ListViewSet(QObject* parent)
    : QObject(parent)
    , lsvTextures(ObjectTexture::headers())
    , lsvAnims(animColumns())
    , lsvAnimDetails(animDetailColumns())
    , lsvSprites(SpriteTexture::headers())
    , lsvSequences(SpriteSequence::headers())
    , lsvSequenceDetails(SpriteSequence::headers())
{
}

void ListViewSet::clear()
{
    for (ListViewModel* view : all())
        view->clear();
}

QList<ListViewModel*> ListViewSet::all()
{
    return {&lsvTextures, &lsvAnims, &lsvAnimDetails, &lsvSprites, &lsvSequences, &lsvSequenceDetails};
}

QStringList ListViewSet::animColumns()
{
    return {QStringLiteral("No"), QStringLiteral("Number"), QStringLiteral("First")};
}

QStringList ListViewSet::animDetailColumns()
{
    return {QStringLiteral("No"), QStringLiteral("Texture #")};
}
