#pragma once

#include "list/tables/NumberedRecordFormat.h"
#include "list/tables/TextureEntry.h"

// Rows of object textures: "T12", "0012", "Tile#" .. "Y4Hi", a corner kept
// past its tile's edge showing what was stored.
using TextureRowFormat = NumberedRecordFormat<TextureEntry, u'T'>;
