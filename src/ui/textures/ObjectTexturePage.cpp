#include "ui/textures/ObjectTexturePage.h"

#include "ui/common/ButtonCaption.h"
#include "ui/common/DeletionQuestion.h"
#include "ui/textures/CornerBoxes.h"
#include "ui/textures/TextureDrag.h"
#include "ui/bitmap/ucScrollPic.h"
#include "ui/common/DrawChecklist.h"
#include "ui/common/EditBoxLook.h"
#include "ui/common/EditorState.h"
#include "common/NumberText.h"
#include "list/ObjectTextureRow.h"
#include "list/RecordBuilder.h"
#include "list/RowKeyNumber.h"
#include "list/SubPixelConvention.h"
#include "ui_ObjectTexturePage.h"

#include <QCheckBox>

#include <vector>

namespace {

const QString Add = QStringLiteral("Add");
const QString Edit = QStringLiteral("Edit");
const QString Accept = QStringLiteral("Accept");
const QString MakeTriad = QStringLiteral("Make Triad");
const QString MakeQuad = QStringLiteral("Make Quad");
// Cyan: rare in textures and unlike the see-through magenta of most bitmaps.
const QColor EditColor(0, 255, 255);
const QColor EditColorBesideCyan(255, 0, 255);

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
    }}, [this] { return m_state.BitmapHeight(); });
    ConnectControls();
    ConnectDrag();
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
    connect(u.chkFreeCorners, &QCheckBox::clicked, this, &ObjectTexturePage::chkFreeCorners_Click);
    connect(m_corners.get(), &CornerBoxes::inputRefused, &m_state, &EditorState::ShowStatus);
    for (int i = 0; i < 4; ++i) {
        for (QLineEdit* box : {Corners().row(i).x, Corners().row(i).y})
            connect(box, &QLineEdit::textChanged, this, &ObjectTexturePage::ShowEditOutline);
    }
}

bool ObjectTexturePage::IsEditingFrame() const
{
    return ButtonCaption::Is(*m_ui->cmdAdd, Accept) || ButtonCaption::Is(*m_ui->cmdEdit, Accept);
}

// --- The page's life with the window ---

void ObjectTexturePage::ResetPage()
{
    ForgetEditedTexture();
    // The window starts with the sides button offering a quad.
    m_sides = 4;
    m_ui->cmdSides->setText(MakeQuad);
    m_ui->cmdAdd->setEnabled(false);
    m_ui->cmdCancel->setEnabled(false);
}

void ObjectTexturePage::ClearPage()
{
    m_state.lsvObjects.clear();
    m_state.document().tables().textures.clear();
    m_state.lsvDrawList.clear();
    m_ui->txtTextureQty->clear();
    m_ui->txtTileQty->clear();
    ForgetEditedTexture();
}

void ObjectTexturePage::ListLoaded()
{
    // A texture half entered belongs to the list that was open before.
    ForgetEditedTexture();
    m_ui->cmdAdd->setEnabled(true);
    m_ui->cmdCancel->setEnabled(true);
}

void ObjectTexturePage::ListClosed()
{
    ForgetEditedTexture();
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
    m_attributeChosen = false;
    m_ui->txtTileNo->clear();
    EnableTileBox(true);
    {
        CornerBoxes::Hold hold(Corners());
        Corners().SetMarkers({QStringLiteral("Lo"), QString(), QStringLiteral("Hi"), QString()});
    }
    m_flips = {};
    SetCornerLabels();
    ShowSides(4);
    SetFreeCorners(false);
    SetFlipCaptions();
    for (QPushButton* button : {m_ui->cmdSides, m_ui->cmdAttrib, m_ui->cmdFlipHor, m_ui->cmdFlipVert})
        button->setEnabled(true);
    m_ui->cmdAdd->setText(Accept);
    LockCornerBoxes(true);
    EnableFreeCorners(true);
    ShowEditOutline();
}

void ObjectTexturePage::AcceptAdding()
{
    // What cannot be stored stays in the frame to be put right.
    if (!StoreEditedTexture(std::nullopt))
        return;
    m_ui->cmdAdd->setText(Add);
    ShowViewing();
}

