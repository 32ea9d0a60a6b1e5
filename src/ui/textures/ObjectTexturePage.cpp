#include "ui/textures/ObjectTexturePage.h"

#include "ui/common/ButtonCaption.h"
#include "ui/textures/CornerBoxes.h"
#include "ui/common/DrawChecklist.h"
#include "ui/common/EditBoxLook.h"
#include "ui/common/EditorState.h"
#include "common/NumberText.h"
#include "list/ObjectTextureRow.h"
#include "list/RowKeyNumber.h"
#include "ui_ObjectTexturePage.h"

#include <vector>

namespace {

const QString Add = QStringLiteral("Add");
const QString Edit = QStringLiteral("Edit");
const QString Accept = QStringLiteral("Accept");
const QString MakeTriad = QStringLiteral("Make Triad");
const QString MakeQuad = QStringLiteral("Make Quad");
constexpr QChar KeyPrefix = QLatin1Char('T');

// A box's number as the stored texture takes it: its leading integer, 0
// for an empty box or one that holds no number.
int BoxValue(const QLineEdit* box)
{
    return int(qBound<qint64>(-(qint64(1) << 30), NumberText::valueOf(box->text()), qint64(1) << 30));
}

} // namespace

ObjectTexturePage::ObjectTexturePage(EditorState& state, QWidget* parent)
    : EditorPage(state, parent)
    , m_ui(std::make_unique<Ui::ObjectTexturePage>())
{
    m_ui->setupUi(this);
    m_ui->lsvObjects->setListModel(&m_state.lsvObjects);
    m_ui->lsvTextures->setListModel(&m_state.views.lsvTextures);
    m_ui->lsvDrawList->setListModel(&m_state.lsvDrawList);
    m_checklist = new DrawChecklist(*m_ui->lsvObjects, m_state.lsvObjects, this);

    const Ui::ObjectTexturePage& u = *m_ui;
    m_corners = std::make_unique<CornerBoxes>(std::array<CornerBoxes::Row, 4>{{
        {u.txtCorner_0, u.txtX_0, u.txtY_0, u.txtHiLo_0},
        {u.txtCorner_1, u.txtX_1, u.txtY_1, u.txtHiLo_1},
        {u.txtCorner_2, u.txtX_2, u.txtY_2, u.txtHiLo_2},
        {u.txtCorner_3, u.txtX_3, u.txtY_3, u.txtHiLo_3},
    }});
    ConnectControls();
}

ObjectTexturePage::~ObjectTexturePage() = default;

void ObjectTexturePage::ConnectControls()
{
    const Ui::ObjectTexturePage& u = *m_ui;
    connect(u.cmdAdd, &QPushButton::clicked, this, &ObjectTexturePage::cmdAdd_Click);
    connect(u.cmdEdit, &QPushButton::clicked, this, &ObjectTexturePage::cmdEdit_Click);
    connect(u.cmdDel, &QPushButton::clicked, this, &ObjectTexturePage::cmdDel_Click);
    connect(u.cmdCancel, &QPushButton::clicked, this, &ObjectTexturePage::cmdCancel_Click);
    connect(u.cmdAttrib, &QPushButton::clicked, this, &ObjectTexturePage::cmdAttrib_Click);
    connect(u.cmdSides, &QPushButton::clicked, this, &ObjectTexturePage::cmdSides_Click);
    connect(u.cmdFlipHor, &QPushButton::clicked, this, &ObjectTexturePage::cmdFlipHor_Click);
    connect(u.cmdFlipVert, &QPushButton::clicked, this, &ObjectTexturePage::cmdFlipVert_Click);
    connect(u.cmdDraw, &QPushButton::clicked, this, &ObjectTexturePage::cmdDraw_Click);
    // The animation page ticks textures of the checklist and asks for them drawn.
    connect(&m_state, &EditorState::drawObjectsRequested, this, &ObjectTexturePage::cmdDraw_Click);
    connect(u.cmdColor, &QPushButton::clicked, this, [this] { m_state.ChooseOutlineColor(); });
    connect(u.lsvTextures, &ListView::ItemClick, this, &ObjectTexturePage::lsvTextures_ItemClick);
}

