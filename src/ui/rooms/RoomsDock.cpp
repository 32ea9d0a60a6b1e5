#include "ui/rooms/RoomsDock.h"

#include "level/LevelGeometry.h"
#include "render/RoomScene.h"
#include "render/RoomSurfaceFormat.h"
#include "render/TextureTable.h"
#include "ui/animation/PreviewPlayer.h"
#include "list/TextureGeometry.h"
#include "ui/bitmap/BitmapCache.h"
#include "ui/bitmap/ucScrollPic.h"
#include "ui/common/ButtonCaption.h"
#include "ui/common/EditorState.h"
#include "ui/common/ListView.h"
#include "ui/main/WindowLayout.h"
#include "ui/main/frmMain.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QMenuBar>
#include <QOpenGLContext>
#include <QScreen>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "ui/rooms/RoomsView.h"

namespace {

constexpr int MinimumWidth = 320;

// Whether this machine gives the context the rooms need, asked once. The
// platforms that draw no windows make contexts but cannot show one in a widget.
QString contextRefusal()
{
    const QString platform = QGuiApplication::platformName();
    if (platform == QLatin1String("offscreen") || platform == QLatin1String("minimal"))
        return QStringLiteral("the %1 platform shows no OpenGL in a window").arg(platform);
    QOpenGLContext probe;
    probe.setFormat(RoomSurfaceFormat::format());
    if (!probe.create())
        return RoomSurfaceFormat::noContextText();
    if (!RoomSurfaceFormat::isEnough(probe.format()))
        return RoomSurfaceFormat::tooOldText(probe.format());
    return {};
}

QString unavailableText(const QString& why)
{
    return QStringLiteral("The rooms cannot be shown: %1. Everything else works as before.").arg(why);
}

// What the level's bytes could not give, in one status line.
QString skippedText(const LevelGeometry& geometry)
{
    const QString first = geometry.notes.first();
    if (geometry.notes.size() == 1)
        return QStringLiteral("Rooms: %1").arg(first);
    return QStringLiteral("Rooms: %1 faces and %2 static meshes skipped; %3, and %4 more")
        .arg(geometry.skippedFaces)
        .arg(geometry.skippedStaticMeshes)
        .arg(first)
        .arg(geometry.notes.size() - 1);
}

} // namespace

RoomsDock::RoomsDock(frmMain& window)
    : QDockWidget(QStringLiteral("Rooms"), &window)
    , m_window(window)
    , m_state(window.state())
{
    setObjectName(QStringLiteral("dckRooms"));
    m_edit = window.findChild<QAbstractButton*>(QStringLiteral("cmdEdit"));
    buildContent();
    addMenu();
    connectDocument();
    window.addDockWidget(Qt::LeftDockWidgetArea, this);
    hide();
    m_animation.setInterval(PreviewPlayer::TickInterval);
    connect(&m_animation, &QTimer::timeout, this, &RoomsDock::stepAnimation);
    connect(this, &QDockWidget::visibilityChanged, this, [this](bool visible) {
        if (visible && !m_sized) {
            m_sized = true;
            TakeRoomBesideThePages();
            createView();
        }
        if (visible)
            scheduleRefresh();
        else
            m_animation.stop();
    });
}

RoomsDock::~RoomsDock() = default;

// A third of the window the first time, however narrow the dock was laid
// out, but never the room the bitmap and the page need: the window grows by
// what the rooms take while the screen has room, and the rooms are narrower
// where it has not.
void RoomsDock::TakeRoomBesideThePages()
{
    const int wanted = qMax(MinimumWidth, m_window.width() / 3);
    const int pages = WindowLayout::LeastCentralWidth(m_window);
    const int shortfall = pages + wanted - m_window.width();
    if (shortfall > 0 && !m_window.isMaximized() && !m_window.isFullScreen() && m_window.screen()) {
        const int screenWidth = m_window.screen()->availableGeometry().width();
        const int frame = m_window.frameGeometry().width() - m_window.width();
        m_window.resize(qMin(m_window.width() + shortfall, screenWidth - frame), m_window.height());
    }
    m_window.resizeDocks({this}, {qMax(MinimumWidth, qMin(wanted, m_window.width() - pages))}, Qt::Horizontal);
}

void RoomsDock::buildContent()
{
    auto* content = new QWidget(this);
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(2, 2, 2, 2);
    m_rooms = new QComboBox(content);
    m_rooms->setObjectName(QStringLiteral("cmbRooms"));
    m_rooms->setToolTip(QStringLiteral("Go to room N"));
    layout->addWidget(m_rooms);
    m_pages = new QStackedWidget(content);
    m_message = new QLabel(content);
    m_message->setObjectName(QStringLiteral("lblRoomsMessage"));
    m_message->setWordWrap(true);
    m_message->setAlignment(Qt::AlignCenter);
    m_pages->addWidget(m_message);
    layout->addWidget(m_pages, 1);
    setWidget(content);
    connect(m_rooms, &QComboBox::activated, this, [this](int index) {
        if (!m_view)
            return;
        if (index == 0)
            m_view->frameLevel();
        else
            m_view->frameRoom(index - 1);
    });
}

