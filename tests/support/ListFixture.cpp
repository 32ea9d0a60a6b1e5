#include "ListFixture.h"

#include "ListViewSet.h"
#include "m_SpriteList.h"
#include "m_TextureList.h"

#include <QFile>
#include <QRandomGenerator>

#include <vector>

ListFixture ListFixture::random(int textures, int ranges, int rangeLength, int spriteCount, int sequenceCount,
                                quint32 seed)
{
    QRandomGenerator random(seed);
    ListFixture fixture;
    for (int i = 0; i < textures; ++i) {
        char bytes[ObjectTexture::Size];
        for (char& b : bytes)
            b = char(random.bounded(256));
        fixture.objectTextures.append(ObjectTexture::fromBytes(bytes));
    }
    for (int r = 0; r < ranges; ++r) {
        AnimatedTextureBlock::Range range;
        for (int i = 0; i < rangeLength; ++i)
            range.append(quint16(r * rangeLength + i));
        fixture.animations.ranges.append(range);
    }
    for (int i = 0; i < spriteCount; ++i) {
        char bytes[SpriteTexture::Size];
        for (char& b : bytes)
            b = char(random.bounded(256));
        fixture.sprites.append(SpriteTexture::fromBytes(bytes));
    }
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

QByteArray ListFixture::readFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

bool ListFixture::writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size();
}
