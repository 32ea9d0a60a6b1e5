#pragma once

#include "list/tables/NumberedRecordFormat.h"
#include "list/tables/SpriteTextureEntry.h"

// Rows of sprite textures: "S3", "03", "Tile#" .. "Bottom".
using SpriteRowFormat = NumberedRecordFormat<SpriteTextureEntry, u'S'>;
