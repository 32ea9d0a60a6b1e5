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
    connect(&lsvDrawList, &QAbstractItemModel::modelReset, this, [this] { m_drawnTextureNumbers.clear(); });
    connect(&lsvSpriteDrawLisr, &QAbstractItemModel::modelReset, this, [this] { m_drawnSpriteNumbers.clear(); });
}

void EditorState::RedrawOutlines()
{
    emit reloadPictureRequested();
    if (!m_picture || !m_picture->HasPicture())
        return;
    const int zoom = m_picture->ZoomFactor();
    m_picture->ReserveShapes(lsvDrawList.count() + lsvSpriteDrawLisr.count());
    for (const OutlineRows* list : {&lsvDrawList, &lsvSpriteDrawLisr}) {
        for (const OutlineRows::Outline& outline : list->outlines())
            DrawOutline(outline, zoom);
    }
}

namespace {

// An outline's corners, zoomed: two opposite corners of a rectangle (four
// sides), the three of a triangle. Any other outline has none.
struct OutlinePoints
{
    std::array<QPoint, 3> points;
    int count = 0;
    auto begin() const { return points.begin(); }
    auto end() const { return points.begin() + count; }
};

OutlinePoints OutlineCorners(const OutlineColumns& columns, int zoom)
{
    const int sides = columns.size() > 0 ? columns.begin()[0] : 0;
    OutlinePoints corners;
    corners.count = sides == 4 ? 2 : sides == 3 ? 3 : 0;
    // Past the sides, the corners' X and Y in turn.
    corners.count = qMin(corners.count, (columns.size() - 1) / 2);
    for (int corner = 0; corner < corners.count; ++corner)
        corners.points[size_t(corner)] =
            QPoint(columns.begin()[1 + 2 * corner], columns.begin()[2 + 2 * corner]) * zoom;
    return corners;
}

} // namespace

void EditorState::DrawOutline(const OutlineRows::Outline& outline, int zoom)
{
    const OutlinePoints corners = OutlineCorners(outline.columns, zoom);
    if (corners.count == 2)
        m_picture->DrawNumberedContour(corners.points[0], corners.points[1], outline.number, outline.width,
                                       OutlineColor);
    else if (corners.count == 3)
        m_picture->DrawNumberedTriangle(corners.points[0], corners.points[1], corners.points[2], outline.number,
                                        outline.width, OutlineColor);
}

namespace {

QRect OutlineArea(const OutlineRows::Outline& outline, int zoom)
{
    QRect area;
    for (const QPoint corner : OutlineCorners(outline.columns, zoom))
        area |= QRect(corner, QSize(1, 1));
    return area;
}

} // namespace

bool EditorState::IsAnyOutlineInView() const
{
    const QRect visible = m_picture->VisibleArea();
    const int zoom = m_picture->ZoomFactor();
    for (const OutlineRows* list : {&lsvDrawList, &lsvSpriteDrawLisr}) {
        for (const OutlineRows::Outline& outline : list->outlines()) {
            if (OutlineArea(outline, zoom).intersects(visible))
                return true;
        }
    }
    return false;
}

void EditorState::ShowFirstOutline()
{
    if (!m_picture || !m_picture->HasPicture() || IsAnyOutlineInView())
        return;
    for (const OutlineRows* list : {&lsvDrawList, &lsvSpriteDrawLisr}) {
        if (list->count() == 0)
            continue;
        const QRect area = OutlineArea(list->outline(0), m_picture->ZoomFactor());
        if (!area.isNull())
            m_picture->ShowArea(area.left(), area.top(), area.right(), area.bottom());
        return;
    }
}

namespace {

void Remember(std::vector<qint32>& drawn, const std::vector<qint32>& numbers)
{
    drawn.insert(drawn.end(), numbers.begin(), numbers.end());
}

} // namespace

void EditorState::AppendTextureOutlines(const std::vector<qint32>& numbers)
{
    lsvDrawList.appendNumbered<ObjectTextureRow>(m_document->tables().textures, numbers);
    Remember(m_drawnTextureNumbers, numbers);
}

void EditorState::AppendSpriteOutlines(const std::vector<qint32>& numbers)
{
    lsvSpriteDrawLisr.appendNumbered<SpriteTextureRow>(m_document->tables().sprites, numbers);
    Remember(m_drawnSpriteNumbers, numbers);
}

void EditorState::RedrawChangedOutlines()
{
    if (m_drawnTextureNumbers.empty() && m_drawnSpriteNumbers.empty())
        return;
    const std::vector<qint32> textureNumbers = std::move(m_drawnTextureNumbers);
    const std::vector<qint32> spriteNumbers = std::move(m_drawnSpriteNumbers);
    lsvDrawList.clear();
    lsvSpriteDrawLisr.clear();
    AppendTextureOutlines(textureNumbers);
    AppendSpriteOutlines(spriteNumbers);
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
