#include "list/ListViewSet.h"

#include "list/C_ListInfo.h"
#include "level/ObjectTexture.h"
#include "level/SpriteSequence.h"
#include "level/SpriteTexture.h"

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

qint16 ListViewSet::initList(C_ListInfo& list, const QString& listPath, const QString& levelPath,
                             const QString& bitmapPath)
{
    return list.Init(listPath, levelPath, bitmapPath, &lsvTextures, &lsvAnims, &lsvAnimDetails, &lsvSprites,
                     &lsvSequences, &lsvSequenceDetails);
}

qint16 ListViewSet::openList(C_ListInfo& list, const QString& listPath)
{
    const qint16 status = initList(list, listPath);
    return status == C_ListInfo::Success ? list.GetAllListContents() : status;
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