// The context is asked for only once the rooms are first shown, so a window
// that never shows them pays nothing for OpenGL.
void RoomsDock::createView()
{
    const QString refusal = contextRefusal();
    m_unavailable = !refusal.isEmpty();
    if (m_unavailable) {
        m_message->setText(unavailableText(refusal));
    } else {
        m_view = new RoomsView(m_pages);
        m_pages->addWidget(m_view);
        connect(m_view, &RoomsView::faceClicked, this, &RoomsDock::ChooseFace);
        connect(m_view, &RoomsView::failed, this, [this](const QString& why) {
            m_unavailable = true;
            showWords(unavailableText(why));
        });
    }
}

void RoomsDock::addMenu()
{
    QAction* toggle = toggleViewAction();
    toggle->setObjectName(QStringLiteral("mnuViewRooms"));
    toggle->setText(QStringLiteral("&Rooms"));
    toggle->setShortcut(Qt::Key_F3);
    auto* menu = new QMenu(QStringLiteral("&View"), m_window.menuBar());
    menu->setObjectName(QStringLiteral("mnuView"));
    menu->addAction(toggle);
    // Before Help, the last menu.
    const QList<QAction*> menus = m_window.menuBar()->actions();
    m_window.menuBar()->insertMenu(menus.isEmpty() ? nullptr : menus.last(), menu);

    if (auto* list = m_window.findChild<ListView*>(QStringLiteral("lsvTextures"))) {
        auto* show = new QAction(QStringLiteral("Show in Rooms"), list);
        show->setObjectName(QStringLiteral("mnuShowInRooms"));
        list->setContextMenuPolicy(Qt::ActionsContextMenu);
        list->addAction(show);
        connect(show, &QAction::triggered, this, [this] {
            const int row = m_state.views.lsvTextures.selectedRow();
            if (row >= 0)
                ShowInRooms(row);
        });
    }
}

void RoomsDock::connectDocument()
{
    // Only an edit of the lists (an Accept, an undo, a redo, a reload) makes
    // the textures be read from them again; a chosen row, a drag or an
    // animation frame redraws from what was read.
    const auto listChanged = [this] {
        m_listChanged = true;
        scheduleRefresh();
    };
    for (ListRows* rows : std::initializer_list<ListRows*>{&m_state.views.lsvTextures, &m_state.views.lsvAnims,
                                                           &m_state.views.lsvAnimDetails}) {
        connect(rows, &QAbstractItemModel::modelReset, this, listChanged);
        connect(rows, &QAbstractItemModel::rowsInserted, this, listChanged);
        connect(rows, &QAbstractItemModel::rowsRemoved, this, listChanged);
        connect(rows, &QAbstractItemModel::dataChanged, this, listChanged);
        connect(rows, &QAbstractItemModel::layoutChanged, this, listChanged);
    }
    connect(&m_state.views.lsvTextures, &ListRows::selectedRowChanged, this, [this] { scheduleRefresh(); });
    if (ucScrollPic* bitmap = m_state.picture()) {
        // A flip, a drag or a typed corner of the texture being edited shows before its Accept.
        connect(bitmap, &ucScrollPic::EditOutlineChanged, this, [this](const QPolygon& corners) {
            m_editOutline = corners;
            scheduleRefresh();
        });
    }
    connect(&m_state, &EditorState::reloadPictureRequested, this, [this] {
        m_bitmapPath.clear(); // the file may have changed under the same name
        scheduleRefresh();
    });
}

// Many signals come from one edit; the view is brought up to date once, after them.
void RoomsDock::scheduleRefresh()
{
    if (m_refreshPending || !isVisible() || m_unavailable)
        return;
    m_refreshPending = true;
    QTimer::singleShot(0, this, &RoomsDock::refreshNow);
}

void RoomsDock::refreshNow()
{
    m_refreshPending = false;
    if (m_unavailable || !m_view)
        return;
    loadLevelIfChanged();
    if (!m_scene)
        return;
    uploadBitmap();
    uploadTextures();
    if (m_textures.ranges.isEmpty())
        m_animation.stop();
    else if (!m_animation.isActive())
        m_animation.start();
}

void RoomsDock::showWords(const QString& text)
{
    m_message->setText(text);
    m_pages->setCurrentWidget(m_message);
}

void RoomsDock::loadLevelIfChanged()
{
    const QString level = m_state.document().LevelFileName();
    if (level == m_levelPath && m_scene)
        return;
    m_levelPath = level;
    m_scene.reset();
    m_bitmapPath.clear();
    if (!m_state.document().IsListOpen() || level.isEmpty()) {
        showWords(QStringLiteral("The open list has no level: the rooms are those of the level a list is made from."));
        fillRoomList();
        return;
    }
    FileError error;
    const std::optional<LevelGeometry> geometry = LevelGeometry::ofLevel(level, &error);
    if (!geometry) {
        showWords(QStringLiteral("The list's level cannot be read: %1").arg(error.text()));
        fillRoomList();
        return;
    }
    m_scene = std::make_shared<const RoomScene>(*geometry);
    m_view->setScene(m_scene);
    m_view->frameLevel();
    m_pages->setCurrentWidget(m_view);
    fillRoomList();
    if (!geometry->notes.isEmpty())
        m_state.ShowStatus(skippedText(*geometry));
}

