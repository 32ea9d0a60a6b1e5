#include "ui/textures/SpriteTexturePage.h"

#include "ui/common/ButtonCaption.h"
#include "ui/common/DeletionQuestion.h"
#include "ui/common/DrawChecklist.h"
#include "ui/common/EditBoxLook.h"
#include "ui/common/EditorState.h"
#include "ui/common/IPromptService.h"
#include "common/NumberText.h"
#include "list/RecordBuilder.h"
#include "list/RowKeyNumber.h"
#include "list/tables/SpriteRowFormat.h"
#include "list/SpriteTextureRow.h"
#include "list/TextureGeometry.h"
#include "ui_SpriteTexturePage.h"

#include <vector>

namespace {

const QString Add = QStringLiteral("Add");
const QString Edit = QStringLiteral("Edit");
const QString Accept = QStringLiteral("Accept");
constexpr int OkCancelExclamation = IPromptService::vbOKCancel | IPromptService::vbExclamation;

struct FaultMessage
{
    SpriteEntry::Fault fault;
    const char* title;
    const char* text;
};

// What each fault tells the user; the first lines ending in a colon list
// nothing after them, as the frame has always said it.
constexpr FaultMessage FaultMessages[] = {
    {SpriteEntry::Fault::Blank, "Missing Coordinate",
     "Some values have been left blank:\r\nAll edit boxes must have values."},
    {SpriteEntry::Fault::NotNumeric, "Wrong Value Type",
     "Some values are not numerical:\r\nAll entries must be numerical values."},
    {SpriteEntry::Fault::OutOfRange, "Wrong Value Type",
     "Some values are over the limit of possible coordinates:\r\nAll entries must be between -32768 and 32767."},
    {SpriteEntry::Fault::NegativeCorner, "Wrong Coordinate Values", "All X and Y coordinates must be positive."},
    {SpriteEntry::Fault::XOrder, "Wrong Coordinate Values", "X1 must be smaller than X2"},
    {SpriteEntry::Fault::YOrder, "Wrong Coordinate Values", "Y1 must be smaller than Y2"},
    {SpriteEntry::Fault::TopOrder, "Wrong Offset Values", "Top must be smaller than Bottom"},
    {SpriteEntry::Fault::LeftOrder, "Wrong Offset Values", "Left must be smaller than Right"},
};

int TileOf(const QString& text)
{
    return int(qBound(qint64(0), NumberText::valueOf(text), qint64(0xFFFF)));
}

} // namespace

SpriteTexturePage::SpriteTexturePage(EditorState& state, QWidget* parent)
    : EditorPage(state, parent)
    , m_ui(std::make_unique<Ui::SpriteTexturePage>())
{
    m_ui->setupUi(this);
    m_ui->lsvSpriteIndex->setListModel(&m_state.lsvSpriteIndex);
    m_ui->lsvSprites->setListModel(&m_state.views.lsvSprites);
    m_ui->lsvSpriteDrawLisr->setListModel(&m_state.lsvSpriteDrawLisr);
    m_checklist = new DrawChecklist(*m_ui->lsvSpriteIndex, m_state.lsvSpriteIndex, this);
    // The key of the row being edited is the page's own business.
    m_ui->lblKey->setVisible(false);
    ConnectControls();
}

SpriteTexturePage::~SpriteTexturePage() = default;

void SpriteTexturePage::ConnectControls()
{
    const Ui::SpriteTexturePage& u = *m_ui;
    connect(u.cmdSpriteAdd, &QPushButton::clicked, this, &SpriteTexturePage::cmdSpriteAdd_Click);
    connect(u.cmdSpriteEdit, &QPushButton::clicked, this, &SpriteTexturePage::cmdSpriteEdit_Click);
    connect(u.cmdSpriteDelete, &QPushButton::clicked, this, &SpriteTexturePage::cmdSpriteDelete_Click);
    connect(u.cmdSpriteCancel, &QPushButton::clicked, this, &SpriteTexturePage::CancelSpriteEdition);
    connect(u.cmdDrawSprite, &QPushButton::clicked, this, &SpriteTexturePage::cmdDrawSprite_Click);
    // The sequence page ticks sprites of the checklist and asks for them drawn.
    connect(&m_state, &EditorState::drawSpritesRequested, this, &SpriteTexturePage::cmdDrawSprite_Click);
    connect(u.cmdSpriteColor, &QPushButton::clicked, this, [this] { m_state.ChooseOutlineColor(); });
    connect(u.lsvSprites, &ListView::ItemClick, this, &SpriteTexturePage::lsvSprites_ItemClick);
    // The count always tells how many sprite textures the list holds.
    const ListRows& sprites = m_state.views.lsvSprites;
    connect(&sprites, &QAbstractItemModel::rowsInserted, this, &SpriteTexturePage::ShowSpriteCount);
    connect(&sprites, &QAbstractItemModel::rowsRemoved, this, &SpriteTexturePage::ShowSpriteCount);
}