void ObjectTexturePage::ShowTextureNumber()
{
    const RecordTable<TextureEntry>& textures = m_state.document().tables().textures;
    const qint64 count = textures.count();
    // While adding: the number the new texture will get, the row count
    // unless a row kept that number through a deletion.
    const bool adding = ButtonCaption::Is(*m_ui->cmdAdd, Accept);
    m_ui->txtTextureNo->setText(QString::number(adding ? RowKeyNumber::FirstFree(textures, count) : count));
}

void ObjectTexturePage::cmdEdit_Click()
{
    if (m_state.views.lsvTextures.count() == 0)
        return;
    if (ButtonCaption::Is(*m_ui->cmdEdit, Edit)) {
        m_ui->cmdEdit->setText(Accept);
        EnableFlips(true);
        LockCornerBoxes(true);
        EnableFreeCorners(true);
        ShowEditOutline();
        return;
    }
    AcceptEditing();
}

void ObjectTexturePage::AcceptEditing()
{
    const auto& textures = m_state.views.lsvTextures;
    const int selected = textures.selectedRow();
    bool stored = false;
    if (selected < 0) {
        m_state.ShowStatus(tr("Nothing was stored: no texture of the list is selected."));
    } else {
        stored = StoreEditedTexture(textures.entry(selected).number);
        // What cannot be stored stays in the frame to be put right.
        if (!stored)
            return;
    }
    ForgetEditedTexture();
}

void ObjectTexturePage::cmdDel_Click()
{
    const auto& textures = m_state.views.lsvTextures;
    const int selected = textures.selectedRow();
    if (selected < 0)
        return;
    // The rows after it keep their numbers and keys; the ranges follow
    // their textures down one place.
    const QString number = textures.text(selected);
    if (!DeletionQuestion::AskForTexture(m_state, selected, number))
        return;
    DeleteTextureCommand::Outcome outcome;
    if (m_state.document().DeleteTexture(textures.entry(selected).number, &outcome))
        m_state.ShowStatus(DeletionQuestion::TextureDeleted(number, outcome));
    else if (!outcome.refusal.isEmpty())
        m_state.ShowStatus(outcome.refusal);
    ForgetEditedTexture();
}

void ObjectTexturePage::cmdCancel_Click()
{
    m_state.views.lsvTextures.setSelectedRow(-1);
    ShowViewing();
}

void ObjectTexturePage::DocumentRewound()
{
    ListLoaded();
    // The chosen row, as the undo or redo left it, is shown again.
    const ListRows& textures = m_state.views.lsvTextures;
    const int chosen = textures.selectedRow();
    if (chosen >= 0 && chosen < textures.count())
        LoadTextureRow(chosen);
}

void ObjectTexturePage::ForgetEditedTexture()
{
    // An empty quad, unflipped, with a rectangle's corners and attribute 0:
    // nothing of a texture shown or entered before stays in the frame.
    ShowSides(4);
    Corners().ShowFourthCornerInUse(true);
    SetFreeCorners(false);
    m_flips = {};
    SetFlipCaptions();
    ShowAttribute(0);
    m_attributeChosen = false;
    ShowViewing();
    ClearTextureEdition();
}