void RoomsDock::fillRoomList()
{
    m_rooms->clear();
    m_rooms->addItem(QStringLiteral("Whole level"));
    for (int r = 0; m_scene && r < m_scene->roomCount(); ++r)
        m_rooms->addItem(QStringLiteral("Go to room %1").arg(r));
    m_rooms->setEnabled(m_scene != nullptr);
}

void RoomsDock::uploadBitmap()
{
    const QString bitmap = m_state.document().BitmapFileName();
    if (bitmap == m_bitmapPath)
        return;
    m_bitmapPath = bitmap;
    m_view->setBitmap(BitmapCache::Load(bitmap));
}

void RoomsDock::uploadTextures()
{
    if (m_listChanged) {
        m_textures = ListTextures::of(m_state.document());
        m_listChanged = false;
    }
    QList<ObjectTexture> textures = m_textures.textures;
    editedRow(textures);
    QSet<int> chosen;
    if (const int row = m_state.views.lsvTextures.selectedRow(); row >= 0)
        chosen.insert(row);
    m_view->setTextures(TextureTable::build(textures, m_textures.shownAt(m_frame), chosen));
}

void RoomsDock::editedRow(QList<ObjectTexture>& textures) const
{
    const int row = m_state.views.lsvTextures.selectedRow();
    if (m_editOutline.size() < 3 || !m_edit || !ButtonCaption::Is(*m_edit, u"Accept") || row < 0
        || row >= textures.size())
        return;
    // The frame's corners are whole-bitmap pixels: the right- and bottom-most
    // stand for the far side of their pixel, as a rectangle's Hi corner does.
    const QRect bounds = m_editOutline.boundingRect();
    ObjectTexture& record = textures[row];
    record.setColumn(ObjectTexture::TileColumn, bounds.top() / TextureGeometry::TileSize);
    for (int c = 0; c < 4; ++c) {
        if (c >= m_editOutline.size()) {
            // A triangle's fourth corner is all zeros, as the list stores it.
            for (int column : {ObjectTexture::XColumn(c), ObjectTexture::YColumn(c), ObjectTexture::XHiColumn(c),
                               ObjectTexture::YHiColumn(c)})
                record.setColumn(column, 0);
            continue;
        }
        const QPoint at = m_editOutline[c];
        const bool farX = at.x() == bounds.right() && at.x() > bounds.left();
        const bool farY = at.y() == bounds.bottom() && at.y() > bounds.top();
        const int y = at.y() - bounds.top() / TextureGeometry::TileSize * TextureGeometry::TileSize;
        record.setColumn(ObjectTexture::XColumn(c), qMin(at.x(), TextureGeometry::TileSize - 1));
        record.setColumn(ObjectTexture::YColumn(c), qMin(y, TextureGeometry::TileSize - 1));
        record.setColumn(ObjectTexture::XHiColumn(c), farX ? TextureGeometry::HighEdge : TextureGeometry::LowEdge);
        record.setColumn(ObjectTexture::YHiColumn(c), farY ? TextureGeometry::HighEdge : TextureGeometry::LowEdge);
    }
}

void RoomsDock::stepAnimation()
{
    ++m_frame;
    scheduleRefresh();
}

void RoomsDock::ShowInRooms(int texture)
{
    if (!isVisible())
        show();
    refreshNow();
    if (!m_scene || !m_view)
        return;
    const std::optional<int> face = m_scene->nearestFaceUsing(texture, m_view->camera().target);
    if (!face) {
        m_state.ShowStatus(QStringLiteral("No face of the level's rooms uses texture %1.").arg(texture));
        return;
    }
    m_view->frameFace(*face);
}

void RoomsDock::ChooseFace(int face)
{
    if (!m_scene || face < 0 || face >= m_scene->faces().size())
        return;
    const RoomScene::FaceRef& ref = m_scene->faces()[face];
    const QString where = ref.staticMesh < 0
                            ? QStringLiteral("Room %1, face %2, texture %3").arg(ref.room).arg(ref.face).arg(ref.texture)
                            : QStringLiteral("Room %1, static mesh %2, face %3, texture %4")
                                  .arg(ref.room)
                                  .arg(ref.staticMesh)
                                  .arg(ref.face)
                                  .arg(ref.texture);
    ListRows& rows = m_state.views.lsvTextures;
    if (ref.texture >= rows.count()) {
        m_state.ShowStatus(QStringLiteral("%1: the list has no texture %2").arg(where).arg(ref.texture));
        return;
    }
    m_window.ShowPage(1);
    rows.setSelectedRow(ref.texture);
    if (auto* list = m_window.findChild<ListView*>(QStringLiteral("lsvTextures")))
        emit list->ItemClick(ref.texture);
    m_state.ShowStatus(where);
}
