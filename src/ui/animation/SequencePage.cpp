#include "ui/animation/SequencePage.h"

#include "ui/common/ListEditFollower.h"

#include "ui/common/ButtonCaption.h"
#include "ui/common/EditBoxLook.h"
#include "ui/animation/ColumnFit.h"
#include "ui/common/EditorState.h"
#include "ui/common/IPromptService.h"
#include "common/NumberText.h"
#include "ui/animation/PreviewPlayer.h"
#include "list/RowKeyNumber.h"
#include "list/tables/SequenceRowFormat.h"
#include "ui/animation/ucAnimTexture.h"
#include "ui_SequencePage.h"

#include <QTimer>

namespace {


constexpr qint64 TileHeight = 256;
// A sequence's length is a 16-bit record field.
constexpr qint64 LongestSequence = 65536;

const QColor LockedBackground(0xE0, 0xE0, 0xE0);

QString MiddleDeletionQuestion()
{
    const QString crlf = QStringLiteral("\r\n");
    return QStringLiteral("This is not the last sequence of the list!") + crlf
        + QStringLiteral("Removing it will leave unassigned sprite textures in the middle of the ")
        + QStringLiteral("sequence list.") + crlf
        + QStringLiteral("A level list file cannot be inserted into a level file")
        + QStringLiteral(" if there are unassigned sprite textures in ")
        + QStringLiteral("the middle of the sequence list!") + crlf
        + QStringLiteral("Do you still want to delete this sequence?");
}

} // namespace

SequencePage::SequencePage(EditorState& state, QWidget* parent)
    : EditorPage(state, parent)
    , m_ui(std::make_unique<Ui::SequencePage>())
{
    m_ui->setupUi(this);
    m_ui->lsvSequences->setListModel(&m_state.views.lsvSequences);
    m_ui->lsvSequenceDetails->setListModel(&m_state.views.lsvSequenceDetails);
    m_ui->lsvOneSequence->setListModel(&m_lsvOneSequence);
    m_ui->lsvOneSequence->setHiddenColumns(PreviewFrameList::HiddenColumns());
    for (ListView* list : {m_ui->lsvSequences, m_ui->lsvSequenceDetails})
        ColumnFit::FitColumnsToHeaders(*list);
    ColumnFit::FitColumnsToHeaders(*m_ui->lsvOneSequence, PreviewFrameList::NarrowestColumn);

    m_timer2 = new QTimer(this);
    m_timer2->setObjectName(QStringLiteral("Timer2"));
    m_player = new PreviewPlayer(m_state, m_lsvOneSequence, *m_ui->ucAnimTexture2, *m_ui->cmdSequnce,
                                 *m_ui->lsvSequences, *m_timer2, this);
    ConnectControls();
}

SequencePage::~SequencePage() = default;

void SequencePage::ConnectControls()
{
    Ui::SequencePage& ui = *m_ui;
    connect(ui.cmdSeqAdd, &QPushButton::clicked, this, &SequencePage::cmdSeqAdd_Click);
    connect(ui.cmdSeqEdit, &QPushButton::clicked, this, &SequencePage::cmdSeqEdit_Click);
    connect(ui.cmdSeqDelete, &QPushButton::clicked, this, &SequencePage::cmdSeqDelete_Click);
    connect(ui.cmdSeqCancel, &QPushButton::clicked, this, &SequencePage::cmdSeqCancel_Click);
    connect(ui.cmdSequnce, &QPushButton::clicked, this, &SequencePage::cmdSequnce_Click);
    connect(ui.cmdDrawSeq, &QPushButton::clicked, this, &SequencePage::cmdDrawSeq_Click);
    connect(ui.lsvSequences, &ListView::ItemClick, this, &SequencePage::lsvSequences_ItemClick);
    // The label always tells how many sprite textures there are: adding or
    // deleting one on the sprite page shows here at once.
    const ListRows& sprites = m_state.views.lsvSprites;
    connect(&sprites, &QAbstractItemModel::rowsInserted, this, &SequencePage::ShowAvailableSprites);
    connect(&sprites, &QAbstractItemModel::rowsRemoved, this, &SequencePage::ShowAvailableSprites);
    new ListEditFollower({&m_state.views.lsvSequences, &sprites}, [this] { FollowChosenSequence(); }, this);
}