void ObjectTexturePage::ShowViewing()
{
    ResetTextureEdition(false);
    LockCornerBoxes(false);
    EnableTileBox(false);
    EnableFlips(false);
    EnableFreeCorners(false);
    ShowEditOutline();
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
    EditBoxLook::Empty(*m_ui->txtTextureNo);
    EditBoxLook::Empty(*m_ui->txtTileNo);
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

bool ObjectTexturePage::StoreEditedTexture(std::optional<qint32> number)
{
    const RecordTable<TextureEntry>& textures = m_state.document().tables().textures;
    std::optional<ObjectTextureRow> original;
    if (number) {
        const int at = textures.rowOfNumber(*number);
        if (at < 0) {
            m_state.ShowStatus(tr("Nothing was stored: the texture %1 is no longer in the list.")
                                   .arg(TextureRowFormat::Key(*number)));
            return false;
        }
        original = ObjectTextureRow::Of(textures.at(at));
    }
    // A changed corner takes the bytes its row uses; a new row, those most
    // rows of the list use.
    std::optional<SubPixelConvention> convention;
    if (original)
        convention = SubPixelConvention::Of(*original);
    if (!convention)
        convention = SubPixelConvention::MostUsed(textures);

    const EditedTexture::Stored stored = EditedTexture::Build(ReadFrame(), original, *convention);
    if (!stored.ok) {
        m_state.ShowStatus(stored.why);
        FocusCorner(stored.badRow);
        return false;
    }
    const RecordBuilder<TextureEntry> record = EditedTexture::Record(stored, m_attribute, m_sides);
    if (!record.ok()) {
        m_state.ShowStatus(tr("Nothing was stored: %1.").arg(record.refusal()));
        return false;
    }
    ListDocument& document = m_state.document();
    QString text;
    if (number) {
        if (!document.EditTexture(*number, record.record()))
            return false;
        text = TextureRowFormat::Cell(textures.at(textures.rowOfNumber(*number)), 0);
    } else {
        const TextureEntry added = NewEntry(record.record());
        if (!document.AddTexture(added))
            return false;
        text = TextureRowFormat::Cell(added, 0);
    }
    ReportStored(text, stored, original);
    return true;
}

EditedTexture::Frame ObjectTexturePage::ReadFrame() const
{
    EditedTexture::Frame frame;
    frame.tile = BoxValue(m_ui->txtTileNo);
    frame.sides = m_sides;
    frame.freeCorners = Corners().FreeCorners();
    frame.loRow = Corners().FindLoCorner();
    frame.hiRow = Corners().FindHiCorner();
    frame.flips = m_flips;
    for (int i = 0; i < 4; ++i)
        frame.boxes[size_t(i)] = QPoint(BoxValue(Corners().row(i).x), BoxValue(Corners().row(i).y));
    return frame;
}

TextureEntry ObjectTexturePage::NewEntry(const TextureEntry& record)
{
    const RecordTable<TextureEntry>& textures = m_state.document().tables().textures;
    const qint64 count = textures.count();
    const qint64 asked = NumberText::valueOf(m_ui->txtTextureNo->text());
    const qint64 number = RowKeyNumber::FirstFree(textures, asked);
    if (number != asked)
        m_state.ShowStatus(tr("Texture number %1 is still in use: the new texture is number %2.").arg(asked).arg(number));
    TextureEntry entry = record;
    entry.number = qint32(number);
    entry.width = RowKeyNumber::Width(number, count);
    return entry;
}

void ObjectTexturePage::ReportStored(const QString& number, const EditedTexture::Stored& stored,
                                     const std::optional<ObjectTextureRow>& original)
{
    // What a kept rule stored that the user did not type, and the way back.
    int top = stored.corners[0].y();
    for (int i = 1; i < (m_sides == 4 ? 4 : 3); ++i)
        top = qMin(top, stored.corners[size_t(i)].y());
    const bool attributeFromX1 = original && !m_attributeChosen && original->trans != m_attribute;
    if (stored.keptBelowTileTop) {
        const QString attribute =
            attributeFromX1 ? tr(" Its attribute %1 was read from X1 (Trans %2).").arg(m_attribute).arg(original->trans)
                            : QString();
        m_state.ShowStatus(tr("Texture %1 stored at Y %2 of tile %3, not Y %4: a top Y of 256 keeps the tile "
                              "named. To store Y %4, Edit and type %4 as its top Y.")
                               .arg(number)
                               .arg(top)
                               .arg(stored.tile)
                               .arg(top - TextureGeometry::TileSize)
                           + attribute);
        return;
    }
    if (attributeFromX1) {
        m_state.ShowStatus(tr("Texture %1 stored as %2, read from X1 (Trans was %3): Edit and press %2 to choose "
                              "another.")
                               .arg(number, TextureGeometry::AttributeCaption(m_attribute))
                               .arg(original->trans));
        return;
    }
    for (int i = 0; i < (m_sides == 4 ? 4 : 3); ++i) {
        const QPoint corner = stored.corners[size_t(i)];
        for (int value : {corner.x(), corner.y()}) {
            if (value > 255) {
                m_state.ShowStatus(tr("Texture %1 stored with the coordinate %2: a list file keeps 0 to 255 "
                                      "within a tile, so it will not read back as typed.")
                                       .arg(number)
                                       .arg(value));
                return;
            }
        }
    }
}

void ObjectTexturePage::FocusCorner(int row)
{
    if (row < 0 || row > 3)
        return;
    QLineEdit* box = Corners().row(row).x;
    box->setFocus();
    box->selectAll();
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

    const ObjectTextureRow texture = ObjectTextureRow::Of(m_state.views.lsvTextures.entry(row));
    m_ui->txtTileNo->setText(QString::number(texture.tile));
    m_ui->txtTextureNo->setText(m_state.views.lsvTextures.text(row));
    // The attribute comes from "X1", not "Trans": Edit then Accept keeps
    // what the row held as X1 unless the attribute button is pressed.
    ShowAttribute(TextureGeometry::KnownAttribute(texture.firstX));
    m_attributeChosen = false;

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
    // A rectangle is known by its corners, whatever bytes its tool wrote;
    // anything else is edited corner by corner.
    const std::optional<TextureGeometry::LoHi> rectangle =
        sides == 4 ? TextureGeometry::RectangleLoHi(texture.corners) : std::nullopt;
    if (rectangle && (Corners().FindLoCorner() != rectangle->lo || Corners().FindHiCorner() != rectangle->hi))
        TakeRectangleMarkers(*rectangle);
    SetFreeCorners(!rectangle);
    SetFlipState(Corners().FindLoCorner());
    // A free quad's fourth corner is its own.
    if (rectangle || sides == 3)
        CompleteFourthCorner();
    SetCornerLabels();
    SetFlipCaptions();
    ResetTextureEdition(true);
    // The sides button offers the other shape than the one loaded.
    ShowSides(sides);
    LockCornerBoxes(false);
    EnableFlips(false);
    EnableFreeCorners(false);
    m_ui->cmdDel->setEnabled(true);
    ShowEditOutline();
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

// --- Free corners ---

void ObjectTexturePage::SetFreeCorners(bool free)
{
    Corners().SetFreeCorners(free);
    m_ui->chkFreeCorners->setChecked(free);
}

void ObjectTexturePage::EnableFreeCorners(bool editing)
{
    // A triangle has nothing but free corners.
    m_ui->chkFreeCorners->setEnabled(editing && m_sides == 4);
}

void ObjectTexturePage::chkFreeCorners_Click(bool checked)
{
    if (checked) {
        SetFreeCorners(true);
        LockCornerBoxes(IsEditingFrame());
        return;
    }
    const std::optional<TextureGeometry::LoHi> rectangle = BoxesFormRectangle();
    if (!rectangle) {
        SetFreeCorners(true);
        m_state.ShowStatus(tr("Free corners stay on: the four corners do not form a rectangle, which takes two X "
                              "and two Y values, one corner at each pair, Lo and Hi across."));
        return;
    }
    {
        CornerBoxes::Hold hold(Corners());
        TakeRectangleMarkers(*rectangle);
    }
    SetFreeCorners(false);
    SetFlipState(rectangle->lo);
    SetCornerLabels();
    SetFlipCaptions();
    LockCornerBoxes(IsEditingFrame());
}

std::optional<TextureGeometry::LoHi> ObjectTexturePage::BoxesFormRectangle() const
{
    if (m_sides != 4)
        return std::nullopt;
    std::array<QPoint, 4> corners;
    for (int i = 0; i < 4; ++i) {
        const std::optional<QPoint> corner = Corners().Corner(i);
        if (!corner)
            return std::nullopt;
        corners[size_t(i)] = *corner;
    }
    return TextureGeometry::RectangleLoHi(corners);
}

void ObjectTexturePage::TakeRectangleMarkers(TextureGeometry::LoHi loHi)
{
    QStringList markers(4);
    markers[loHi.lo] = QStringLiteral("Lo");
    markers[loHi.hi] = QStringLiteral("Hi");
    Corners().SetMarkers(markers);
}

// --- Attribute, sides and flips ---

void ObjectTexturePage::cmdAttrib_Click()
{
    if (const std::optional<int> next =
            TextureGeometry::NextAttribute(m_state.document().ListVersion(), m_ui->cmdAttrib->text())) {
        ShowAttribute(*next);
        m_attributeChosen = true;
    }
}

void ObjectTexturePage::cmdSides_Click()
{
    if (ButtonCaption::Is(*m_ui->cmdSides, MakeTriad)) {
        ShowSides(3);
        // A triangle's three corners are typed one by one.
        SetFreeCorners(true);
        LockCornerBoxes(IsEditingFrame());
    } else if (ButtonCaption::Is(*m_ui->cmdSides, MakeQuad)) {
        ShowSides(4);
        Corners().ShowFourthCornerInUse(true);
        LockCornerBoxes(IsEditingFrame());
    }
    EnableFreeCorners(IsEditingFrame());
    ShowEditOutline();
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
    ShowEditOutline();
}

// --- Drawing ---

void ObjectTexturePage::cmdDraw_Click()
{
    m_state.lsvDrawList.clear();
    // Checklist row k draws texture number k: texture 0 has no row, and
    // the last row finds nothing.
    if (m_state.lsvObjects.count() >= 3 && m_state.document().IsBitmapLoaded())
        m_state.AppendTextureOutlines(m_checklist->TickedNumbers());
    m_state.RedrawOutlines();
}

// --- A rectangle picked on the bitmap ---

bool ObjectTexturePage::TakeSelection(int tile, int x1, int y1, int x2, int y2)
{
    // A texture being added or edited takes its drags itself while the page
    // is shown; a drag made on another page is not for it.
    if (IsEditingFrame())
        return x1 != x2 && y1 != y2;
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

// --- The edited texture on the bitmap ---

QColor ObjectTexturePage::EditOutlineColor() const
{
    return m_state.OutlineColor == EditColor ? EditColorBesideCyan : EditColor;
}

void ObjectTexturePage::ConnectDrag()
{
    ucScrollPic* view = m_state.picture();
    if (!view)
        return;
    m_drag = new TextureDrag(*view, this);
    // The drag is this page's only while the user sees it adding or editing;
    // otherwise the bitmap's clicks go where they always went.
    m_drag->isEditing = [this] { return isVisible() && IsEditingFrame(); };
    m_drag->hasFreeCorners = [this] { return Corners().FreeCorners(); };
    m_drag->corners = [this] { return EditedCorners(); };
    connect(m_drag, &TextureDrag::rectangleDragged, this, &ObjectTexturePage::DragRectangle);
    connect(m_drag, &TextureDrag::cornerDragged, this, &ObjectTexturePage::DragCorner);
    connect(m_drag, &TextureDrag::pressedAwayFromCorners, this, [this] {
        m_state.ShowStatus(tr("Free corners: press on a corner of the outline to move it, or untick Free corners "
                              "to draw a rectangle."));
    });
}

void ObjectTexturePage::DragRectangle(int tile, QPoint lo, QPoint hi)
{
    int loRow = Corners().FindLoCorner();
    int hiRow = Corners().FindHiCorner();
    if (loRow < 0 || hiRow < 0 || (loRow + 2) % 4 != hiRow) {
        CornerBoxes::Hold hold(Corners());
        TakeRectangleMarkers({0, 2});
        m_flips = {};
        SetCornerLabels();
        SetFlipCaptions();
        LockCornerBoxes(true);
        loRow = 0;
        hiRow = 2;
    }
    m_ui->txtTileNo->setText(QString::number(tile));
    // The rectangle sync fills the two other corners. The far corner stays
    // on the tile's last pixel: a stored corner is 0 to 255 within its tile.
    const int last = TextureGeometry::TileSize - 1;
    Corners().SetCorner(loRow, lo);
    Corners().SetCorner(hiRow, QPoint(qMin(hi.x(), last), qMin(hi.y(), tile * TextureGeometry::TileSize + last)));
}

void ObjectTexturePage::DragCorner(int row, QPoint at)
{
    // A corner stays in the tile the texture lies in.
    const int top = qMax(0, BoxValue(m_ui->txtTileNo)) * TextureGeometry::TileSize;
    const int last = TextureGeometry::TileSize - 1;
    Corners().SetCorner(row, QPoint(qBound(0, at.x(), last), qBound(top, at.y(), top + last)));
}

QList<QPoint> ObjectTexturePage::EditedCorners() const
{
    QList<QPoint> corners;
    for (int i = 0; i < (m_sides == 4 ? 4 : 3); ++i) {
        const std::optional<QPoint> corner = Corners().Corner(i);
        if (!corner)
            return {};
        corners << *corner;
    }
    return corners;
}

void ObjectTexturePage::ShowEditOutline()
{
    ucScrollPic* view = m_state.picture();
    if (!view)
        return;
    const QList<QPoint> corners = IsEditingFrame() ? EditedCorners() : QList<QPoint>();
    if (corners.isEmpty())
        view->ClearEditOutline();
    else
        view->DrawEditOutline(QPolygon(corners), EditOutlineColor());
}
