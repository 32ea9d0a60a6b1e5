#include "ui/main/frmMain.h"

#include "ui/animation/AnimationPage.h"
#include "ui/main/AssignmentPage.h"
#include "ui/main/BitmapPicker.h"
#include "ui/main/BitmapStatistics.h"
#include "ui/main/ListOpenNotes.h"
#include "ui/main/NewListInputs.h"
#include "ui/rooms/RoomsDock.h"
#include "ui/main/DroppedFile.h"
#include "ui/main/RecentListsMenu.h"
#include "ui/main/WindowLayout.h"
#include "ui/main/WindowShortcuts.h"
#include "ui/about/HelpWindow.h"
#include "ui/common/EditorSettings.h"
#include "ui/common/FolderMemoryPrompts.h"
#include "common/BitmapSelection.h"
#include "common/ShownName.h"
#include "ui/common/BusyCursor.h"
#include "level/C_LevelInfo.h"
#include "list/C_ListInfo.h"
#include "list/ListDocument.h"
#include "ui/common/EditorState.h"
#include "ui/common/FileRequests.h"
#include "ui/common/ListView.h"
#include "list/LevelListExtractor.h"
#include "list/LevelTableReader.h"
#include "ui/textures/ObjectTexturePage.h"
#include "ui/common/PlainSeparatorStyle.h"
#include "ui/common/QtPromptService.h"
#include "ui/common/SelectOnFocus.h"
#include "ui/animation/SequencePage.h"
#include "ui/textures/SpriteTexturePage.h"
#include "ui/about/frmAbout.h"
#include "ui/dialogs/frmInserList.h"
#include "ui/dialogs/frmNewList.h"
#include "ui/dialogs/frmVersion.h"
#include "ui/bitmap/ucScrollPic.h"
#include "ui_frmMain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QTabBar>
#include <QTimer>
#include <QUndoStack>

#include <utility>

namespace {

// A path as the window shows it: a list may name anything at all.
QString Native(const QString& path)
{
    return ShownName::of(QDir::toNativeSeparators(path));
}

} // namespace

frmMain::frmMain(IPromptService* prompts, QWidget* parent)
    : QMainWindow(parent)
    , m_ui(std::make_unique<Ui::frmMain>())
{
    m_ui->setupUi(this);
    DrawSeparatorsAsLines();
    if (!prompts) {
        m_ownPrompts = std::make_unique<QtPromptService>(this);
        prompts = m_ownPrompts.get();
    }
    m_settings = std::make_unique<EditorSettings>();
    m_folderPrompts = std::make_unique<FolderMemoryPrompts>(*prompts, *m_settings, [this] { return LevelFolder(); });
    prompts = m_folderPrompts.get();
    m_document = std::make_unique<ListDocument>();
    m_state = std::make_unique<EditorState>(*prompts, *m_document);
    m_state->setPicture(m_ui->ucScrollPic1);
    m_saveQuestion = std::make_unique<SaveQuestion>(
        *prompts, *m_document, [this] { return SaveList(); }, [this](const QString& text) { Status(text); });
    CreatePages();
    ConnectMenus();
    FollowDocumentViews();
    connect(m_state.get(), &EditorState::dirtyChanged, this, &frmMain::UpdateSaveMenu);
    connect(m_state.get(), &EditorState::reloadPictureRequested, this, &frmMain::ReloadPicture);
    connect(m_state.get(), &EditorState::statusMessage, this, &frmMain::Status);
    m_statistics = new BitmapStatistics(*m_ui, *m_document, *m_state, this);
    connect(m_ui->ucScrollPic1, &ucScrollPic::MouseSelect, this, &frmMain::ucScrollPic1_MouseSelect);
    Form_Load();
    SetUpHabits();
}

frmMain::~frmMain() = default;

