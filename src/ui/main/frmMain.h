#pragma once

#include "ui/main/SaveQuestion.h"

#include <QMainWindow>

#include <memory>

class AnimationPage;
class AssignmentPage;
class BitmapPicker;
class BitmapStatistics;
class EditorSettings;
class FolderMemoryPrompts;
class HelpWindow;
class RecentListsMenu;
class RoomsDock;
class C_ListInfo;
class EditorPage;
class EditorState;
class IPromptService;
class ListDocument;
class ObjectTexturePage;
class QTabBar;
class QtPromptService;
class SequencePage;
class SpriteTexturePage;
namespace Ui {
class frmMain;
}

// The editor's one document window: menus, the bitmap view with its
// statistics and zoom, and the five tabbed pages over one open texture list.
// It owns the list document from a successful New or Open until Close, the
// next New or Open, or exit.
class frmMain : public QMainWindow
{
    Q_OBJECT

public:
    // Without a prompt service the window shows real dialogs.
    explicit frmMain(IPromptService* prompts = nullptr, QWidget* parent = nullptr);
    ~frmMain() override;

    EditorState& state() const { return *m_state; }
    ListDocument& document() const { return *m_document; }
    Ui::frmMain& ui() const { return *m_ui; }
    QTabBar* tbsStrip() const { return m_tbsStrip; }
    C_ListInfo* ListInfo() const { return m_listInfo.get(); }
    ObjectTexturePage& objectPage() const { return *m_objectPage; }
    AnimationPage& animationPage() const { return *m_animationPage; }
    SpriteTexturePage& spritePage() const { return *m_spritePage; }
    SequencePage& sequencePage() const { return *m_sequencePage; }
    AssignmentPage& assignmentPage() const { return *m_assignmentPage; }

    // Opens a list file as Open List does after its dialog (the command line's list).
    void OpenList(const QString& name);

    // What the window remembers between runs, and what it made of it.
    EditorSettings& settings() const { return *m_settings; }
    RecentListsMenu& recentMenu() const { return *m_recentMenu; }
    BitmapPicker& picker() const { return *m_picker; }
    RoomsDock& rooms() const { return *m_rooms; }
    // The help window once Help has been chosen; null before.
    HelpWindow* helpWindow() const { return m_helpWindow; }
    // A recent list chosen from the menu: opened, or removed when it is gone.
    void OpenRecentList(const QString& path);
    // A file dropped on the window: a list opens, a level starts New List.
    void OpenDroppedFile(const QString& path);

    // Menu commands.
    void mnuFileNewList_Click();
    void mnuFileOpen_Click();
    void mnuFileCloseList_Click();
    void mnuFileSaveList_Click();
    void mnuFileSaveAsList_Click();
    void mnuFileExit_Click();
    void mnuEditUndo_Click();
    void mnuEditRedo_Click();
    void mnuBitmapsShowTiles_Click();
    void mnuListInser_Click();
    void mnuHelpHelp_Click();
    void mnuHelpAbout_Click();

    // Makes the page frame of tab index (1 to 5) the one shown.
    void ShowPage(int index);
    void ReadLevelIntoViews();
    void ClearAllViews();
    // Loads the list's bitmap into the view and shows its statistics.
    void LoadBitmap();
    // Reloads the bitmap and, with Show Tiles, draws the tile borders.
    void ReloadPicture();

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void Form_Load();
    // Settings, recent lists, shortcuts, drops and the bitmap's mouse.
    void SetUpHabits();
    // The title names the open list; the modified mark follows its edits.
    void ShowDocumentInTitle();
    QString LevelFolder() const;
    // The separators are captioned "-" but show a bare line.
    void DrawSeparatorsAsLines();
    void ConnectMenus();
    // Undo and Redo follow the document's undo stack: enabled when it has
    // something to take back or make again, captioned with what that is.
    void ConnectEditMenu();
    // After an undo or redo the pages drop what they were entering.
    void TellPagesOfRewind();
    // Empties the list menus, labels and pages of a list that is set aside.
    void ShowNoList();
    // A header click on a content list sorts only what it shows, and the
    // status bar says so; the texture count follows the rows.
    void FollowDocumentViews();
    void CreatePages();
    bool LoadList(bool IsNew);
    QString GetListFileName(bool IsOpen);
    // The unsaved-changes question before action; false when the user chose
    // to keep the list open (Cancel, or a Save that failed).
    bool PromptSaveChanges(SaveQuestion::Before action);
    bool SaveList();
    void EnableListMenus(bool enabled);
    void UpdateSaveMenu();
    void EnableDocumentMenus(bool enabled);
    void EnableZoom(bool enabled);
    void FillIndexLists();
    void ShowCounters();
    void TellWhatIsMissing();
    void TellBitmapIsCut();
    void Status(const QString& message);

    // A rectangle picked on the bitmap goes to the object and sprite corners.
    void ucScrollPic1_MouseSelect(float X1, float Y1, float X2, float Y2);

    std::unique_ptr<Ui::frmMain> m_ui;
    std::unique_ptr<QtPromptService> m_ownPrompts;
    std::unique_ptr<EditorSettings> m_settings;
    std::unique_ptr<FolderMemoryPrompts> m_folderPrompts;
    std::unique_ptr<ListDocument> m_document;
    std::unique_ptr<EditorState> m_state;
    std::unique_ptr<SaveQuestion> m_saveQuestion;
    std::unique_ptr<C_ListInfo> m_listInfo;
    ObjectTexturePage* m_objectPage = nullptr;
    AnimationPage* m_animationPage = nullptr;
    SpriteTexturePage* m_spritePage = nullptr;
    SequencePage* m_sequencePage = nullptr;
    AssignmentPage* m_assignmentPage = nullptr;
    QList<EditorPage*> m_pages;
    QTabBar* m_tbsStrip = nullptr;
    RecentListsMenu* m_recentMenu = nullptr;
    BitmapPicker* m_picker = nullptr;
    BitmapStatistics* m_statistics = nullptr;
    RoomsDock* m_rooms = nullptr;
    HelpWindow* m_helpWindow = nullptr;
    // A level dropped on the window, for the New List it starts.
    QString m_droppedLevel;
};
