#pragma once

#include "common/ListViewModel.h"
#include "level/SpriteSequence.h"
#include "level/SpriteTexture.h"
#include "level/TablePosition.h"

class BinaryReader;

// Sprite textures and sprite sequences, between the tables of a level or
// list file and the rows of their list views.
namespace m_SpriteList {

// Empties lsvSprites, then adds one row per record: text the index padded to
// the digits of the table's number, key "S" and the index, sub-items the
// record's fields in record order.
void FillSprites(BinaryReader& file, const TablePosition& table, ListViewModel& lsvSprites);

ListViewModel::Row RowOfSprite(const SpriteTexture& record, qint64 index, int width);
SpriteTexture SpriteOfRow(const ListViewModel& lsvSprites, int row);

// Empties both views, then adds to each one row per sequence: text the
// index with at least five digits, key "S" and that text, then "Number"
// (shown positive), "First" and "ObjectID".
void FillSequences(BinaryReader& file, const TablePosition& table, ListViewModel& lsvSequences,
                   ListViewModel& lsvSequenceDetails);

ListViewModel::Row RowOfSequence(const SpriteSequence& record, qint64 index);
SpriteSequence SequenceOfRow(const ListViewModel& lsvSequences, int row);

QString SequenceNumberText(qint64 index); // "00000", "00003"

} // namespace m_SpriteList
