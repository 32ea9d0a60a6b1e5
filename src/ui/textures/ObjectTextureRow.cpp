#include "ObjectTextureRow.h"

#include "ListViewModel.h"
#include "NumberText.h"
#include "TextureGeometry.h"

namespace {

int Cell(const ListViewModel& textures, int row, int column)
{
    // Cells hold what a level gave: read as a bounded int, never beyond.
    return int(qBound<qint64>(-(qint64(1) << 30), NumberText::valueOf(textures.subItem(row, column)),
                              qint64(1) << 30));
}

} // namespace

ObjectTextureRow ObjectTextureRow::Read(const ListViewModel& textures, int row)
{
    ObjectTextureRow read;
    read.tile = qBound(0, Cell(textures, row, TileColumn), 0xFFFF);
    read.trans = Cell(textures, row, TransColumn);
    read.firstX = Cell(textures, row, XColumn(0));
    for (int i = 0; i < 4; ++i) {
        read.corners[size_t(i)] = QPoint(Cell(textures, row, XColumn(i)), Cell(textures, row, YColumn(i)));
        read.subPixels[size_t(i)] = QPoint(Cell(textures, row, XHiColumn(i)), Cell(textures, row, YHiColumn(i)));
    }
    return read;
}

bool ObjectTextureRow::IsTriangle() const
{
    return corners[3].isNull() && subPixels[3].isNull();
}

QPoint ObjectTextureRow::BitmapCorner(int i) const
{
    return corners[size_t(i)] + QPoint(0, tile * TextureGeometry::TileSize);
}

QStringList ObjectTextureRow::DrawColumns() const
{
    const bool triangle = IsTriangle();
    QStringList columns{triangle ? QStringLiteral("3") : QStringLiteral("4")};
    for (int i : triangle ? QList<int>{0, 1, 2} : QList<int>{0, 2}) {
        const QPoint corner = BitmapCorner(i);
        columns << QString::number(corner.x()) << QString::number(corner.y());
    }
    return columns;
}