// --- The page's life with the window ---

void ObjectTexturePage::ResetPage()
{
    ShowViewing();
    ClearTextureEdition();
    ShowAttribute(0);
    // The window starts with the sides button offering a quad.
    m_sides = 4;
    m_ui->cmdSides->setText(MakeQuad);
    m_ui->cmdAdd->setEnabled(false);
    m_ui->cmdCancel->setEnabled(false);
}

void ObjectTexturePage::ClearPage()
{
    m_state.lsvObjects.clear();
    m_state.views.lsvTextures.clear();
    m_state.lsvDrawList.clear();
    m_ui->txtTextureQty->clear();
    m_ui->txtTileQty->clear();
    ShowViewing();
    ClearTextureEdition();
}

void ObjectTexturePage::ListLoaded()
{
    // A texture half entered belongs to the list that was open before.
    ShowViewing();
    ClearTextureEdition();
    m_ui->cmdAdd->setEnabled(true);
    m_ui->cmdCancel->setEnabled(true);
}

void ObjectTexturePage::ListClosed()
{
    ShowViewing();
    ClearTextureEdition();
    m_ui->cmdAdd->setEnabled(false);
    m_ui->cmdCancel->setEnabled(false);
}

void ObjectTexturePage::SetTextureQty(const QString& text)
{
    m_ui->txtTextureQty->setText(text);
}

void ObjectTexturePage::SetTileQty(const QString& text)
{
    m_ui->txtTileQty->setText(text);
}

// --- Add, Edit, Delete, Cancel ---

void ObjectTexturePage::cmdAdd_Click()
{
    if (ButtonCaption::Is(*m_ui->cmdAdd, Add))
        BeginAdding();
    else
        AcceptAdding();
    ShowTextureNumber();
}

void ObjectTexturePage::BeginAdding()
{
    ResetTextureEdition(false);
    ClearTextureEdition();
    ShowAttribute(0);
    m_ui->txtTileNo->clear();
    EnableTileBox(true);
    {
        CornerBoxes::Hold hold(Corners());
        Corners().SetMarkers({QStringLiteral("Lo"), QString(), QStringLiteral("Hi"), QString()});
    }
    m_flips = {};
    SetCornerLabels();
    ShowSides(4);
    SetFlipCaptions();
    LockCornerBoxes(true);
    for (QPushButton* button : {m_ui->cmdSides, m_ui->cmdAttrib, m_ui->cmdFlipHor, m_ui->cmdFlipVert})
        button->setEnabled(true);
    m_ui->cmdAdd->setText(Accept);
}

void ObjectTexturePage::AcceptAdding()
{
    StoreEditedTexture(QString());
    m_ui->cmdAdd->setText(Add);
    ShowViewing();
}

void ObjectTexturePage::ShowTextureNumber()
{
    const ListViewModel& textures = m_state.views.lsvTextures;
    const qint64 count = textures.count();
    // While adding: the number the new texture will get, the row count
    // unless a row kept that number through a deletion.
    const bool adding = ButtonCaption::Is(*m_ui->cmdAdd, Accept);
    m_ui->txtTextureNo->setText(
        QString::number(adding ? RowKeyNumber::FirstFree(textures, KeyPrefix, count) : count));
}

void ObjectTexturePage::cmdEdit_Click()
{
    if (m_state.views.lsvTextures.count() == 0)
        return;
    if (ButtonCaption::Is(*m_ui->cmdEdit, Edit)) {
        m_ui->cmdEdit->setText(Accept);
        EnableFlips(true);
        LockCornerBoxes(true);
        return;
    }
    AcceptEditing();
}

void ObjectTexturePage::AcceptEditing()
{
    m_ui->cmdEdit->setText(Edit);
    const ListViewModel& textures = m_state.views.lsvTextures;
    const QString key = textures.key(textures.selectedRow());
    if (key.isEmpty())
        m_state.ShowStatus(tr("Nothing was stored: no texture of the list is selected."));
    else
        StoreEditedTexture(key);
    ShowViewing();
    ClearTextureEdition();
}

