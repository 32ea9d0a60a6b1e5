#pragma once

#include "level/AnimatedTextureBlock.h"
#include "level/TablePosition.h"
#include "list/tables/ListTables.h"

class BinaryReader;

// Object textures and the animation ranges built from them, from the tables
// of a level or list file into the records of an open list.
namespace m_TextureList {

// One entry per object texture record of the table at table.offset: number
// the index, text padded to as many digits as the table's number has.
void FillObjectTextures(BinaryReader& file, const TablePosition& table, RecordTable<TextureEntry>& textures);

// Per range r of the block, range number r with its textures at places 0 on.
void FillAnimations(BinaryReader& file, const TablePosition& table, ListTables& tables);
void FillAnimations(const AnimatedTextureBlock& block, ListTables& tables);

} // namespace m_TextureList
