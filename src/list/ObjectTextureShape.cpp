#include "ObjectTextureShape.h"

#include "ListViewModel.h"
#include "NumberText.h"
#include "m_TextureList.h"

#include <algorithm>

namespace {

// List columns of corner i (0 to 3): "X1".."Y4", then "X1Hi".."Y4Hi".
int xColumn(int corner) { return 3 + 2 * corner; }
int yColumn(int corner) { return 4 + 2 * corner; }
int xEdgeColumn(int corner) { return 11 + 2 * corner; }
int yEdgeColumn(int corner) { return 12 + 2 * corner; }

constexpr int TileHeight = 256;

} // namespace

ObjectTextureShape::ObjectTextureShape(const ObjectTexture& record)
    : m_record(record)
{
}

std::optional<ObjectTextureShape> ObjectTextureShape::ofTexture(const ListViewModel& lsvTextures, qint64 number)
{
    const int row = lsvTextures.findKey(QLatin1Char('T') + NumberText::of(number));
    if (row < 0)
        return std::nullopt;
    return ofRow(lsvTextures, row);
}

ObjectTextureShape ObjectTextureShape::ofRow(const ListViewModel& lsvTextures, int row)
{
    return ObjectTextureShape(m_TextureList::ObjectTextureOfRow(lsvTextures, row));
}

int ObjectTextureShape::Sides() const
{
    const int last = 3;
    const bool unused = m_record.column(xColumn(last)) == 0 && m_record.column(yColumn(last)) == 0
        && m_record.column(xEdgeColumn(last)) == 0 && m_record.column(yEdgeColumn(last)) == 0;
    return unused ? 3 : 4;
}

QPoint ObjectTextureShape::Corner(int corner) const
{
    const int tileTop = m_record.tile() * TileHeight;
    return {m_record.column(xColumn(corner)), tileTop + m_record.column(yColumn(corner))};
}

int ObjectTextureShape::EdgeOf(int pixel, int edgeByte)
{
    return edgeByte >= 128 ? pixel + 1 : pixel;
}

QRect ObjectTextureShape::Bounds() const
{
    const int corners = Sides();
    int left = EdgeOf(m_record.column(xColumn(0)), m_record.column(xEdgeColumn(0)));
    int top = EdgeOf(m_record.column(yColumn(0)), m_record.column(yEdgeColumn(0)));
    int right = left;
    int bottom = top;
    for (int corner = 1; corner < corners; ++corner) {
        const int x = EdgeOf(m_record.column(xColumn(corner)), m_record.column(xEdgeColumn(corner)));
        const int y = EdgeOf(m_record.column(yColumn(corner)), m_record.column(yEdgeColumn(corner)));
        left = std::min(left, x);
        right = std::max(right, x);
        top = std::min(top, y);
        bottom = std::max(bottom, y);
    }
    const int tileTop = m_record.tile() * TileHeight;
    return QRect(left, tileTop + top, right - left, bottom - top);
}