void ObjectTexturePage::cmdDel_Click()
{
    ListViewModel& textures = m_state.views.lsvTextures;
    const int selected = textures.selectedRow();
    if (selected < 0)
        return;
    // The rows after it keep their numbers: animations refer to them.
    m_state.document().DeleteTexture(textures.key(selected));
    ShowViewing();
    ClearTextureEdition();
}

void ObjectTexturePage::cmdCancel_Click()
{
    m_state.views.lsvTextures.setSelectedRow(-1);
    ShowViewing();
}

void ObjectTexturePage::ShowViewing()
{
    ResetTextureEdition(false);
    LockCornerBoxes(false);
    EnableTileBox(false);
    EnableFlips(false);
}

void ObjectTexturePage::ResetTextureEdition(bool enabled)
{
    m_ui->cmdEdit->setText(Edit);
    m_ui->cmdAdd->setText(Add);
    m_ui->cmdSides->setText(MakeTriad);
    for (QPushButton* button : {m_ui->cmdEdit, m_ui->cmdAttrib, m_ui->cmdDel, m_ui->cmdSides})
        button->setEnabled(enabled);
}

void ObjectTexturePage::ClearTextureEdition()
{
    CornerBoxes::Hold hold(Corners());
    Corners().Clear();
    m_ui->txtTextureNo->clear();
    m_ui->txtTileNo->clear();
}

void ObjectTexturePage::EnableFlips(bool enabled)
{
    m_ui->cmdFlipHor->setEnabled(enabled);
    m_ui->cmdFlipVert->setEnabled(enabled);
}

void ObjectTexturePage::EnableTileBox(bool enabled)
{
    EditBoxLook::Enable(*m_ui->txtTileNo, enabled);
}

// --- Storing the frame ---

bool ObjectTexturePage::StoreEditedTexture(const QString& key)
{
    const int lo = Corners().FindLoCorner();
    const int hi = Corners().FindHiCorner();
    if (lo < 0 || hi < 0) {
        m_state.ShowStatus(tr("Nothing was stored: no corner is marked Lo and Hi. A texture read from a level whose "
                              "sub-pixel bytes are not 1 and 255 has no such corners; press Add to enter it anew."));
        return false;
    }
    const TextureGeometry::TilePlace place =
        TextureGeometry::HoldInOneTile(BoxValue(m_ui->txtTileNo), BoxValue(Corners().row(lo).y),
                                       BoxValue(Corners().row(hi).y));
    const int xlo = BoxValue(Corners().row(lo).x);
    const int xhi = BoxValue(Corners().row(hi).x);

    std::optional<ListViewModel::Row> row = StoreRow(key);
    if (!row)
        return false;

    const std::array<QPoint, 4> corners = TextureGeometry::StoredCorners(lo, xlo, place.ylo, xhi, place.yhi);
    const std::array<QPoint, 4> bytes = TextureGeometry::SubPixelBytes(lo);
    QStringList& cells = row->subItems;
    const auto put = [&cells](int column, int value) {
        while (cells.size() < column)
            cells.append(QString());
        cells[column - 1] = QString::number(value);
    };
    put(ObjectTextureRow::TileColumn, place.tile);
    put(ObjectTextureRow::TransColumn, m_attribute);
    for (int i = 0; i < 4; ++i) {
        // A triangle has no fourth corner: zeros, whatever the boxes hold.
        const bool unused = i == 3 && m_sides != 4;
        const QPoint corner = unused ? QPoint() : corners[size_t(i)];
        const QPoint byte = unused ? QPoint() : bytes[size_t(i)];
        put(ObjectTextureRow::XColumn(i), corner.x());
        put(ObjectTextureRow::YColumn(i), corner.y());
        put(ObjectTextureRow::XHiColumn(i), byte.x());
        put(ObjectTextureRow::YHiColumn(i), byte.y());
    }
    ListDocument& document = m_state.document();
    if (!(key.isEmpty() ? document.AddTexture(*row) : document.EditTexture(key, cells)))
        return false;
    WarnOfBytesOutOfRange(row->text, {xlo, xhi, place.ylo, place.yhi});
    return true;
}

