#include "EditorState.h"

#include "IPromptService.h"
#include "ObjectTextureRow.h"
#include "SpriteTextureRow.h"
#include "m_IndexList.h"
#include "ucScrollPic.h"

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

void EditorState::DrawOutlineRow(const ListViewModel& drawList, int row, int zoom)
{
    auto at = [&](int subItem) { return drawList.subItem(row, subItem).toInt() * zoom; };
    const QString sides = drawList.subItem(row, 1);
    const QString number = drawList.text(row);
    if (sides == QLatin1String("4")) {
        const int x1 = at(2), y1 = at(3), x2 = at(4), y2 = at(5);
        m_picture->DrawContour(x1, y1, x2, y2, OutlineColor);
        m_picture->PutText((x1 + x2) / 2, (y1 + y2) / 2, number, OutlineColor);
    } else if (sides == QLatin1String("3")) {
        const int x1 = at(2), y1 = at(3), x2 = at(4), y2 = at(5), x3 = at(6), y3 = at(7);
        m_picture->DrawLine(x1, y1, x2, y2, OutlineColor);
        m_picture->DrawLine(x2, y2, x3, y3, OutlineColor);
        m_picture->DrawLine(x3, y3, x1, y1, OutlineColor);
        // The label stands at the triangle's centroid, inside it.
        m_picture->PutText((x1 + x2 + x3) / 3, (y1 + y2 + y3) / 3, number, OutlineColor);
    }
}

void EditorState::ShowFirstOutline()
{
    if (!m_picture || !m_picture->HasPicture())
        return;
    for (const ListViewModel* list : {&lsvDrawList, &lsvSpriteDrawLisr}) {
        if (list->count() == 0)
            continue;
        // A draw row holds its sides, then the x and y of the corners it is
        // drawn from: two of a rectangle, three of a triangle.
        const qsizetype points = (list->row(0).subItems.size() - 1) / 2;
        QRect area;
        for (int point = 0; point < points; ++point) {
            const QPoint at(list->subItem(0, 2 + 2 * point).toInt(), list->subItem(0, 3 + 2 * point).toInt());
            area |= QRect(at * m_picture->ZoomFactor(), QSize(1, 1));
        }
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
