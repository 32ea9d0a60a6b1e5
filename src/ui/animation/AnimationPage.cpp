#include "ui/animation/AnimationPage.h"

#include "ui/common/ListEditFollower.h"

#include "ui/common/ButtonCaption.h"
#include "ui/common/EditBoxLook.h"
#include "ui/animation/ColumnFit.h"
#include "ui/common/EditorState.h"
#include "ui/common/IPromptService.h"
#include "list/ListViewSet.h"
#include "common/NumberText.h"
#include "ui/animation/PreviewPlayer.h"
#include "common/m_Code.h"
#include "list/RowKeyNumber.h"
#include "list/tables/RangeRowFormat.h"
#include "ui/animation/ucAnimTexture.h"
#include "ui_AnimationPage.h"

#include <QTimer>

AnimationPage::AnimationPage(EditorState& state, QWidget* parent)
    : EditorPage(state, parent)
    , m_ui(std::make_unique<Ui::AnimationPage>())
    , m_lsvAnimsDel(ListViewSet::animColumns())
    , m_lsvAnimDetailsDel(ListViewSet::animDetailColumns())
{
    m_ui->setupUi(this);
    m_ui->lsvAnims->setListModel(&m_state.views.lsvAnims);
    m_ui->lsvAnimDetails->setListModel(&m_state.views.lsvAnimDetails);
    m_ui->lsvAvailTextures->setListModel(&m_state.lsvAvailTextures);
    m_ui->lsvAvailTextures->setHeaderHidden(true);
    m_ui->lsvOneAnim->setListModel(&m_lsvOneAnim);
    m_ui->lsvOneAnim->setHiddenColumns(PreviewFrameList::HiddenColumns());
    m_ui->lsvNextAnim->setListModel(&m_lsvNextAnim);
    m_ui->lsvAnimsDel->setListModel(&m_lsvAnimsDel);
    m_ui->lsvAnimDetailsDel->setListModel(&m_lsvAnimDetailsDel);
    for (ListView* list : {m_ui->lsvAnims, m_ui->lsvAnimDetails, m_ui->lsvNextAnim})
        ColumnFit::FitColumnsToHeaders(*list);
    ColumnFit::FitColumnsToHeaders(*m_ui->lsvOneAnim, PreviewFrameList::NarrowestColumn);
    // chkTriad shows the chosen animation's first texture; it is not an input.
    m_ui->chkTriad->setAttribute(Qt::WA_TransparentForMouseEvents);

    m_timer1 = new QTimer(this);
    m_timer1->setObjectName(QStringLiteral("Timer1"));
    m_player = new PreviewPlayer(m_state, m_lsvOneAnim, *m_ui->ucAnimTexture1, *m_ui->cmdAnim, *m_ui->lsvAnims,
                                 *m_timer1, this);
    ConnectControls();
}

AnimationPage::~AnimationPage() = default;

void AnimationPage::ConnectControls()
{
    Ui::AnimationPage& ui = *m_ui;
    connect(ui.cmdAddAnim, &QPushButton::clicked, this, &AnimationPage::cmdAddAnim_Click);
    connect(ui.cmdEditAnim, &QPushButton::clicked, this, &AnimationPage::cmdEditAnim_Click);
    connect(ui.cmdDelAnim, &QPushButton::clicked, this, &AnimationPage::cmdDelAnim_Click);
    connect(ui.cmdCancelAnim, &QPushButton::clicked, this, &AnimationPage::cmdCancelAnim_Click);
    connect(ui.cmdAddText, &QPushButton::clicked, this, &AnimationPage::cmdAddText_Click);
    connect(ui.cmdDelText, &QPushButton::clicked, this, &AnimationPage::cmdDelText_Click);
    connect(ui.cmdUp, &QPushButton::clicked, this, &AnimationPage::cmdUp_Click);
    connect(ui.cmdDown, &QPushButton::clicked, this, &AnimationPage::cmdDown_Click);
    connect(ui.cmdAnim, &QPushButton::clicked, this, &AnimationPage::cmdAnim_Click);
    connect(ui.cmdDrawAnim, &QPushButton::clicked, this, &AnimationPage::cmdDrawAnim_Click);
    connect(ui.lsvAnims, &ListView::ItemClick, this, &AnimationPage::lsvAnims_ItemClick);
    connect(ui.lsvAvailTextures, &ListView::ItemClick, this, &AnimationPage::lsvAvailTextures_ItemClick);
    connect(ui.lsvNextAnim, &ListView::ItemClick, this, &AnimationPage::lsvNextAnim_ItemClick);
    // The total always tells how many ranges the list holds.
    const ListRows& anims = m_state.views.lsvAnims;
    connect(&anims, &QAbstractItemModel::rowsInserted, this, &AnimationPage::ShowAnimTotal);
    connect(&anims, &QAbstractItemModel::rowsRemoved, this, &AnimationPage::ShowAnimTotal);
    new ListEditFollower({&anims, &m_state.views.lsvAnimDetails, &m_state.views.lsvTextures},
                         [this] { FollowChosenRange(); }, this);
}

