#pragma once

#include "render/ListTextures.h"

#include <QDockWidget>
#include <QPolygon>
#include <QString>
#include <QTimer>

#include <memory>

class EditorState;
class QAbstractButton;
class QComboBox;
class QLabel;
class QStackedWidget;
class RoomScene;
class RoomsView;
class frmMain;

// View, Rooms (F3): the open list's level in 3D beside the bitmap, drawn
// with the list's object textures as they stand now. Every edit, undo and
// redo of the list, the corners of the texture being edited (a flip, a drag
// on the bitmap) before its Accept, a reload of the bitmap and the animated
// ranges' cycling show on the next frame. The chosen texture row tints its faces; a click on
// a face chooses that face's texture row on the Object Textures page, and
// "Show in Rooms" on the texture list goes to the nearest face using a
// texture. Where no OpenGL context can be made, it says so in words.
class RoomsDock : public QDockWidget
{
    Q_OBJECT

public:
    explicit RoomsDock(frmMain& window);
    ~RoomsDock() override;

    RoomsView* view() const { return m_view; }
    QLabel* message() const { return m_message; }
    QComboBox* roomList() const { return m_rooms; }
    // Redraws from the document now rather than on the next turn of the event loop.
    void refreshNow();
    // Frames the face using texture (a row number) nearest to where the view looks.
    void ShowInRooms(int texture);
    void ChooseFace(int face);

private:
    void buildContent();
    void TakeRoomBesideThePages();
    void createView();
    void addMenu();
    void connectDocument();
    void scheduleRefresh();
    void loadLevelIfChanged();
    void uploadTextures();
    void uploadBitmap();
    void showWords(const QString& text);
    void fillRoomList();
    void stepAnimation();
    // The texture being edited as its frame stands, in place of its row.
    void editedRow(QList<ObjectTexture>& textures) const;

    frmMain& m_window;
    EditorState& m_state;
    QStackedWidget* m_pages = nullptr;
    QLabel* m_message = nullptr;
    RoomsView* m_view = nullptr;
    QComboBox* m_rooms = nullptr;
    std::shared_ptr<const RoomScene> m_scene;
    QString m_levelPath;
    QString m_bitmapPath;
    ListTextures m_textures;
    qint64 m_frame = 0;
    QTimer m_animation;
    bool m_refreshPending = false;
    bool m_unavailable = false;
    bool m_sized = false;
    QPolygon m_editOutline;
    const QAbstractButton* m_edit = nullptr;
    // The lists were edited since their textures were last read.
    bool m_listChanged = true;
};
