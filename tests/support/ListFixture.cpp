#include "support/ListFixture.h"

#include "list/C_ListInfo.h"
#include "list/ListViewSet.h"
#include "list/m_SpriteList.h"
#include "list/m_TextureList.h"

#include <QRandomGenerator>

#include <vector>

namespace {

template <typename Record>
QList<Record> randomRecords(QRandomGenerator& random, int n)
{
    QList<Record> records;
    char bytes[Record::Size];
    for (int i = 0; i < n; ++i) {
        for (char& b : bytes)
            b = char(random.bounded(256));
        records.append(Record::fromBytes(bytes));
    }
    return records;
}

} // namespace

ListFixture ListFixture::random(int textures, int ranges, int rangeLength, int spriteCount, int sequenceCount,
                                quint32 seed)
{
    QRandomGenerator random(seed);
    ListFixture fixture;
    fixture.objectTextures = randomRecords<ObjectTexture>(random, textures);
    for (int r = 0; r < ranges; ++r) {
        AnimatedTextureBlock::Range range;
        for (int i = 0; i < rangeLength; ++i)
            range.append(quint16(r * rangeLength + i));
        fixture.animations.ranges.append(range);
    }
    fixture.sprites = randomRecords<SpriteTexture>(random, spriteCount);
    for (int i = 0; i < sequenceCount; ++i) {
        SpriteSequence s;
        s.objectId = qint32(random.generate());
        s.setNumber(1 + int(random.bounded(20)));
        s.first = qint16(random.bounded(30000));
        fixture.sequences.append(s);
    }
    return fixture;
}

void ListFixture::fill(ListViewSet& views) const
{
    views.clear();
    const int textureWidth = int(QString::number(objectTextures.size()).size());
    std::vector<ListViewModel::Row> rows;
    for (qsizetype i = 0; i < objectTextures.size(); ++i)
        rows.push_back(m_TextureList::RowOfObjectTexture(objectTextures[i], i, textureWidth));
    views.lsvTextures.appendRows(std::move(rows));

    m_TextureList::FillAnimations(animations, views.lsvAnims, views.lsvAnimDetails);

    const int spriteWidth = int(QString::number(sprites.size()).size());
    rows.clear();
    for (qsizetype i = 0; i < sprites.size(); ++i)
        rows.push_back(m_SpriteList::RowOfSprite(sprites[i], i, spriteWidth));
    views.lsvSprites.appendRows(std::move(rows));

    rows.clear();
    for (qsizetype i = 0; i < sequences.size(); ++i)
        rows.push_back(m_SpriteList::RowOfSequence(sequences[i], i));
    std::vector<ListViewModel::Row> details = rows;
    views.lsvSequences.appendRows(std::move(rows));
    views.lsvSequenceDetails.appendRows(std::move(details));
}

qint16 ListFixture::write(ListViewSet& views, const QString& path, const QString& level, const QString& bitmap) const
{
    fill(views);
    C_ListInfo list;
    views.initList(list, path, level, bitmap);
    return list.PutAllListContents();
}

QList<QStringList> ListFixture::viewRows(ListViewSet& views)
{
    QList<QStringList> all;
    for (const ListViewModel* view : views.all()) {
        all.append({QStringLiteral("%1 rows").arg(view->count())});
        for (int i = 0; i < view->count(); ++i)
            all.append(QStringList{view->key(i), view->text(i)} + view->row(i).subItems);
    }
    return all;
}