std::optional<ListViewModel::Row> ObjectTexturePage::StoreRow(const QString& key)
{
    const ListViewModel& textures = m_state.views.lsvTextures;
    if (!key.isEmpty()) {
        const int row = textures.findKey(key);
        if (row < 0) {
            m_state.ShowStatus(tr("Nothing was stored: the texture %1 is no longer in the list.").arg(key));
            return std::nullopt;
        }
        return textures.row(row);
    }
    const qint64 count = textures.count();
    const qint64 asked = NumberText::valueOf(m_ui->txtTextureNo->text());
    const qint64 number = RowKeyNumber::FirstFree(textures, KeyPrefix, asked);
    if (number != asked)
        m_state.ShowStatus(tr("Texture number %1 is still in use: the new texture is number %2.").arg(asked).arg(number));
    return ListViewModel::Row{RowKeyNumber::Key(KeyPrefix, number), RowKeyNumber::RowText(number, count), {},
                              Qt::Unchecked};
}

void ObjectTexturePage::WarnOfBytesOutOfRange(const QString& number, const QList<int>& values)
{
    for (int value : values) {
        if (value < 0 || value > 255) {
            m_state.ShowStatus(tr("Texture %1 was stored with the coordinate %2: a list file keeps 0 to 255 "
                                  "within a tile, so it will not read back as typed.")
                                   .arg(number)
                                   .arg(value));
            return;
        }
    }
}

// --- Loading a row ---

void ObjectTexturePage::lsvTextures_ItemClick(int row)
{
    if (row >= 0 && row < m_state.views.lsvTextures.count())
        LoadTextureRow(row);
}

void ObjectTexturePage::LoadTextureRow(int row)
{
    CornerBoxes::Hold hold(Corners());
    m_ui->cmdEdit->setText(Edit);
    m_ui->cmdAdd->setText(Add);
    LockCornerBoxes(false);
    EnableTileBox(false);

    const ObjectTextureRow texture = ObjectTextureRow::Read(m_state.views.lsvTextures, row);
    m_ui->txtTileNo->setText(QString::number(texture.tile));
    m_ui->txtTextureNo->setText(m_state.views.lsvTextures.text(row));
    // The attribute comes from "X1", not "Trans": Edit then Accept keeps
    // what the row held as X1 unless the attribute button is pressed.
    ShowAttribute(TextureGeometry::KnownAttribute(texture.firstX));

    QStringList markers;
    for (int i = 0; i < 4; ++i) {
        const QPoint corner = texture.BitmapCorner(i);
        Corners().row(i).x->setText(QString::number(corner.x()));
        Corners().row(i).y->setText(QString::number(corner.y()));
        markers << TextureGeometry::MarkerOf(texture.subPixels[size_t(i)].x(), texture.subPixels[size_t(i)].y());
    }
    const int sides = texture.IsTriangle() ? 3 : 4;
    if (sides == 3) {
        Corners().row(3).x->clear();
        Corners().row(3).y->clear();
    }
    Corners().SetMarkers(markers);
    SetFlipState(Corners().FindLoCorner());
    CompleteFourthCorner();
    SetCornerLabels();
    SetFlipCaptions();
    ResetTextureEdition(true);
    // The sides button offers the other shape than the one loaded.
    ShowSides(sides);
    LockCornerBoxes(false);
    EnableFlips(false);
    m_ui->cmdDel->setEnabled(true);
    if (Corners().FindLoCorner() < 0 || Corners().FindHiCorner() < 0)
        m_state.ShowStatus(tr("Texture %1 has no corner with both sub-pixel bytes 1 (Lo) and one with both 255 (Hi): "
                              "Edit then Accept would store nothing.")
                               .arg(m_state.views.lsvTextures.text(row)));
}

void ObjectTexturePage::ShowAttribute(int value)
{
    m_attribute = value;
    m_ui->cmdAttrib->setText(TextureGeometry::AttributeCaption(value));
}

void ObjectTexturePage::ShowSides(int sides)
{
    m_sides = sides;
    m_ui->cmdSides->setText(sides == 4 ? MakeTriad : MakeQuad);
}