void AnimationPage::FollowChosenRange()
{
    // The textures of the shown range as the lists now hold them; a range
    // being built keeps what the user put in it.
    const ListRows& anims = m_state.views.lsvAnims;
    const int row = anims.selectedRow();
    if (m_lsvOneAnim.count() == 0 || ButtonCaption::Is(*m_ui->cmdAddAnim, u"Accept")
        || ButtonCaption::Is(*m_ui->cmdEditAnim, u"Accept"))
        return;
    m_player->Stop();
    if (row < 0 || row >= anims.count()) {
        m_lsvOneAnim.clear();
        m_lsvNextAnim.clear();
        return;
    }
    ShowAnimationTextures(row);
    m_ui->chkTriad->setChecked(m_lsvOneAnim.IsTriad(0));
}

void AnimationPage::ShowAnimTotal()
{
    if (m_state.document().IsListOpen())
        SetAnimTotal(NumberText::of(m_state.views.lsvAnims.count()));
}

// --- Hooks of the main window ---

void AnimationPage::ResetPage()
{
    ResetEditor();
}

void AnimationPage::ClearPage()
{
    m_player->Stop();
    m_state.lsvAvailTextures.clear();
    m_lsvNextAnim.clear();
    m_state.document().tables().ranges.clear();
    m_state.document().tables().rangeTextures.clear();
    m_lsvOneAnim.clear();
    ResetEditor();
}

void AnimationPage::ResetEditor()
{
    m_ui->lblAnimTotal->clear();
    ResetAnimationEdit();
    EnableAnimationEdit(false);
    EnableOrderButtons(false);
    m_ui->chkTriad->setChecked(false);
    m_ui->cmdAnim->setEnabled(false);
}

void AnimationPage::ListLoaded()
{
    EnableOrderButtons(false);
}

void AnimationPage::DocumentRewound()
{
    m_player->Stop();
    m_lsvOneAnim.clear();
    m_ui->chkTriad->setChecked(false);
    m_ui->cmdAnim->setEnabled(false);
    ResetAnimationEdit();
    EnableAnimationEdit(false);
    EnableOrderButtons(false);
    ShowAnimTotal();
}

void AnimationPage::BitmapLoaded(const QString& fileName)
{
    Preview()->Init(fileName);
}

void AnimationPage::BitmapRemoved()
{
    Preview()->NoPicture();
}

void AnimationPage::SetAnimTotal(const QString& text)
{
    m_ui->lblAnimTotal->setText(text);
}

void AnimationPage::ClearOneAnim()
{
    m_lsvOneAnim.clear();
}

ucAnimTexture* AnimationPage::Preview() const
{
    return m_ui->ucAnimTexture1;
}

// --- Enabled states ---

void AnimationPage::EnableAnimationEdit(bool enable)
{
    Ui::AnimationPage& ui = *m_ui;
    for (QWidget* control : {static_cast<QWidget*>(ui.lsvAvailTextures), static_cast<QWidget*>(ui.lsvNextAnim),
                             static_cast<QWidget*>(ui.cmdAddText), static_cast<QWidget*>(ui.cmdDelText),
                             static_cast<QWidget*>(ui.cmdEditAnim), static_cast<QWidget*>(ui.cmdDelAnim)})
        control->setEnabled(enable);
    for (ListView* list : {ui.lsvAvailTextures, ui.lsvNextAnim})
        EditBoxLook::PaintBase(*list, palette().color(enable ? QPalette::Base : QPalette::Button));
}