void frmMain::CreatePages()
{
    m_objectPage = new ObjectTexturePage(*m_state);
    m_animationPage = new AnimationPage(*m_state);
    m_spritePage = new SpriteTexturePage(*m_state);
    m_sequencePage = new SequencePage(*m_state);
    m_assignmentPage = new AssignmentPage(*m_state);
    // In tab order: fraList_0 to fraList_4.
    m_pages = {m_objectPage, m_animationPage, m_spritePage, m_sequencePage, m_assignmentPage};
    for (EditorPage* page : m_pages) {
        m_ui->pageHostLayout->addWidget(page);
        SelectOnFocus::InstallOnEditBoxes(*page);
    }

    m_tbsStrip = new QTabBar(m_ui->pageSide);
    m_tbsStrip->setObjectName(QStringLiteral("tbsStrip"));
    m_ui->pageSideLayout->insertWidget(0, m_tbsStrip);
    QTabBar* tabs = m_tbsStrip;
    for (const char* caption :
         {"Object Textures", "...and Animations", "Sprites Textures", "... and Sequences", "Assignation"})
        tabs->addTab(QString::fromLatin1(caption));
    tabs->setExpanding(false);
    // Five captions side by side in the page column at the starting size.
    tabs->setStyleSheet(QStringLiteral("QTabBar::tab { padding: 4px 7px; }"));
    tabs->setDrawBase(true);
    connect(tabs, &QTabBar::currentChanged, this, [this](int tab) { ShowPage(tab + 1); });
}

void frmMain::FollowDocumentViews()
{
    const QList<ListRows*> content = m_document->views().all();
    for (ListView* view : findChildren<ListView*>()) {
        ListRows* model = view->listModel();
        if (!content.contains(model))
            continue;
        // A sort shows the rows another way; the list and its file keep their order.
        connect(view, &ListView::ShownSorted, this, [this, model](int column, Qt::SortOrder) {
            const QString table = m_document->TableName(*model);
            Status(model->count() == 0
                       ? tr("%1: there are no rows to sort.").arg(table)
                       : tr("%1 shown by %2; the list keeps its order, and saves it.")
                             .arg(table, model->headerData(column, Qt::Horizontal).toString()));
        });
    }
    const ListRows& textures = m_document->views().lsvTextures;
    const auto showTextureQty = [this, &textures] {
        if (m_document->IsListOpen())
            m_objectPage->SetTextureQty(QString::number(textures.count()));
    };
    connect(&textures, &QAbstractItemModel::rowsInserted, this, showTextureQty);
    connect(&textures, &QAbstractItemModel::rowsRemoved, this, showTextureQty);
}

void frmMain::DrawSeparatorsAsLines()
{
    auto* menuStyle = new PlainSeparatorStyle;
    menuStyle->setParent(this);
    for (QMenu* menu : m_ui->menuBar->findChildren<QMenu*>())
        menu->setStyle(menuStyle);
}

void frmMain::ConnectMenus()
{
    connect(m_ui->mnuFileNewList, &QAction::triggered, this, &frmMain::mnuFileNewList_Click);
    connect(m_ui->mnuFileOpen, &QAction::triggered, this, &frmMain::mnuFileOpen_Click);
    connect(m_ui->mnuFileCloseList, &QAction::triggered, this, &frmMain::mnuFileCloseList_Click);
    connect(m_ui->mnuFileSaveList, &QAction::triggered, this, &frmMain::mnuFileSaveList_Click);
    connect(m_ui->mnuFileSaveAsList, &QAction::triggered, this, &frmMain::mnuFileSaveAsList_Click);
    connect(m_ui->mnuFileExit, &QAction::triggered, this, &frmMain::mnuFileExit_Click);
    connect(m_ui->mnuBitmapsShowTiles, &QAction::triggered, this, &frmMain::mnuBitmapsShowTiles_Click);
    connect(m_ui->mnuListInser, &QAction::triggered, this, &frmMain::mnuListInser_Click);
    connect(m_ui->mnuHelpHelp, &QAction::triggered, this, &frmMain::mnuHelpHelp_Click);
    connect(m_ui->mnuHelpAbout, &QAction::triggered, this, &frmMain::mnuHelpAbout_Click);
    ConnectEditMenu();
}