void ObjectTexturePage::SetFlipState(int loRow)
{
    m_flips = TextureGeometry::FlipState(loRow);
}

void ObjectTexturePage::SetFlipCaptions()
{
    m_ui->cmdFlipHor->setText(m_flips.horizontal ? QStringLiteral("Un-flip Horiz.") : QStringLiteral("Flip Horiz."));
    m_ui->cmdFlipVert->setText(m_flips.vertical ? QStringLiteral("Un-flip Vert.") : QStringLiteral("Flip Vert."));
}

void ObjectTexturePage::SetCornerLabels()
{
    Corners().SetCornerLabels(m_flips);
}

void ObjectTexturePage::CompleteFourthCorner()
{
    Corners().CompleteFourthCorner();
}

void ObjectTexturePage::LockCornerBoxes(bool openLoHi)
{
    Corners().LockCornerBoxes(openLoHi, m_sides == 3);
}

// --- Attribute, sides and flips ---

void ObjectTexturePage::cmdAttrib_Click()
{
    if (const std::optional<int> next =
            TextureGeometry::NextAttribute(m_state.document().ListVersion(), m_ui->cmdAttrib->text()))
        ShowAttribute(*next);
}

void ObjectTexturePage::cmdSides_Click()
{
    if (ButtonCaption::Is(*m_ui->cmdSides, MakeTriad)) {
        ShowSides(3);
        Corners().ShowFourthCornerInUse(false);
    } else if (ButtonCaption::Is(*m_ui->cmdSides, MakeQuad)) {
        ShowSides(4);
        Corners().ShowFourthCornerInUse(true);
    }
}

void ObjectTexturePage::cmdFlipHor_Click()
{
    Flip(true);
}

void ObjectTexturePage::cmdFlipVert_Click()
{
    Flip(false);
}

void ObjectTexturePage::Flip(bool horizontal)
{
    CornerBoxes::Hold hold(Corners());
    // Whole rows move, a triangle's fourth row included.
    if (horizontal) {
        Corners().ExchangeRows(0, 1);
        Corners().ExchangeRows(3, 2);
        m_flips.horizontal = !m_flips.horizontal;
    } else {
        Corners().ExchangeRows(0, 3);
        Corners().ExchangeRows(1, 2);
        m_flips.vertical = !m_flips.vertical;
    }
    SetCornerLabels();
    SetFlipCaptions();
    LockCornerBoxes(true);
}

// --- Drawing ---

void ObjectTexturePage::cmdDraw_Click()
{
    m_state.lsvDrawList.clear();
    // Checklist row k draws the texture keyed Tk: texture 0 has no row, and
    // the last row finds nothing.
    if (m_state.lsvObjects.count() >= 3 && m_state.document().IsBitmapLoaded())
        m_state.AppendTextureOutlines(m_checklist->TickedKeys());
    m_state.RedrawOutlines();
}

// --- A rectangle picked on the bitmap ---

bool ObjectTexturePage::TakeSelection(int tile, int x1, int y1, int x2, int y2)
{
    m_ui->txtTileNo->setText(QString::number(tile));
    const bool made = SetCornersFromSelection(x1, y1, x2, y2);
    if (made) {
        LockCornerBoxes(true);
        return true;
    }
    for (int i = 0; i < 4; ++i)
        Corners().row(i).hiLo->clear();
    for (int i : {0, 2}) {
        Corners().row(i).x->clear();
        Corners().row(i).y->clear();
    }
    LockCornerBoxes(false);
    return false;
}

bool ObjectTexturePage::SetCornersFromSelection(int x1, int y1, int x2, int y2)
{
    if (x1 != x2) {
        Corners().row(0).x->setText(QString::number(qMin(x1, x2)));
        Corners().row(2).x->setText(QString::number(qMax(x1, x2)));
    }
    if (y1 != y2) {
        Corners().row(0).y->setText(QString::number(qMin(y1, y2)));
        Corners().row(2).y->setText(QString::number(qMax(y1, y2)));
    }
    return x1 != x2 && y1 != y2;
}
