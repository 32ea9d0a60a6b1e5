#pragma once

#include "level/AnimatedTextureBlock.h"
#include "common/ListViewModel.h"
#include "level/ObjectTexture.h"
#include "level/TablePosition.h"

class BinaryReader;

// Object textures and the animation ranges built from them, between the
// tables of a level or list file and the rows of their list views.
namespace m_TextureList {

// Empties lsvTexture, then adds one row per object texture record of the
// table at table.offset: text the index zero-padded to as many digits as the
// table's number has ("000".."119" for 120), key "T" and the index, sub-items
// the record's list columns. Only records wholly present in the file count.
void FillObjectTextures(BinaryReader& file, const TablePosition& table, ListViewModel& lsvTexture);

ListViewModel::Row RowOfObjectTexture(const ObjectTexture& record, qint64 index, int width);
ObjectTexture ObjectTextureOfRow(const ListViewModel& lsvTexture, int row);

// Empties both views, then adds per range a row of lsvAnims (text NN, the
// range number with at least two digits; key "A" NN; "Number", "First") and
// per texture a row of lsvAnimDetails (text NN-i, key "A" NN i, "Texture #").
void FillAnimations(BinaryReader& file, const TablePosition& table, ListViewModel& lsvAnims,
                    ListViewModel& lsvAnimDetails);
void FillAnimations(const AnimatedTextureBlock& block, ListViewModel& lsvAnims,
                    ListViewModel& lsvAnimDetails);

QString AnimationNumberText(qint64 range); // "00", "07", "123"

// Per row of lsvAnims, the rows of lsvAnimDetails that hold its textures,
// in their places: the detail rows whose text is the range's text, "-" and
// a place, whatever the "Number" and "First" cells say (an edit leaves them
// as they were while other ranges exist). A range with no such rows takes
// "Number" rows from the first detail row holding its "First"; a texture
// past the last detail row is -1 there. Saving, the page's preview and the
// renumbering after a deleted texture all read a range through this.
QList<QList<int>> RangeDetailRows(const ListViewModel& lsvAnims, const ListViewModel& lsvAnimDetails);

// The block's words from the views: the range count, then per range its
// texture count minus one and its textures (RangeDetailRows; -1 is written
// as 0).
QList<quint16> AnimatedTextureWords(const ListViewModel& lsvAnims, const ListViewModel& lsvAnimDetails);

} // namespace m_TextureList
