#include "ui/common/EditorState.h"

#include "ui/common/IPromptService.h"
#include "list/ObjectTextureRow.h"
#include "list/SpriteTextureRow.h"
#include "list/m_IndexList.h"
#include "ui/bitmap/ucScrollPic.h"

#include <QUndoStack>

namespace {

QStringList DrawListColumns()
{
    return {QStringLiteral("No"), QStringLiteral("NumSide"), QStringLiteral("X1"), QStringLiteral("Y1"),
            QStringLiteral("X2"), QStringLiteral("Y2"), QStringLiteral("X3"), QStringLiteral("Y3")};
}

} // namespace

EditorState::EditorState(IPromptService& prompts, ListDocument& document, QObject* parent)
    : QObject(parent)
    , views(document.views())
    , lsvObjects({QStringLiteral("Texture")})
    , lsvAvailTextures({QString()})
    , lsvSpriteIndex({QStringLiteral("Sprite")})
    , lsvDrawList(DrawListColumns())
    , lsvSpriteDrawLisr(DrawListColumns())
    , m_document(&document)
    , m_prompts(&prompts)
{
    lsvObjects.setCheckable(true);
    lsvSpriteIndex.setCheckable(true);
    connect(&document, &ListDocument::modifiedChanged, this, &EditorState::dirtyChanged);
    connect(document.undoStack(), &QUndoStack::indexChanged, this, &EditorState::RedrawChangedOutlines);
    for (const auto& [model, follow] : {std::pair{&views.lsvTextures, &EditorState::FollowTextureCount},
                                        std::pair{&views.lsvSprites, &EditorState::FollowSpriteCount}}) {
        connect(model, &QAbstractItemModel::rowsInserted, this, follow);
        connect(model, &QAbstractItemModel::rowsRemoved, this, follow);
    }
    connect(&lsvDrawList, &QAbstractItemModel::modelReset, this, [this] { m_drawnTextureKeys.clear(); });
    connect(&lsvSpriteDrawLisr, &QAbstractItemModel::modelReset, this, [this] { m_drawnSpriteKeys.clear(); });
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
    const qint64 sides = drawList.subItemNumber(row, 1);
    const int corners = sides == 4 ? 2 : sides == 3 ? 3 : 0;
    QList<QPoint> points;
    for (int corner = 0; corner < corners; ++corner)
        points << QPoint(int(drawList.subItemNumber(row, 2 + 2 * corner)), int(drawList.subItemNumber(row, 3 + 2 * corner)))
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

void EditorState::ShowFirstOutline()
{
    if (!m_picture || !m_picture->HasPicture())
        return;
    for (const ListViewModel* list : {&lsvDrawList, &lsvSpriteDrawLisr}) {
        if (list->count() == 0)
            continue;
        QRect area;
        for (const QPoint corner : OutlineCorners(*list, 0, m_picture->ZoomFactor()))
            area |= QRect(corner, QSize(1, 1));
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
    m_drawnTextureKeys += keys;
}

void EditorState::AppendSpriteOutlines(const QStringList& keys)
{
    AppendOutlines<SpriteTextureRow>(views.lsvSprites, keys, lsvSpriteDrawLisr);
    m_drawnSpriteKeys += keys;
}

void EditorState::RedrawChangedOutlines()
{
    if (m_drawnTextureKeys.isEmpty() && m_drawnSpriteKeys.isEmpty())
        return;
    const QStringList textureKeys = m_drawnTextureKeys;
    const QStringList spriteKeys = m_drawnSpriteKeys;
    lsvDrawList.clear();
    lsvSpriteDrawLisr.clear();
    AppendTextureOutlines(textureKeys);
    AppendSpriteOutlines(spriteKeys);
    RedrawOutlines();
}

void EditorState::ShowStatus(const QString& message)
{
    emit statusMessage(message);
}

void EditorState::FollowTextureCount()
{
    if (lsvObjects.count() == 0)
        return; // no list shown yet: the load fills them
    m_IndexList::ResizeIndexList(views.lsvTextures.count(), lsvObjects, QStringLiteral("T"), true);
    m_IndexList::ResizeIndexList(lsvObjects.count() - 2, lsvAvailTextures, QStringLiteral("A"), false);
}

void EditorState::FollowSpriteCount()
{
    if (lsvSpriteIndex.count() == 0)
        return;
    m_IndexList::ResizeIndexList(views.lsvSprites.count(), lsvSpriteIndex, QStringLiteral("S"), true);
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