void AnimationPage::EnableOrderButtons(bool enable)
{
    for (QPushButton* button : {m_ui->cmdAddText, m_ui->cmdDelText, m_ui->cmdUp, m_ui->cmdDown})
        button->setEnabled(enable);
}

void AnimationPage::ResetAnimationEdit()
{
    m_lsvNextAnim.clear();
    m_ui->cmdAddText->setEnabled(false);
    m_ui->cmdDelText->setEnabled(false);
    m_ui->cmdAddAnim->setText(QStringLiteral("Add"));
    m_ui->cmdEditAnim->setEnabled(false);
    m_ui->cmdEditAnim->setText(QStringLiteral("Edit"));
    m_ui->cmdDelAnim->setEnabled(false);
    ShowRangeNumber(std::nullopt);
}

// --- Add, Edit, Delete, Cancel ---

void AnimationPage::cmdAddAnim_Click()
{
    if (ButtonCaption::Is(*m_ui->cmdAddAnim, u"Add")) {
        EnableAnimationEdit(true);
        m_lsvNextAnim.clear();
        m_ui->cmdAddAnim->setText(QStringLiteral("Accept"));
        ShowRangeNumber(NextFreeAnimationNumber());
        return;
    }
    if (!HasEnoughTextures())
        return;
    if (!m_state.document().AddAnimation(CurrentAnimationNumber(), PlannedTextures()))
        m_state.ShowStatus(tr("Nothing was added: the animation number %1 is taken.")
                               .arg(RangeRowFormat::NumberText(CurrentAnimationNumber())));
    FinishAnimationEdit(*m_ui->cmdAddAnim, QStringLiteral("Add"));
}

void AnimationPage::cmdEditAnim_Click()
{
    if (ButtonCaption::Is(*m_ui->cmdEditAnim, u"Edit")) {
        EnableAnimationEdit(true);
        m_ui->cmdEditAnim->setText(QStringLiteral("Accept"));
        return;
    }
    if (!HasEnoughTextures())
        return;
    const qint32 number = CurrentAnimationNumber();
    const QList<quint16> textures = PlannedTextures();
    if (m_state.document().EditAnimation(number, textures))
        TellOfKeptSummary(number, textures);
    m_lsvOneAnim.clear();
    FinishAnimationEdit(*m_ui->cmdEditAnim, QStringLiteral("Edit"));
}

void AnimationPage::cmdDelAnim_Click()
{
    if (!m_shownRange)
        return;
    m_state.document().DeleteAnimation(CurrentAnimationNumber());
    m_ui->cmdEditAnim->setText(QStringLiteral("Edit"));
    m_ui->cmdAddAnim->setText(QStringLiteral("Add"));
    m_lsvNextAnim.clear();
    m_lsvOneAnim.clear();
    EnableAnimationEdit(false);
}

void AnimationPage::cmdCancelAnim_Click()
{
    ResetAnimationEdit();
}

void AnimationPage::TellOfKeptSummary(qint32 number, const QList<quint16>& textures)
{
    const RecordTable<RangeEntry>& ranges = m_state.document().tables().ranges;
    const int row = ranges.rowOfNumber(number);
    if (row < 0)
        return;
    const RangeEntry& range = ranges.at(row);
    if (range.shownCount == textures.size() && range.showsFirst && range.shownFirst == textures.constFirst())
        return;
    m_state.ShowStatus(tr("Animation %1 saves its %2 textures from %3; Number and First still show the old values.")
                           .arg(RangeRowFormat::NumberText(number))
                           .arg(textures.size())
                           .arg(textures.constFirst()));
}

qint32 AnimationPage::CurrentAnimationNumber() const
{
    return m_shownRange.value_or(-1);
}

void AnimationPage::ShowRangeNumber(std::optional<qint32> number)
{
    m_shownRange = number;
    m_ui->lblNextAnim->setText(number ? NumberText::of(*number) : QString());
}

qint32 AnimationPage::NextFreeAnimationNumber() const
{
    const RecordTable<RangeEntry>& ranges = m_state.document().tables().ranges;
    return qint32(RowKeyNumber::FirstFree(ranges, ranges.count()));
}