void SpriteTexturePage::ShowSpriteCount()
{
    if (m_state.document().IsListOpen())
        m_ui->txtNum->setText(QString::number(m_state.views.lsvSprites.count()));
}

QLineEdit* SpriteTexturePage::Box(SpriteEntry::Box box) const
{
    const Ui::SpriteTexturePage& u = *m_ui;
    const std::array<QLineEdit*, SpriteEntry::BoxCount> boxes{u.txtS_X_0, u.txtS_X_1, u.txtS_Y_0, u.txtS_Y_1,
                                                             u.txtTop,   u.txtBottom, u.txtLeft, u.txtRight};
    return boxes[size_t(box)];
}

QList<QLineEdit*> SpriteTexturePage::InputBoxes() const
{
    QList<QLineEdit*> boxes{m_ui->txtTileSNo};
    for (int box = 0; box < SpriteEntry::BoxCount; ++box)
        boxes.append(Box(SpriteEntry::Box(box)));
    return boxes;
}

// --- The page's life with the window ---

void SpriteTexturePage::ResetPage()
{
    m_ui->txtNum->clear();
    CancelSpriteEdition();
}

void SpriteTexturePage::ClearPage()
{
    m_state.lsvSpriteIndex.clear();
    m_state.document().tables().sprites.clear();
    m_state.lsvSpriteDrawLisr.clear();
}

void SpriteTexturePage::ListLoaded()
{
    CancelSpriteEdition();
    ShowSpriteCount();
}

void SpriteTexturePage::ListClosed()
{
    CancelSpriteEdition();
    m_ui->txtNum->clear();
}

// --- The edition frame ---

void SpriteTexturePage::ClearSpriteEdition()
{
    for (QLineEdit* box : InputBoxes())
        EditBoxLook::Empty(*box);
    EditBoxLook::Empty(*m_ui->txtNo);
}

void SpriteTexturePage::EnableSpriteBoxes(bool enabled)
{
    for (QLineEdit* box : InputBoxes())
        EditBoxLook::Enable(*box, enabled);
}

void SpriteTexturePage::ResetSpriteEdition(bool enabled)
{
    m_ui->cmdSpriteAdd->setText(Add);
    m_ui->cmdSpriteEdit->setText(Edit);
    m_ui->cmdSpriteEdit->setEnabled(enabled);
    m_ui->cmdSpriteDelete->setEnabled(enabled);
}

void SpriteTexturePage::CancelSpriteEdition()
{
    ClearSpriteEdition();
    EnableSpriteBoxes(false);
    ResetSpriteEdition(false);
    m_ui->lblKey->clear();
    m_shownNumber.reset();
}

void SpriteTexturePage::TakeSelection(bool made, int tile, int x1, int y1, int x2, int y2)
{
    ClearSpriteEdition();
    if (!made)
        return;
    m_ui->txtS_X_0->setText(QString::number(qMin(x1, x2)));
    m_ui->txtS_Y_0->setText(QString::number(qMin(y1, y2)));
    m_ui->txtS_X_1->setText(QString::number(qMax(x1, x2)));
    m_ui->txtS_Y_1->setText(QString::number(qMax(y1, y2)));
    // The tile goes with the corners, or Y would be stored against tile 0.
    m_ui->txtTileSNo->setText(QString::number(tile));
}

// --- Add, Edit, Delete ---

