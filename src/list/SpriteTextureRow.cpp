#include "list/SpriteTextureRow.h"

#include "list/TextureGeometry.h"

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