// --- Hooks of the main window ---

void SequencePage::ResetPage()
{
    ResetSequenceEdit();
    m_ui->cmdSequnce->setEnabled(false);
}

void SequencePage::ClearPage()
{
    m_player->Stop();
    m_state.document().tables().sequences.clear();
    m_lsvOneSequence.clear();
    m_ui->cmdSequnce->setEnabled(false);
}

void SequencePage::ListLoaded()
{
    CancelSequenceEdition();
    ShowAvailableSprites();
}

void SequencePage::DocumentRewound()
{
    m_player->Stop();
    m_lsvOneSequence.clear();
    m_ui->cmdSequnce->setEnabled(false);
    CancelSequenceEdition();
}

void SequencePage::ListClosed()
{
    CancelSequenceEdition();
    m_ui->lblAvailSTextures->clear();
    m_availableSprites = 0;
}

void SequencePage::ShowAvailableSprites()
{
    m_availableSprites = m_state.views.lsvSprites.count();
    m_ui->lblAvailSTextures->setText(NumberText::of(m_availableSprites));
}

void SequencePage::BitmapLoaded(const QString& fileName)
{
    Preview()->Init(fileName);
}

void SequencePage::BitmapRemoved()
{
    Preview()->NoPicture();
}

void SequencePage::CancelSequenceEdition()
{
    ResetSequenceEdit();
}

void SequencePage::ClearOneSequence()
{
    m_lsvOneSequence.clear();
}

ucAnimTexture* SequencePage::Preview() const
{
    return m_ui->ucAnimTexture2;
}

// --- The edition boxes and buttons ---

void SequencePage::SetSequenceButtons(bool enable)
{
    m_ui->cmdSeqAdd->setEnabled(m_state.document().IsListOpen());
    m_ui->cmdSeqAdd->setText(QStringLiteral("Add"));
    m_ui->cmdSeqEdit->setText(QStringLiteral("Edit"));
    m_ui->cmdSeqEdit->setEnabled(enable);
    m_ui->cmdSeqDelete->setEnabled(enable);
}

void SequencePage::ClearSequenceBoxes()
{
    for (QLineEdit* box : {m_ui->txtSeqStart, m_ui->txtSeqStop, m_ui->txtSeqObject})
        EditBoxLook::Empty(*box);
    m_ui->lblSeqKey->clear();
    m_shownNumber.reset();
}

void SequencePage::EnableSequenceBoxes(bool enable)
{
    for (QLineEdit* box : {m_ui->txtSeqStart, m_ui->txtSeqStop, m_ui->txtSeqObject}) {
        box->setEnabled(enable);
        EditBoxLook::PaintBase(*box, enable ? palette().color(QPalette::Base) : LockedBackground);
    }
}

void SequencePage::ResetSequenceEdit()
{
    ClearSequenceBoxes();
    EnableSequenceBoxes(false);
    SetSequenceButtons(false);
}

// --- Add, Edit, Cancel, Delete ---

void SequencePage::cmdSeqAdd_Click()
{
    if (!ButtonCaption::Is(*m_ui->cmdSeqAdd, u"Add")) {
        AcceptSequence(true);
        return;
    }
    if (!m_state.document().IsListOpen())
        return;
    ClearSequenceBoxes();
    EnableSequenceBoxes(true);
    m_ui->cmdSeqAdd->setText(QStringLiteral("Accept"));
}

void SequencePage::cmdSeqEdit_Click()
{
    if (!ButtonCaption::Is(*m_ui->cmdSeqEdit, u"Edit")) {
        AcceptSequence(false);
        return;
    }
    EnableSequenceBoxes(true);
    m_ui->cmdSeqEdit->setText(QStringLiteral("Accept"));
}

