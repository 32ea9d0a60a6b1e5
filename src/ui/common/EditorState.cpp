#include "ui/common/EditorState.h"

#include "ui/common/IPromptService.h"
#include "list/ObjectTextureRow.h"
#include "list/SpriteTextureRow.h"
#include "list/m_IndexList.h"
#include "ui/bitmap/ucScrollPic.h"

#include <QUndoStack>

#include <array>

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
    for (const auto& [model, follow] :
         {std::pair<ListRows*, void (EditorState::*)()>{&views.lsvTextures, &EditorState::FollowTextureCount},
          std::pair<ListRows*, void (EditorState::*)()>{&views.lsvSprites, &EditorState::FollowSpriteCount}}) {
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
struct OutlinePoints
{
    std::array<QPoint, 3> points;
    int count = 0;
    auto begin() const { return points.begin(); }
    auto end() const { return points.begin() + count; }
};

OutlinePoints OutlineCorners(const ListViewModel& drawList, int row, int zoom)
{
    const qint64 sides = drawList.subItemNumber(row, 1);
    OutlinePoints corners;
    corners.count = sides == 4 ? 2 : sides == 3 ? 3 : 0;
    for (int corner = 0; corner < corners.count; ++corner)
        corners.points[size_t(corner)] = QPoint(int(drawList.subItemNumber(row, 2 + 2 * corner)),
                                                int(drawList.subItemNumber(row, 3 + 2 * corner)))
                                       * zoom;
    return corners;
}

} // namespace

void EditorState::DrawOutlineRow(const ListViewModel& drawList, int row, int zoom)
{
    const OutlinePoints corners = OutlineCorners(drawList, row, zoom);
    if (corners.count < 2)
        return;
    const QString number = drawList.text(row);
    const QPoint a = corners.points[0], b = corners.points[1];
    if (corners.count == 2) {
        m_picture->DrawContour(a.x(), a.y(), b.x(), b.y(), OutlineColor);
        m_picture->PutText((a.x() + b.x()) / 2, (a.y() + b.y()) / 2, number, OutlineColor);
    } else {
        const QPoint c = corners.points[2];
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
// Tens of thousands of rows go in as cells, with no row made of strings.
template <typename RowReader, typename Format>
void AppendOutlines(const RecordRowsModel<Format>& source, const QStringList& keys, ListViewModel& drawList)
{
    std::vector<ListCell> cells;
    std::vector<int> sizes;
    cells.reserve(size_t(keys.size()) * 7);
    sizes.reserve(size_t(keys.size()));
    for (const QString& key : keys) {
        const int row = source.findKey(key);
        if (row < 0)
            continue;
        const auto& entry = source.entry(row);
        const OutlineColumns columns = RowReader::Of(entry).DrawColumns();
        cells.emplace_back(); // no key
        cells.push_back(ListCell::number(entry.number, entry.width));
        for (const int column : columns)
            cells.push_back(ListCell::number(column));
        sizes.push_back(2 + columns.size());
    }
    drawList.appendCellRows(std::move(cells), sizes);
}

} // namespace

void EditorState::AppendTextureOutlines(const QStringList& keys)
{
    AppendOutlines<ObjectTextureRow>(views.lsvTextures, keys, lsvDrawList);
    // A first list of keys is shared, not copied key by key.
    if (m_drawnTextureKeys.isEmpty())
        m_drawnTextureKeys = keys;
    else
        m_drawnTextureKeys += keys;
}

void EditorState::AppendSpriteOutlines(const QStringList& keys)
{
    AppendOutlines<SpriteTextureRow>(views.lsvSprites, keys, lsvSpriteDrawLisr);
    if (m_drawnSpriteKeys.isEmpty())
        m_drawnSpriteKeys = keys;
    else
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

int EditorState::BitmapHeight() const
{
    if (m_picture && m_document->IsBitmapLoaded() && m_picture->PictureHeight() > 0)
        return m_picture->PictureHeight();
    // A tile number is a 16-bit field.
    return 65536 * 256;
}