bool AnimationPage::HasEnoughTextures()
{
    if (m_lsvNextAnim.count() >= 2)
        return true;
    m_state.prompts().MsgBox(QStringLiteral("There has to be at least two textures in an animations"),
                             IPromptService::vbExclamation | IPromptService::vbOKOnly);
    return false;
}

QList<quint16> AnimationPage::PlannedTextures() const
{
    return m_lsvNextAnim.textures();
}

void AnimationPage::FinishAnimationEdit(QPushButton& button, const QString& caption)
{
    m_lsvNextAnim.clear();
    ShowRangeNumber(std::nullopt);
    SetAnimTotal(NumberText::of(m_state.views.lsvAnims.count()));
    EnableAnimationEdit(false);
    button.setText(caption);
    EnableOrderButtons(false);
}

// --- Building the animation ---

void AnimationPage::cmdAddText_Click()
{
    // The available textures are numbered from 1, one a row.
    const int chosen = m_state.lsvAvailTextures.selectedRow();
    if (chosen < 0)
        return;
    m_lsvNextAnim.append(quint16(chosen + 1));
    EnableOrderButtons(false);
}

void AnimationPage::cmdDelText_Click()
{
    const int chosen = m_lsvNextAnim.selectedRow();
    if (chosen < 0)
        return;
    m_lsvNextAnim.removeAt(chosen);
    EnableOrderButtons(false);
}

void AnimationPage::cmdUp_Click()
{
    MoveChosenTexture(-1);
}

void AnimationPage::cmdDown_Click()
{
    MoveChosenTexture(+1);
}

void AnimationPage::MoveChosenTexture(int step)
{
    const int chosen = m_lsvNextAnim.selectedRow();
    if (chosen < 0)
        return;
    m_lsvNextAnim.swap(chosen, chosen + step);
    // Every move needs a new choice of row before the next one.
    EnableOrderButtons(false);
}

// --- Choosing rows ---

void AnimationPage::lsvAnims_ItemClick(int row)
{
    const auto& anims = m_state.views.lsvAnims;
    if (row < 0 || row >= anims.count())
        return;
    Preview()->StopAnim();
    ShowAnimationTextures(row);
    if (anims.count() >= 1)
        m_ui->cmdAnim->setEnabled(true);
    m_ui->chkTriad->setChecked(m_lsvOneAnim.IsTriad(0));
    if (m_lsvNextAnim.count() == 0)
        return;
    m_ui->cmdAddAnim->setText(QStringLiteral("Add"));
    m_ui->cmdEditAnim->setText(QStringLiteral("Edit"));
    m_ui->cmdEditAnim->setEnabled(true);
    m_ui->cmdDelAnim->setEnabled(true);
    ShowRangeNumber(anims.entry(row).number);
}

void AnimationPage::ShowAnimationTextures(int range)
{
    // The textures the list saves for the range, so what is shown and
    // edited is what a reopened list holds.
    const ListTables& tables = m_state.document().tables();
    const QList<quint16> textures = tables.TexturesOfRange(range);
    m_lsvOneAnim.clear();
    for (quint16 texture : textures)
        m_lsvOneAnim.AddObjectTexture(tables.textures, texture);
    m_lsvNextAnim.clear();
    for (quint16 texture : textures)
        m_lsvNextAnim.append(texture);
}

void AnimationPage::lsvAvailTextures_ItemClick(int row)
{
    if (row < 0 || row >= m_state.lsvAvailTextures.count() || !m_ui->lsvAvailTextures->isEnabled())
        return;
    m_ui->cmdAddText->setEnabled(true);
    m_ui->cmdDelText->setEnabled(false);
    m_ui->cmdUp->setEnabled(false);
    m_ui->cmdDown->setEnabled(false);
}

void AnimationPage::lsvNextAnim_ItemClick(int row)
{
    if (row < 0 || row >= m_lsvNextAnim.count() || !m_ui->lsvNextAnim->isEnabled())
        return;
    EnableOrderButtons(true);
}

// --- Preview and drawing ---

void AnimationPage::cmdAnim_Click()
{
    m_player->StartOrStop();
}

void AnimationPage::StepPreview()
{
    m_player->StepPreview();
}

void AnimationPage::cmdDrawAnim_Click()
{
    if (m_lsvOneAnim.CheckPlacesIn(m_state.lsvObjects, m_state.views.lsvTextures))
        m_state.DrawCheckedObjects();
}