void SequencePage::AcceptSequence(bool isNew)
{
    // A failure keeps the typed values and the Accept state.
    if (!ValidateSequence(isNew))
        return;
    StoreSequence(isNew);
    (isNew ? m_ui->cmdSeqAdd : m_ui->cmdSeqEdit)->setText(isNew ? QStringLiteral("Add") : QStringLiteral("Edit"));
    EnableSequenceBoxes(false);
    ResetSequenceEdit();
}

void SequencePage::cmdSeqCancel_Click()
{
    ResetSequenceEdit();
}

void SequencePage::cmdSeqDelete_Click()
{
    if (!m_shownNumber) {
        m_state.prompts().MsgBox(QStringLiteral("A new sequence not yet added tot he list cannot be deleted"),
                                 IPromptService::vbOKOnly, QStringLiteral("Delete Error"));
        return;
    }
    const RecordTable<SequenceEntry>& sequences = m_state.document().tables().sequences;
    const int row = sequences.rowOfNumber(*m_shownNumber);
    if (row >= 0) {
        const bool isLast = row == sequences.count() - 1;
        if (!isLast && !ConfirmMiddleDeletion())
            return;
        // The others keep their texts, keys and numbers.
        m_state.document().DeleteSequence(*m_shownNumber);
    }
    m_lsvOneSequence.clear();
    ResetSequenceEdit();
}

bool SequencePage::ConfirmMiddleDeletion()
{
    return m_state.prompts().MsgBox(MiddleDeletionQuestion(), IPromptService::vbOKCancel | IPromptService::vbCritical,
                                    QStringLiteral("Delicate Deletion"))
        == IPromptService::vbOK;
}

// --- Validation and storing ---

qint64 SequencePage::AvailableSprites() const
{
    return m_availableSprites;
}

std::optional<SequenceCheck::Run> SequencePage::RunOfRow(int row) const
{
    const RecordTable<SequenceEntry>& sequences = m_state.document().tables().sequences;
    if (!sequences.contains(row))
        return std::nullopt;
    const SpriteSequence& sequence = sequences.at(row).record;
    return SequenceCheck::Run{sequence.first, sequence.number()};
}

bool SequencePage::ValidateSequence(bool isNew)
{
    const RecordTable<SequenceEntry>& sequences = m_state.document().tables().sequences;
    SequenceCheck::Input input{m_ui->txtSeqStart->text(), m_ui->txtSeqStop->text(), m_ui->txtSeqObject->text(),
                               AvailableSprites(), std::nullopt, std::nullopt};
    if (isNew) {
        // While the list holds a single sequence, a new one is checked as
        // if it were the first; a new one never has a following sequence.
        if (sequences.count() >= 2)
            input.previous = RunOfRow(sequences.count() - 1);
    } else {
        const int row = m_shownNumber ? sequences.rowOfNumber(*m_shownNumber) : -1;
        if (row >= 0) {
            input.previous = RunOfRow(row - 1);
            input.following = RunOfRow(row + 1);
        }
    }
    const std::optional<SequenceCheck::Failure> failure = SequenceCheck::FirstFailure(input);
    if (!failure)
        return true;
    m_state.prompts().MsgBox(failure->text, IPromptService::vbOKOnly, failure->title);
    if (QLineEdit* box = BoxOf(failure->focus))
        box->setFocus(Qt::OtherFocusReason);
    return false;
}

QLineEdit* SequencePage::BoxOf(SequenceCheck::Box box) const
{
    switch (box) {
    case SequenceCheck::Box::Start:
        return m_ui->txtSeqStart;
    case SequenceCheck::Box::Stop:
        return m_ui->txtSeqStop;
    case SequenceCheck::Box::Object:
        return m_ui->txtSeqObject;
    case SequenceCheck::Box::None:
        break;
    }
    return nullptr;
}

