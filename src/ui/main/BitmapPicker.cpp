#include "ui/main/BitmapPicker.h"

#include "list/rows/ListRows.h"
#include "list/TextureHitTest.h"
#include "ui/bitmap/ucScrollPic.h"
#include "ui/common/ButtonCaption.h"
#include "ui/common/EditorState.h"
#include "ui/common/ListView.h"
#include "ui/main/frmMain.h"

#include <QAbstractButton>
#include <QRect>
#include <QTabBar>

namespace {

constexpr int SpriteTab = 2;
constexpr int SequenceTab = 3;

QString RowNumbers(const ListRows& rows, const QList<int>& found)
{
    QStringList numbers;
    for (int row : found)
        numbers << rows.text(row);
    return numbers.join(QStringLiteral(", "));
}

} // namespace

BitmapPicker::BitmapPicker(frmMain& window)
    : QObject(&window)
    , m_window(window)
    , m_state(window.state())
    , m_view(*window.state().picture())
    , m_textures(window.findChild<ListView*>(QStringLiteral("lsvTextures")))
    , m_sprites(window.findChild<ListView*>(QStringLiteral("lsvSprites")))
{
    connect(&m_view, &ucScrollPic::Clicked, this, &BitmapPicker::PickAt);
    ConnectList(m_state.views.lsvTextures, Kind::Texture);
    ConnectList(m_state.views.lsvSprites, Kind::Sprite);

    // After the pages have drawn (they connected first), the outlines are
    // brought into view.
    const auto showFirst = [this] { m_state.ShowFirstOutline(); };
    for (const char* draw : {"cmdDraw", "cmdDrawSprite"}) {
        if (auto* button = window.findChild<QAbstractButton*>(QString::fromLatin1(draw)))
            connect(button, &QAbstractButton::clicked, this, showFirst);
    }
    connect(&m_state, &EditorState::drawObjectsRequested, this, showFirst);
    connect(&m_state, &EditorState::drawSpritesRequested, this, showFirst);
}

void BitmapPicker::ConnectList(ListRows& rows, Kind kind)
{
    const auto follow = [this, kind] { OutlineChosen(kind); };
    connect(&rows, &ListRows::selectedRowChanged, this, follow);
    // Whatever moves, edits or removes rows (an edit, a deletion, an undo, a
    // sort, a reload) may move or end the outlined row.
    const auto refresh = [this, kind] {
        if (m_outlined == kind)
            OutlineChosen(kind);
    };
    connect(&rows, &QAbstractItemModel::dataChanged, this, refresh);
    connect(&rows, &QAbstractItemModel::modelReset, this, refresh);
    connect(&rows, &QAbstractItemModel::rowsRemoved, this, refresh);
    connect(&rows, &QAbstractItemModel::rowsInserted, this, refresh);
    connect(&rows, &QAbstractItemModel::layoutChanged, this, refresh);
}

void BitmapPicker::OutlineChosen(Kind kind)
{
    const ListRows& rows = kind == Kind::Texture ? static_cast<const ListRows&>(m_state.views.lsvTextures)
                                                 : m_state.views.lsvSprites;
    const int row = rows.selectedRow();
    if (row < 0 || row >= rows.count()) {
        if (m_outlined == kind)
            m_view.ClearHighlight();
        return;
    }
    m_outlined = kind;
    if (!m_view.HasPicture())
        return;
    const ListTables& tables = m_state.document().tables();
    const QPolygon outline = kind == Kind::Texture ? TextureHitTest::TextureOutline(tables.textures, row)
                                                   : TextureHitTest::SpriteOutline(tables.sprites, row);
    m_view.SetHighlight(outline, SelectionColor);
    const int zoom = m_view.ZoomFactor();
    const QRect area = outline.boundingRect();
    m_view.ShowArea(area.left() * zoom, area.top() * zoom, (area.right() + 1) * zoom - 1,
                    (area.bottom() + 1) * zoom - 1);
}

bool BitmapPicker::IsEntering() const
{
    for (const char* name : {"cmdAdd", "cmdEdit", "cmdSpriteAdd", "cmdSpriteEdit"}) {
        const auto* button = m_window.findChild<QAbstractButton*>(QString::fromLatin1(name));
        if (button && ButtonCaption::Is(*button, u"Accept"))
            return true;
    }
    return false;
}

bool BitmapPicker::OnSpritePages() const
{
    const int tab = m_window.tbsStrip()->currentIndex();
    return tab == SpriteTab || tab == SequenceTab;
}

void BitmapPicker::PickAt(int x, int y)
{
    if (IsEntering() || !m_view.HasPicture())
        return;
    const QPoint pixel(x, y);
    // The view reaches past a small bitmap: no pixel lies there to tell of,
    // and what was said about the last one no longer applies.
    if (!QRect(0, 0, m_view.PictureWidth(), m_view.PictureHeight()).contains(pixel)) {
        m_state.ShowStatus(QString());
        return;
    }
    const ListTables& tables = m_state.document().tables();
    const QList<int> textures = TextureHitTest::TexturesAt(tables.textures, pixel);
    const QList<int> sprites = TextureHitTest::SpritesAt(tables.sprites, pixel);
    m_state.ShowStatus(CoveringText(x, y, textures, sprites));

    const bool sprite = OnSpritePages() && !sprites.isEmpty();
    ListView* list = sprite ? m_sprites : m_textures;
    ListRows& rows = sprite ? static_cast<ListRows&>(m_state.views.lsvSprites) : m_state.views.lsvTextures;
    const int row = TextureHitTest::Choose(sprite ? sprites : textures, rows.selectedRow());
    if (row < 0 || !list)
        return;
    rows.setSelectedRow(row);
    // The page loads the row as it does for a click on it.
    emit list->ItemClick(row);
}

QString BitmapPicker::CoveringText(int x, int y, const QList<int>& textures, const QList<int>& sprites) const
{
    const QString where = tr("Pixel %1, %2").arg(x).arg(y);
    if (textures.isEmpty() && sprites.isEmpty())
        return tr("%1: no texture or sprite covers it.").arg(where);
    QStringList parts;
    if (!textures.isEmpty())
        parts << (textures.size() == 1 ? tr("texture %1") : tr("textures %1"))
                     .arg(RowNumbers(m_state.views.lsvTextures, textures));
    if (!sprites.isEmpty())
        parts << (sprites.size() == 1 ? tr("sprite %1") : tr("sprites %1"))
                     .arg(RowNumbers(m_state.views.lsvSprites, sprites));
    return tr("%1: %2.").arg(where, parts.join(QStringLiteral("; ")));
}