void SpriteTexturePage::cmdSpriteAdd_Click()
{
    if (!ButtonCaption::Is(*m_ui->cmdSpriteAdd, Add)) {
        AcceptAdding();
        return;
    }
    if (!m_state.document().IsListOpen())
        return;
    ClearSpriteEdition();
    EnableSpriteBoxes(true);
    m_ui->cmdSpriteAdd->setText(Accept);
    // The number the new sprite will get.
    const RecordTable<SpriteTextureEntry>& sprites = m_state.document().tables().sprites;
    const qint64 number = RowKeyNumber::FirstFree(sprites, sprites.count());
    m_ui->txtNo->setText(RowKeyNumber::RowText(number, sprites.count()));
}

void SpriteTexturePage::AcceptAdding()
{
    if (!ValidateSpriteEdition())
        return;
    // The count shown is the one taken before the addition, which formed
    // the new sprite's key.
    const qint64 before = m_state.views.lsvSprites.count();
    if (!StoreEditedSprite(true, *m_entry))
        return;
    CancelSpriteEdition();
    m_ui->txtNum->setText(QString::number(before));
}

void SpriteTexturePage::cmdSpriteEdit_Click()
{
    if (ButtonCaption::Is(*m_ui->cmdSpriteEdit, Edit)) {
        EnableSpriteBoxes(true);
        m_ui->cmdSpriteEdit->setText(Accept);
        return;
    }
    AcceptEditing();
}

void SpriteTexturePage::AcceptEditing()
{
    if (!ValidateSpriteEdition())
        return;
    StoreEditedSprite(false, *m_entry);
    CancelSpriteEdition();
}

void SpriteTexturePage::cmdSpriteDelete_Click()
{
    const RecordTable<SpriteTextureEntry>& sprites = m_state.document().tables().sprites;
    if (sprites.count() == 0)
        return;
    const int row = m_shownNumber ? sprites.rowOfNumber(*m_shownNumber) : -1;
    if (row >= 0 && !DeletionQuestion::AskForSprite(m_state, row, SpriteRowFormat::Cell(sprites.at(row), 0)))
        return;
    if (!ConfirmDeletion())
        return;
    // No renumbering: the sequences name sprites by number, and the user was
    // told to mend them.
    if (row < 0 || !m_state.document().DeleteSprite(*m_shownNumber)) {
        m_state.ShowStatus(tr("Nothing was deleted: choose the sprite to delete in the list first."));
        return;
    }
    CancelSpriteEdition();
}

bool SpriteTexturePage::ConfirmDeletion()
{
    const QString text = QStringLiteral("Deleting any sprite texture will make the Sprite Sequence List ")
                         + QStringLiteral("useless. ") + QStringLiteral("\r\n")
                         + QStringLiteral("Make very sure to remove in the Sequence List the textures that ")
                         + QStringLiteral("no longer exists!");
    return m_state.prompts().MsgBox(text, OkCancelExclamation, QStringLiteral("Delicate Deletion"))
           == IPromptService::vbOK;
}

// --- Checking and storing ---

bool SpriteTexturePage::ValidateSpriteEdition()
{
    std::array<QString, SpriteEntry::BoxCount> texts;
    for (int box = 0; box < SpriteEntry::BoxCount; ++box)
        texts[size_t(box)] = Box(SpriteEntry::Box(box))->text();
    m_entry.emplace(texts);
    const SpriteEntry::Check check = m_entry->Validate();
    if (check.fault == SpriteEntry::Fault::None)
        return true;
    ReportFault(check);
    return false;
}

void SpriteTexturePage::ReportFault(const SpriteEntry::Check& check)
{
    for (const FaultMessage& message : FaultMessages) {
        if (message.fault != check.fault)
            continue;
        m_state.prompts().MsgBox(QString::fromLatin1(message.text), OkCancelExclamation,
                                 QString::fromLatin1(message.title));
        break;
    }
    // The caret goes back to the box at fault.
    QLineEdit* box = Box(check.box);
    box->setFocus();
    box->selectAll();
}