void SequencePage::StoreSequence(bool isNew)
{
    // The checks let through only runs and objects a record holds.
    const qint64 first = SequenceCheck::WholeNumber(m_ui->txtSeqStart->text()).value_or(0);
    const qint64 last = SequenceCheck::WholeNumber(m_ui->txtSeqStop->text()).value_or(0);
    SpriteSequence record;
    record.setNumber(int(last - first + 1));
    record.first = qint16(first);
    record.objectId = qint32(NumberText::valueOf(m_ui->txtSeqObject->text()));
    ListDocument& document = m_state.document();
    if (isNew)
        document.AddSequence({record, NextFreeSequenceNumber()});
    else if (m_shownNumber)
        document.EditSequence(*m_shownNumber, record);
}

qint32 SequencePage::NextFreeSequenceNumber() const
{
    const RecordTable<SequenceEntry>& sequences = m_state.document().tables().sequences;
    return qint32(RowKeyNumber::FirstFree(sequences, sequences.count()));
}

// --- Choosing a sequence ---

void SequencePage::lsvSequences_ItemClick(int row)
{
    const auto& sequences = m_state.views.lsvSequences;
    if (row < 0 || row >= sequences.count())
        return;
    Preview()->StopAnim();
    FillOneSequence(row);
    const SequenceEntry& chosen = sequences.entry(row);
    const qint64 first = chosen.record.first;
    const qint64 number = qBound(qint64(0), qint64(chosen.record.number()), qint64(LongestSequence));
    // The preview button follows the animation page's list, not this one:
    // with no animations it stays disabled.
    if (m_state.views.lsvAnims.count() >= 1)
        m_ui->cmdSequnce->setEnabled(true);
    SetSequenceButtons(true);
    m_ui->txtSeqStart->setText(NumberText::of(first));
    m_shownNumber = chosen.number;
    m_ui->lblSeqKey->setText(SequenceRowFormat::Key(chosen));
    m_ui->txtSeqStop->setText(NumberText::of(first + number - 1));
    m_ui->txtSeqObject->setText(NumberText::of(chosen.record.objectId));
}

void SequencePage::FillOneSequence(int row)
{
    const SpriteSequence& sequence = m_state.document().tables().sequences.at(row).record;
    m_lsvOneSequence.clear();
    const qint64 first = sequence.first;
    const qint64 number = qBound(qint64(0), qint64(sequence.number()), qint64(LongestSequence));
    for (qint64 sprite = first; sprite < first + number; ++sprite)
        AddSequenceTextureRow(sprite);
}

void SequencePage::FollowChosenSequence()
{
    // The sprites of the chosen sequence as the lists now hold them; nothing
    // when no sequence is shown or the chosen one is gone.
    const ListRows& sequences = m_state.views.lsvSequences;
    const int row = sequences.selectedRow();
    if (m_lsvOneSequence.count() == 0)
        return;
    m_player->Stop();
    if (row < 0 || row >= sequences.count())
        m_lsvOneSequence.clear();
    else
        FillOneSequence(row);
}

void SequencePage::AddSequenceTextureRow(qint64 sprite)
{
    const RecordTable<SpriteTextureEntry>& sprites = m_state.document().tables().sprites;
    const QString number = NumberText::of(sprite);
    const bool named = sprite >= 0 && sprite <= std::numeric_limits<qint32>::max();
    const int row = named ? sprites.rowOfNumber(qint32(sprite)) : -1;
    if (row < 0) {
        m_lsvOneSequence.AddFrame(number, {}, {}, {}, {});
        return;
    }
    // Tiles are stacked downwards on the bitmap; the stored width and height
    // are copied as they are, so the frame reaches the preview's edges.
    const SpriteTexture& record = sprites.at(row).record;
    const qint64 y = qint64(record.tile) * TileHeight + record.y;
    m_lsvOneSequence.AddFrame(number, NumberText::of(record.x), NumberText::of(y), NumberText::of(record.width),
                              NumberText::of(record.height));
}

// --- Preview and drawing ---

void SequencePage::cmdSequnce_Click()
{
    m_player->StartOrStop();
}

void SequencePage::StepPreview()
{
    m_player->StepPreview();
}

void SequencePage::cmdDrawSeq_Click()
{
    if (m_lsvOneSequence.CheckFramesIn(m_state.lsvSpriteIndex, QLatin1Char('S')))
        m_state.DrawCheckedSprites();
}
