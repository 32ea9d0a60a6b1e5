#include "ui/common/EditorState.h"

#include "ui/common/IPromptService.h"
#include "list/ObjectTextureRow.h"
#include "list/SpriteTextureRow.h"
#include "list/m_IndexList.h"
#include "ui/bitmap/ucScrollPic.h"

namespace {

QStringList DrawListColumns()
{
    return {QStringLiteral("No"), QStringLiteral("NumSide"), QStringLiteral("X1"), QStringLiteral("Y1"),
            QStringLiteral("X2"), QStringLiteral("Y2"), QStringLiteral("X3"), QStringLiteral("Y3")};
}

} // namespace

EditorState::EditorState(IPromptService& prompts, QObject* parent)
    : QObject(parent)
    , lsvObjects({QStringLiteral("Texture")})
    , lsvAvailTextures({QString()})
    , lsvSpriteIndex({QStringLiteral("Sprite")})
    , lsvDrawList(DrawListColumns())
    , lsvSpriteDrawLisr(DrawListColumns())
    , m_prompts(&prompts)
{
    lsvObjects.setCheckable(true);
    lsvSpriteIndex.setCheckable(true);
}

void EditorState::MarkDirty()
{
    SetDirty(true);
}

void EditorState::SetDirty(bool dirty)
{
    IsDirty = dirty;
    emit dirtyChanged(dirty);
}

void EditorState::RedrawOutlines()
{
    emit reloadPictureRequested();
    if (!m_picture || !m_picture->HasPicture())
        return;
    const int zoom = m_picture->ZoomFactor();
    for (const ListViewModel* list : {&lsvDrawList, &lsvSpriteDrawLisr}) {
        for (int row = 0; row < list->count(); ++row)
            DrawOutlineRow(*list, row, zoom);
    }
}

namespace {

// A draw row holds its sides, then the corners it is drawn from, zoomed
// here: two opposite corners of a rectangle ("4"), the three of a triangle
// ("3"). Any other row has none.
QList<QPoint> OutlineCorners(const ListViewModel& drawList, int row, int zoom)
{
    const QString sides = drawList.subItem(row, 1);
    const int corners = sides == QLatin1String("4") ? 2 : sides == QLatin1String("3") ? 3 : 0;
    QList<QPoint> points;
    for (int corner = 0; corner < corners; ++corner)
        points << QPoint(drawList.subItem(row, 2 + 2 * corner).toInt(), drawList.subItem(row, 3 + 2 * corner).toInt())
                      * zoom;
    return points;
}

} // namespace

void EditorState::DrawOutlineRow(const ListViewModel& drawList, int row, int zoom)
{
    const QList<QPoint> corners = OutlineCorners(drawList, row, zoom);
    const QString number = drawList.text(row);
    if (corners.size() == 2) {
        const QPoint a = corners[0], b = corners[1];
        m_picture->DrawContour(a.x(), a.y(), b.x(), b.y(), OutlineColor);
        m_picture->PutText((a.x() + b.x()) / 2, (a.y() + b.y()) / 2, number, OutlineColor);
    } else if (corners.size() == 3) {
        const QPoint a = corners[0], b = corners[1], c = corners[2];
        m_picture->DrawLine(a.x(), a.y(), b.x(), b.y(), OutlineColor);
        m_picture->DrawLine(b.x(), b.y(), c.x(), c.y(), OutlineColor);
        m_picture->DrawLine(c.x(), c.y(), a.x(), a.y(), OutlineColor);
        // The label stands at the triangle's centroid, inside it.
        m_picture->PutText((a.x() + b.x() + c.x()) / 3, (a.y() + b.y() + c.y()) / 3, number, OutlineColor);
    }
}

namespace {

QRect OutlineArea(const ListViewModel& drawList, int row, int zoom)
{
    QRect area;
    for (const QPoint corner : OutlineCorners(drawList, row, zoom))
        area |= QRect(corner, QSize(1, 1));
    return area;
}

} // namespace

bool EditorState::IsAnyOutlineInView() const
{
    const QRect visible = m_picture->VisibleArea();
    const int zoom = m_picture->ZoomFactor();
    for (const ListViewModel* list : {&lsvDrawList, &lsvSpriteDrawLisr}) {
        for (int row = 0; row < list->count(); ++row) {
            if (OutlineArea(*list, row, zoom).intersects(visible))
                return true;
        }
    }
    return false;
}

void EditorState::ShowFirstOutline()
{
    if (!m_picture || !m_picture->HasPicture() || IsAnyOutlineInView())
        return;
    for (const ListViewModel* list : {&lsvDrawList, &lsvSpriteDrawLisr}) {
        if (list->count() == 0)
            continue;
        const QRect area = OutlineArea(*list, 0, m_picture->ZoomFactor());
        if (!area.isNull())
            m_picture->ShowArea(area.left(), area.top(), area.right(), area.bottom());
        return;
    }
}

namespace {

// Draw lists hold a row's number, then what its reader gives to outline.
template <typename RowReader>
void AppendOutlines(const ListViewModel& source, const QStringList& keys, ListViewModel& drawList)
{
    std::vector<ListViewModel::Row> rows;
    for (const QString& key : keys) {
        const int row = source.findKey(key);
        if (row >= 0)
            rows.push_back({QString(), source.text(row), RowReader::Read(source, row).DrawColumns(), Qt::Unchecked});
    }
    drawList.appendRows(std::move(rows));
}

} // namespace

void EditorState::AppendTextureOutlines(const QStringList& keys)
{
    AppendOutlines<ObjectTextureRow>(views.lsvTextures, keys, lsvDrawList);
}

void EditorState::AppendSpriteOutlines(const QStringList& keys)
{
    AppendOutlines<SpriteTextureRow>(views.lsvSprites, keys, lsvSpriteDrawLisr);
}

void EditorState::ShowStatus(const QString& message)
{
    emit statusMessage(message);
}

void EditorState::FillTextureIndexLists()
{
    m_IndexList::FillIndexList(views.lsvTextures.count(), lsvObjects, QStringLiteral("T"), true);
    m_IndexList::FillIndexList(lsvObjects.count() - 2, lsvAvailTextures, QStringLiteral("A"), false);
}

void EditorState::FillSpriteIndexList()
{
    m_IndexList::FillIndexList(views.lsvSprites.count(), lsvSpriteIndex, QStringLiteral("S"), true);
}

void EditorState::ChooseOutlineColor()
{
    if (const std::optional<QColor> chosen = m_prompts->ChooseColor(OutlineColor))
        OutlineColor = *chosen;
}

void EditorState::DrawCheckedObjects()
{
    emit drawObjectsRequested();
}

void EditorState::DrawCheckedSprites()
{
    emit drawSpritesRequested();
}
