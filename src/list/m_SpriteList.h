#pragma once

#include "level/TablePosition.h"
#include "list/tables/ListTables.h"

class BinaryReader;

// Sprite textures and sprite sequences, from the tables of a level or list
// file into the records of an open list.
namespace m_SpriteList {

// One entry per record: number the index, text padded to the digits of the
// table's number.
void FillSprites(BinaryReader& file, const TablePosition& table, RecordTable<SpriteTextureEntry>& sprites);

// One entry per sequence, numbered by its index.
void FillSequences(BinaryReader& file, const TablePosition& table, RecordTable<SequenceEntry>& sequences);

} // namespace m_SpriteList
