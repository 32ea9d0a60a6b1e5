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

namespace {

template <class Entry, class Record>
std::vector<Entry> NumberedEntries(const QList<Record>& records)
{
    const auto width = qint16(QString::number(records.size()).size());
    std::vector<Entry> entries;
    for (qsizetype i = 0; i < records.size(); ++i)
        entries.push_back(Entry{records[i], qint32(i), width});
    return entries;
}

} // namespace

void ListFixture::fill(ListViewSet& views) const
{
    ListTables& tables = views.tables();
    tables.clear();
    tables.textures.assign(NumberedEntries<TextureEntry>(objectTextures));
    m_TextureList::FillAnimations(animations, tables);
    tables.sprites.assign(NumberedEntries<SpriteTextureEntry>(sprites));
    std::vector<SequenceEntry> numbered;
    for (qsizetype i = 0; i < sequences.size(); ++i)
        numbered.push_back({sequences[i], qint32(i)});
    tables.sequences.assign(std::move(numbered));
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
    for (const ListRows* view : views.all()) {
        all.append({QStringLiteral("%1 rows").arg(view->count())});
        for (int i = 0; i < view->count(); ++i)
            all.append(QStringList{view->key(i), view->text(i)} + view->row(i).subItems);
    }
    return all;
}