void frmMain::ConnectEditMenu()
{
    QAction* undo = m_ui->mnuEditUndo;
    QAction* redo = m_ui->mnuEditRedo;
    undo->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_Z)});
    redo->setShortcuts({QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
    const QUndoStack* stack = m_document->undoStack();
    const auto caption = [](const QString& verb, const QString& what) {
        return what.isEmpty() ? verb : verb + QLatin1Char(' ') + what;
    };
    connect(stack, &QUndoStack::canUndoChanged, undo, &QAction::setEnabled);
    connect(stack, &QUndoStack::canRedoChanged, redo, &QAction::setEnabled);
    connect(stack, &QUndoStack::undoTextChanged, undo,
            [undo, caption](const QString& what) { undo->setText(caption(tr("&Undo"), what)); });
    connect(stack, &QUndoStack::redoTextChanged, redo,
            [redo, caption](const QString& what) { redo->setText(caption(tr("&Redo"), what)); });
    undo->setEnabled(false);
    redo->setEnabled(false);
    connect(undo, &QAction::triggered, this, &frmMain::mnuEditUndo_Click);
    connect(redo, &QAction::triggered, this, &frmMain::mnuEditRedo_Click);
}

void frmMain::mnuEditUndo_Click()
{
    if (!m_document->undoStack()->canUndo())
        return;
    const QString what = m_document->undoStack()->undoText();
    m_document->undoStack()->undo();
    TellPagesOfRewind();
    Status(tr("Undone: %1.").arg(what));
}

void frmMain::mnuEditRedo_Click()
{
    if (!m_document->undoStack()->canRedo())
        return;
    const QString what = m_document->undoStack()->redoText();
    m_document->undoStack()->redo();
    TellPagesOfRewind();
    Status(tr("Redone: %1.").arg(what));
}

void frmMain::TellPagesOfRewind()
{
    for (EditorPage* page : m_pages)
        page->DocumentRewound();
}

void frmMain::Form_Load()
{
    m_ui->lblListFile->clear();
    m_ui->lblTextureFile->clear();
    m_ui->lblLevelFile->clear();
    m_ui->lblZoomFactor->setText(QStringLiteral("Zoom Factor: 1"));
    for (QLabel* label : {m_ui->lblHeight, m_ui->lblWidth, m_ui->lblNbTiles, m_ui->lblTileShow, m_ui->lblMousePosX,
                          m_ui->lblMousePosY})
        label->setText(QStringLiteral("0"));
    EnableListMenus(false);
    EnableZoom(false);
    resize(1030, 702);
    for (EditorPage* page : m_pages)
        page->ResetPage();
    ShowPage(1);
    EnableDocumentMenus(false);
    m_ui->splitter->setSizes({430, 600});
}

// --- Menus and their enabled states ---

void frmMain::EnableListMenus(bool enabled)
{
    m_ui->mnuFileCloseList->setEnabled(enabled);
    m_ui->mnuFileSaveList->setEnabled(enabled);
    m_ui->mnuFileSaveAsList->setEnabled(enabled);
}

void frmMain::UpdateSaveMenu()
{
    m_ui->mnuFileSaveList->setEnabled(m_document->isModified());
}

void frmMain::EnableDocumentMenus(bool enabled)
{
    EnableListMenus(enabled);
    m_ui->mnuBitmapsShowTiles->setEnabled(enabled);
}

void frmMain::EnableZoom(bool enabled)
{
    m_ui->lblZoomFactor->setEnabled(enabled);
    m_ui->hscrlZoom->setEnabled(enabled);
}

void frmMain::ShowPage(int index)
{
    for (int i = 0; i < m_pages.size(); ++i) {
        const bool shown = i + 1 == index;
        m_pages[i]->setVisible(shown);
        if (shown)
            m_pages[i]->raise();
    }
    if (m_tbsStrip->currentIndex() != index - 1)
        m_tbsStrip->setCurrentIndex(index - 1);
}

void frmMain::Status(const QString& message)
{
    statusBar()->showMessage(message);
}

// --- The list document's life ---

QString frmMain::GetListFileName(bool IsOpen)
{
    return m_state->prompts().GetFileName(FileRequests::MainListFile(IsOpen, QString()));
}

bool frmMain::LoadList(bool IsNew)
{
    ListDocument& d = *m_document;
    // The history belongs to the list it was made on.
    d.clearHistory();
    d.setListVersion(45);
    m_listInfo = std::make_unique<C_ListInfo>();

    if (IsNew && d.LevelFileName().isEmpty()) {
        // A list with no level takes its game from the user.
        frmVersion version(this);
        m_state->prompts().ShowModal(version);
        if (version.IsCancelled())
            return false;
        d.setListVersion(version.GetVersion());
        if (m_listInfo->InitStandAlone(d.ListFileName(), d.BitmapFileName(), &d.tables(), d.ListVersion())
            != C_ListInfo::Success)
            return false;
    } else if (m_listInfo->Init(d.ListFileName(), d.LevelFileName(), d.BitmapFileName(), &d.tables(), d.ListVersion())
               != C_ListInfo::Success) {
        Status(m_listInfo->Error().text());
        return false;
    }

    if (!IsNew) {
        if (m_listInfo->GetAllListContents() != C_ListInfo::Success) {
            Status(m_listInfo->Error().text());
            return false;
        }
        d.setLevelFileName(m_listInfo->LevelFileName());
        m_ui->lblLevelFile->setText(Native(d.LevelFileName()));
        d.setBitmapFileName(m_listInfo->BitMapName());
        LoadBitmap();
    }
    d.setListOpen(true);
    EnableListMenus(true);

    for (EditorPage* page : m_pages)
        page->ListLoaded();
    m_ui->lblListFile->setText(Native(d.ListFileName()));
    d.setListVersion(m_listInfo->Version());
    d.markSaved();
    UpdateSaveMenu();
    ShowDocumentInTitle();
    return true;
}

void frmMain::mnuFileNewList_Click()
{
    EditorState& s = *m_state;
    ListDocument& d = *m_document;
    frmNewList form(s.prompts(), this);
    if (!m_droppedLevel.isEmpty())
        form.SetLevelFile(std::exchange(m_droppedLevel, QString()));
    s.prompts().ShowModal(form);
    if (form.IsCancelled())
        return;
    // A level or a bitmap that cannot be read is refused before anything
    // changes, so the list that is open stays as it is.
    if (const QString refusal = NewListInputs::Refusal(form.GetListFIle(), form.GetLevelFile(), form.GetBitmapFile());
        !refusal.isEmpty()) {
        s.prompts().MsgBox(refusal, IPromptService::vbCritical);
        return;
    }
    if (!PromptSaveChanges(SaveQuestion::Before::MakingNew))
        return;

    // Nothing of the list set aside stays on show.
    ClearAllViews();
    d.clearHistory();
    d.setListFileName(form.GetListFIle());
    d.setBitmapFileName(form.GetBitmapFile());
    d.setLevelFileName(form.GetLevelFile());
    d.setDataFromLevel(form.IsDataFromLevel());

    LoadBitmap();
    if (!d.IsBitmapLoaded())
        return;
    BusyCursor busy;
    if (d.LevelFileName().isEmpty()) {
        for (EditorPage* page : m_pages)
            page->ListClosed();
    } else {
        ReadLevelIntoViews();
    }
    if (!LoadList(true)) {
        // The list open before was set aside already.
        ShowNoList();
        return;
    }
    FillIndexLists();
    ShowCounters();
    if (m_listInfo->PutAllListContents() != C_ListInfo::Success) {
        s.prompts().MsgBox(m_listInfo->Error().text(), IPromptService::vbCritical);
        return;
    }
    Status(tr("Created the list %1.").arg(Native(d.ListFileName())));
    // Said at once, while adding a range is still the whole remedy.
    if (const QString notice = LevelListExtractor::RangelessNotice(d.tables(), d.LevelFileName()); !notice.isEmpty()) {
        Status(notice);
        s.prompts().MsgBox(notice, IPromptService::vbExclamation);
    }
}

void frmMain::mnuFileOpen_Click()
{
    const QString name = GetListFileName(true);
    if (name.isEmpty())
        return;
    OpenList(name);
}

void frmMain::OpenList(const QString& name)
{
    EditorState& s = *m_state;
    // A file that cannot be opened at all changes nothing.
    C_ListInfo probe;
    if (probe.InitForInsert(name) != C_ListInfo::Success) {
        s.prompts().MsgBox(probe.Error().text(), IPromptService::vbCritical);
        return;
    }
    if (!PromptSaveChanges(SaveQuestion::Before::OpeningAnother))
        return;
    {
        BusyCursor busy;
        // Nothing of the list set aside stays on show.
        ClearAllViews();
        m_document->setListFileName(name);
        LoadList(false);
        FillIndexLists();
        ShowCounters();
    }
    TellWhatIsMissing();
}

void frmMain::FillIndexLists()
{
    m_state->FillTextureIndexLists();
    m_state->FillSpriteIndexList();
}

void frmMain::ShowCounters()
{
    ListDocument& d = *m_document;
    m_objectPage->SetTextureQty(QString::number(d.views().lsvTextures.count()));
    d.setNumberOfTiles(BitmapStatistics::TilesOf(m_ui->ucScrollPic1->PictureHeight()));
    m_objectPage->SetTileQty(QString::number(d.NumberOfTiles()));
    m_animationPage->SetAnimTotal(QString::number(d.views().lsvAnims.count()));
}

// A bitmap cut short shows its missing rows as the reader pads them: the
// user hears that once, when the bitmap comes, not at every redraw.
void frmMain::TellBitmapIsCut()
{
    const QString cut = m_ui->ucScrollPic1->CutNote();
    if (cut.isEmpty())
        return;
    const QString text = tr("The bitmap %1 %2; the rows it lacks are shown padded.")
                             .arg(Native(m_document->BitmapFileName()), cut);
    Status(text);
    m_state->prompts().MsgBox(text, IPromptService::vbExclamation);
}

void frmMain::TellWhatIsMissing()
{
    if (const QString notes = ListOpenNotes::Of(*m_document, m_listInfo.get(), m_ui->ucScrollPic1->CutNote());
        !notes.isEmpty())
        Status(notes);
}

void frmMain::mnuFileCloseList_Click()
{
    if (!PromptSaveChanges(SaveQuestion::Before::Closing))
        return;
    ShowNoList();
    Status(tr("The list was closed."));
}

void frmMain::ShowNoList()
{
    m_listInfo.reset();
    ClearAllViews();
    m_document->close();
    m_ui->lblListFile->clear();
    m_ui->lblTextureFile->clear();
    m_ui->lblLevelFile->clear();
    m_statistics->ShowNone();
    for (EditorPage* page : m_pages)
        page->ListClosed();
    ShowDocumentInTitle();
    Status(tr("The list was closed."));
    EnableDocumentMenus(false);
    EnableZoom(false);
}

void frmMain::mnuFileSaveList_Click()
{
    SaveList();
}

bool frmMain::SaveList()
{
    EditorState& s = *m_state;
    ListDocument& d = *m_document;
    if (!m_listInfo) {
        Status(tr("No list is open: nothing was saved."));
        return false;
    }
    {
        BusyCursor busy;
        if (m_listInfo->PutAllListContents() != C_ListInfo::Success) {
            s.prompts().MsgBox(m_listInfo->Error().text(), IPromptService::vbCritical);
            return false;
        }
        m_listInfo->InitForInsert(d.ListFileName());
    }
    d.markSaved();
    UpdateSaveMenu();
    Status(tr("Saved %1.").arg(Native(d.ListFileName())));
    return true;
}

void frmMain::mnuFileSaveAsList_Click()
{
    EditorState& s = *m_state;
    ListDocument& d = *m_document;
    if (!m_listInfo) {
        Status(tr("No list is open: nothing was saved."));
        return;
    }
    const QString name = GetListFileName(false);
    if (name.isEmpty())
        return;
    // The list is made anew for the new name from the level and bitmap it has.
    auto renamed = std::make_unique<C_ListInfo>();
    const bool fromLevel = !d.LevelFileName().isEmpty();
    const qint16 result =
        fromLevel ? renamed->Init(name, d.LevelFileName(), d.BitmapFileName(), &d.tables(), d.ListVersion())
                  : renamed->InitStandAlone(name, d.BitmapFileName(), &d.tables(), d.ListVersion());
    if (result != C_ListInfo::Success) {
        Status(tr("Nothing was saved: %1 could not be prepared.").arg(Native(name)));
        return;
    }
    {
        BusyCursor busy;
        if (renamed->PutAllListContents() != C_ListInfo::Success) {
            s.prompts().MsgBox(renamed->Error().text(), IPromptService::vbCritical);
            return;
        }
        renamed->InitForInsert(name);
    }
    m_listInfo = std::move(renamed);
    d.setListFileName(name);
    m_ui->lblListFile->setText(Native(name));
    d.markSaved();
    UpdateSaveMenu();
    ShowDocumentInTitle();
    Status(tr("Saved %1.").arg(Native(name)));
}

bool frmMain::PromptSaveChanges(SaveQuestion::Before action)
{
    return m_saveQuestion->Ask(action);
}

void frmMain::mnuFileExit_Click()
{
    close();
}

void frmMain::closeEvent(QCloseEvent* event)
{
    if (!PromptSaveChanges(SaveQuestion::Before::Quitting)) {
        event->ignore();
        return;
    }
    WindowLayout::Remember(*this);
    event->accept();
}

// --- Views ---

void frmMain::ReadLevelIntoViews()
{
    ListDocument& d = *m_document;
    ListViewSet& v = d.views();
    if (d.LevelFileName().isEmpty())
        return;
    C_LevelInfo level;
    level.Init(d.LevelFileName());
    if (!LevelTableReader::ReadIntoTables(level, d.tables()))
        return;
    m_objectPage->SetTextureQty(QString::number(level.NumberObjectTexture()));
    m_animationPage->SetAnimTotal(QString::number(v.lsvAnims.count()));
    m_animationPage->ClearOneAnim();
    m_sequencePage->ClearOneSequence();
    m_ui->lblLevelFile->setText(Native(d.LevelFileName()));
}

void frmMain::ClearAllViews()
{
    m_ui->ucScrollPic1->NoPicture();
    m_document->setBitmapLoaded(false);
    for (EditorPage* page : m_pages) {
        page->BitmapRemoved();
        page->ClearPage();
    }
}

// --- The bitmap view ---

void frmMain::LoadBitmap()
{
    EditorState& s = *m_state;
    ListDocument& d = *m_document;
    ucScrollPic& view = *m_ui->ucScrollPic1;
    if (d.BitmapFileName().isEmpty() || !view.LoadOnePicture(d.BitmapFileName())) {
        if (!d.BitmapFileName().isEmpty()) {
            view.NoPicture();
            s.prompts().MsgBox(tr("The bitmap cannot be shown: %1.").arg(view.ErrorString()),
                               IPromptService::vbExclamation);
        }
        d.setBitmapLoaded(false);
        m_statistics->ShowNone();
        EnableZoom(false);
        EnableDocumentMenus(false);
        m_ui->lblTextureFile->clear();
        return;
    }
    m_ui->lblTextureFile->setText(Native(d.BitmapFileName()));
    TellBitmapIsCut();
    m_statistics->ShowLoaded(view);
    m_objectPage->SetTileQty(QString::number(d.NumberOfTiles()));
    for (EditorPage* page : m_pages)
        page->BitmapLoaded(d.BitmapFileName());
    EnableZoom(true);
    d.setBitmapLoaded(true);
    EnableDocumentMenus(true);
    // The view keeps the zoom the scroll bar shows.
    view.setZoomFactor(m_ui->hscrlZoom->value());
}

void frmMain::ReloadPicture()
{
    const ListDocument& d = *m_document;
    ucScrollPic& view = *m_ui->ucScrollPic1;
    if (!d.IsBitmapLoaded())
        return;
    if (!view.LoadOnePicture(d.BitmapFileName())) {
        Status(tr("The bitmap could not be reloaded: %1").arg(view.ErrorString()));
        return;
    }
    if (!m_ui->mnuBitmapsShowTiles->isChecked())
        return;
    const int zoom = view.ZoomFactor();
    const int width = view.PictureWidth() * zoom;
    for (int i = 1; i <= d.NumberOfTiles() - 1; ++i) {
        const int y = i * 256 * zoom;
        view.DrawLine(0, y, width, y, Qt::white);
    }
}

void frmMain::ucScrollPic1_MouseSelect(float X1, float Y1, float X2, float Y2)
{
    // The window's zoom is the one its scroll bar shows.
    const int zoom = m_ui->hscrlZoom->value();
    const BitmapSelection pick = BitmapSelection::FromView(X1, Y1, X2, Y2, zoom);
    const bool made = m_objectPage->TakeSelection(pick.tile, pick.x1, pick.y1, pick.x2, pick.y2);
    ucScrollPic& view = *m_ui->ucScrollPic1;
    if (made)
        view.DrawSelection(pick.x1 * zoom, pick.y1 * zoom, pick.x2 * zoom, pick.y2 * zoom,
                           m_state->OutlineColor);
    else
        view.ClearSelection();
    m_spritePage->TakeSelection(made, pick.tile, pick.x1, pick.y1, pick.x2, pick.y2);
}

void frmMain::mnuBitmapsShowTiles_Click()
{
    // The action has toggled its own check mark; the view follows it.
    if (!m_document->IsBitmapLoaded())
        return;
    m_state->RedrawOutlines();
}

// --- Insert, Help, About ---

void frmMain::mnuListInser_Click()
{
    // The insertion reads the list's file, so that file must hold what the
    // window shows.
    if (!PromptSaveChanges(SaveQuestion::Before::Inserting))
        return;
    frmInserList form(m_state->prompts(), this);
    if (m_document->IsListOpen() && m_listInfo)
        form.TakeList(m_document->ListFileName());
    connect(&form, &frmInserList::StatusMessage, this, &frmMain::Status);
    m_state->prompts().ShowModal(form);
}

void frmMain::mnuHelpHelp_Click()
{
    if (!m_helpWindow)
        m_helpWindow = new HelpWindow(this);
    m_helpWindow->show();
    m_helpWindow->raise();
    m_helpWindow->activateWindow();
}

void frmMain::mnuHelpAbout_Click()
{
    frmAbout form(m_state->prompts(), this);
    m_state->prompts().ShowModal(form);
}

// --- Habits of a desktop editor ---

void frmMain::SetUpHabits()
{
    m_recentMenu = new RecentListsMenu(*m_settings, m_ui->mnuFile);
    m_ui->mnuFile->insertMenu(m_ui->mnuFileCloseList, m_recentMenu);
    connect(m_recentMenu, &RecentListsMenu::ListChosen, this, &frmMain::OpenRecentList);
    WindowShortcuts::Install(*this);
    WindowLayout::Settle(*this);
    m_picker = new BitmapPicker(*this);
    m_rooms = new RoomsDock(*this);
    connect(m_state.get(), &EditorState::dirtyChanged, this, &frmMain::setWindowModified);
    setAcceptDrops(true);
    ShowDocumentInTitle();
    WindowLayout::Restore(*this);
}

void frmMain::ShowDocumentInTitle()
{
    const ListDocument& d = *m_document;
    const bool open = m_listInfo && !d.ListFileName().isEmpty();
    // "[*]" is where the modified mark goes.
    setWindowTitle(open ? QStringLiteral("%1[*] \u2014 Brindle").arg(QFileInfo(d.ListFileName()).fileName())
                        : QStringLiteral("Brindle[*]"));
    setWindowModified(open && d.isModified());
    if (!open)
        return;
    m_settings->AddRecentList(d.ListFileName());
    m_recentMenu->Refresh();
}

QString frmMain::LevelFolder() const
{
    const QString level = m_document ? m_document->LevelFileName() : QString();
    return level.isEmpty() ? QString() : QFileInfo(level).absolutePath();
}

void frmMain::OpenRecentList(const QString& path)
{
    if (!QFileInfo(path).isFile()) {
        m_settings->RemoveRecentList(path);
        m_recentMenu->Refresh();
        Status(tr("The list %1 no longer exists; it was removed from Recent Lists.").arg(Native(path)));
        return;
    }
    OpenList(path);
}

void frmMain::OpenDroppedFile(const QString& path)
{
    switch (DroppedFile::KindOf(path)) {
    case DroppedFile::Kind::List:
        OpenList(path);
        break;
    case DroppedFile::Kind::Level:
        m_droppedLevel = path;
        mnuFileNewList_Click();
        m_droppedLevel.clear();
        break;
    case DroppedFile::Kind::None:
        Status(tr("%1 is neither a texture list nor a TR 2 or TR 3 level: nothing was opened.").arg(Native(path)));
        break;
    }
}

void frmMain::dragEnterEvent(QDragEnterEvent* event)
{
    // Only what can be opened is taken: anything else shows the no-drop cursor.
    if (DroppedFile::KindOf(DroppedFile::LocalFile(event->mimeData())) != DroppedFile::Kind::None)
        event->acceptProposedAction();
}

void frmMain::dropEvent(QDropEvent* event)
{
    const QString path = DroppedFile::LocalFile(event->mimeData());
    if (path.isEmpty())
        return;
    event->acceptProposedAction();
    // The drag's source waits for the drop to end: the file opens after.
    QTimer::singleShot(0, this, [this, path] { OpenDroppedFile(path); });
}
