#include "list/ListViewSet.h"

#include "list/C_ListInfo.h"
#include "level/ObjectTexture.h"
#include "level/SpriteSequence.h"
#include "level/SpriteTexture.h"

ListViewSet::ListViewSet(QObject* parent)
    : ListViewSet(std::make_unique<ListTables>(), parent)
{
}

ListViewSet::ListViewSet(std::unique_ptr<ListTables> own, QObject* parent)
    : ListViewSet(*own, parent)
{
    // The records stay where they are; the set only takes them over.
    m_ownTables = std::move(own);
}

ListViewSet::ListViewSet(ListTables& tables, QObject* parent)
    : QObject(parent)
    , m_tables(tables)
    , lsvTextures(m_tables.textures, ObjectTexture::headers())
    , lsvAnims(m_tables.ranges, animColumns())
    , lsvAnimDetails(m_tables.rangeTextures, animDetailColumns())
    , lsvSprites(m_tables.sprites, SpriteTexture::headers())
    , lsvSequences(m_tables.sequences, SpriteSequence::headers())
    , lsvSequenceDetails(m_tables.sequences, SpriteSequence::headers())
{
}

ListViewSet::~ListViewSet() = default;

void ListViewSet::clear()
{
    m_tables.clear();
}

qint16 ListViewSet::initList(C_ListInfo& list, const QString& listPath, const QString& levelPath,
                             const QString& bitmapPath)
{
    return list.Init(listPath, levelPath, bitmapPath, &m_tables);
}

qint16 ListViewSet::openList(C_ListInfo& list, const QString& listPath)
{
    const qint16 status = initList(list, listPath);
    return status == C_ListInfo::Success ? list.GetAllListContents() : status;
}

QList<ListRows*> ListViewSet::all()
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