bool SpriteTexturePage::StoreEditedSprite(bool isNew, const SpriteEntry& entry)
{
    const RecordTable<SpriteTextureEntry>& sprites = m_state.document().tables().sprites;
    const int edited = !isNew && m_shownNumber ? sprites.rowOfNumber(*m_shownNumber) : -1;
    if (!isNew && edited < 0) {
        m_state.ShowStatus(tr("Nothing was stored: the sprite being edited is no longer in the list."));
        return false;
    }
    using E = SpriteEntry;
    const int tile = TileOf(m_ui->txtTileSNo->text());
    RecordBuilder<SpriteTexture> record(isNew ? SpriteTexture{} : sprites.at(edited).record);
    record.set({{SpriteTextureRow::TileColumn, tile},
                {SpriteTextureRow::XColumn, entry.Value(E::X1)},
                {SpriteTextureRow::YColumn, entry.Value(E::Y1) - qint64(tile) * TextureGeometry::TileSize},
                {SpriteTextureRow::WidthColumn, SpriteTextureRow::SizeOf(entry.Value(E::X2) - entry.Value(E::X1))},
                {SpriteTextureRow::HeightColumn, SpriteTextureRow::SizeOf(entry.Value(E::Y2) - entry.Value(E::Y1))},
                {SpriteTextureRow::LeftColumn, entry.Value(E::Left)},
                {SpriteTextureRow::TopColumn, entry.Value(E::Top)},
                {SpriteTextureRow::RightColumn, entry.Value(E::Right)},
                {SpriteTextureRow::BottomColumn, entry.Value(E::Bottom)}});
    if (!record.ok()) {
        m_state.ShowStatus(tr("Nothing was stored: %1. A list file keeps X and Y within the tile and sprites up "
                              "to 256 pixels across.")
                               .arg(record.refusal()));
        return false;
    }
    ListDocument& document = m_state.document();
    if (!isNew)
        return document.EditSprite(*m_shownNumber, record.record());
    return document.AddSprite(NewEntry(record.record()));
}

SpriteTextureEntry SpriteTexturePage::NewEntry(const SpriteTexture& record)
{
    const RecordTable<SpriteTextureEntry>& sprites = m_state.document().tables().sprites;
    const qint64 count = sprites.count();
    const qint64 number = RowKeyNumber::FirstFree(sprites, count);
    if (number != count)
        m_state.ShowStatus(
            tr("Sprite number %1 is still in use after a deletion: the new sprite is number %2.").arg(count).arg(number));
    return SpriteTextureEntry{record, qint32(number), RowKeyNumber::Width(number, count)};
}

// --- Loading a row ---

void SpriteTexturePage::lsvSprites_ItemClick(int row)
{
    const auto& sprites = m_state.views.lsvSprites;
    if (row < 0 || row >= sprites.count())
        return;
    LoadSprite(sprites.entry(row));
    ResetSpriteEdition(true);
    EnableSpriteBoxes(false);
}

void SpriteTexturePage::LoadSprite(const SpriteTextureEntry& entry)
{
    const SpriteTextureRow sprite = SpriteTextureRow::Of(entry.record);
    m_shownNumber = entry.number;
    m_ui->lblKey->setText(SpriteRowFormat::Key(entry));
    m_ui->txtTileSNo->setText(QString::number(sprite.tile));
    m_ui->txtNo->setText(SpriteRowFormat::Cell(entry, 0));
    const QPoint first = sprite.FirstCorner();
    const QPoint second = sprite.SecondCorner();
    m_ui->txtS_X_0->setText(QString::number(first.x()));
    m_ui->txtS_Y_0->setText(QString::number(first.y()));
    m_ui->txtS_X_1->setText(QString::number(second.x()));
    m_ui->txtS_Y_1->setText(QString::number(second.y()));
    m_ui->txtLeft->setText(QString::number(sprite.left));
    m_ui->txtTop->setText(QString::number(sprite.top));
    m_ui->txtRight->setText(QString::number(sprite.right));
    m_ui->txtBottom->setText(QString::number(sprite.bottom));
}

// --- Drawing ---

void SpriteTexturePage::cmdDrawSprite_Click()
{
    m_state.lsvSpriteDrawLisr.clear();
    if (m_state.lsvSpriteIndex.count() >= 3 && m_state.document().IsBitmapLoaded())
        m_state.AppendSpriteOutlines(m_checklist->TickedNumbers());
    m_state.RedrawOutlines();
}
