#pragma once

#include "list/tables/NumberedRecordFormat.h"
#include "list/tables/TextureEntry.h"

// Rows of object textures: "T12", "0012", "Tile#" .. "Y4Hi", a corner kept
// at a tile's far edge showing 256.
struct TextureRowFormat : NumberedRecordFormat<TextureEntry, u'T'>
{
    static qint64 Number(const Entry& e, int column)
    {
        return column >= 1 && column <= ObjectTexture::ColumnCount ? e.column(column) : 0;
    }
    static QString Cell(const Entry& e, int column)
    {
        if (column == 0)
            return NumberText::padded(e.number, e.width);
        return column <= ObjectTexture::ColumnCount ? QString::number(Number(e, column)) : QString();
    }
};
