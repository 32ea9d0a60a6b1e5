#include "list/SpriteTextureRow.h"

#include "list/rows/ListRows.h"
#include "list/TextureGeometry.h"

namespace {

int Cell(const ListRows& sprites, int row, int column, int lowest, int highest)
{
    return int(qBound(qint64(lowest), sprites.subItemNumber(row, column), qint64(highest)));
}

} // namespace

SpriteTextureRow SpriteTextureRow::Of(const SpriteTexture& record)
{
    SpriteTextureRow read;
    read.tile = record.tile;
    read.x = record.x;
    read.y = record.y;
    read.width = record.width;
    read.height = record.height;
    read.left = record.left;
    read.top = record.top;
    read.right = record.right;
    read.bottom = record.bottom;
    return read;
}

SpriteTextureRow SpriteTextureRow::Read(const ListRows& sprites, int row)
{
    // The bounds are those of the record's fields, so any cell text reads
    // as something a level could hold.
    SpriteTextureRow read;
    read.tile = Cell(sprites, row, TileColumn, 0, 0xFFFF);
    read.x = Cell(sprites, row, XColumn, -0x8000, 0xFFFF);
    read.y = Cell(sprites, row, YColumn, -0x8000, 0xFFFF);
    read.width = Cell(sprites, row, WidthColumn, 0, 0xFFFFFF);
    read.height = Cell(sprites, row, HeightColumn, 0, 0xFFFFFF);
    read.left = Cell(sprites, row, LeftColumn, -0x8000, 0xFFFF);
    read.top = Cell(sprites, row, TopColumn, -0x8000, 0xFFFF);
    read.right = Cell(sprites, row, RightColumn, -0x8000, 0xFFFF);
    read.bottom = Cell(sprites, row, BottomColumn, -0x8000, 0xFFFF);
    return read;
}

QPoint SpriteTextureRow::FirstCorner() const
{
    return {x, y + tile * TextureGeometry::TileSize};
}

QPoint SpriteTextureRow::SecondCorner() const
{
    return FirstCorner() + QPoint(SpanOf(width), SpanOf(height));
}

OutlineColumns SpriteTextureRow::DrawColumns() const
{
    OutlineColumns columns(4);
    columns.append(FirstCorner());
    columns.append(SecondCorner());
    return columns;
}
