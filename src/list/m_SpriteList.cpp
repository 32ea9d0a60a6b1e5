#include "list/m_SpriteList.h"

#include "list/TableRecords.h"

namespace m_SpriteList {

void FillSprites(BinaryReader& file, const TablePosition& table, RecordTable<SpriteTextureEntry>& sprites)
{
    FillNumberedEntries(file, table, sprites);
}

void FillSequences(BinaryReader& file, const TablePosition& table, RecordTable<SequenceEntry>& sequences)
{
    const QList<SpriteSequence> records = ReadTableRecords<SpriteSequence>(file, table);
    std::vector<SequenceEntry> filled;
    filled.reserve(size_t(records.size()));
    for (qsizetype i = 0; i < records.size(); ++i)
        filled.push_back({records[i], qint32(i)});
    sequences.assign(std::move(filled));
}

} // namespace m_SpriteList
