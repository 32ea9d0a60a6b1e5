#include "list/m_TextureList.h"

#include "list/TableRecords.h"

namespace m_TextureList {

void FillObjectTextures(BinaryReader& file, const TablePosition& table, RecordTable<TextureEntry>& textures)
{
    FillNumberedEntries(file, table, textures);
}

void FillAnimations(const AnimatedTextureBlock& block, ListTables& tables)
{
    tables.AssignRanges(block);
}

void FillAnimations(BinaryReader& file, const TablePosition& table, ListTables& tables)
{
    FillAnimations(AnimatedTextureBlock::fromTable(file, table), tables);
}

} // namespace m_TextureList
