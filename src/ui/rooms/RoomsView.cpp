#include "ui/rooms/RoomsView.h"

#include "render/RoomSurfaceFormat.h"
#include "render/TextureTable.h"
#include "render/TileLayers.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QOpenGLContext>
#include <QWheelEvent>

namespace {

constexpr int DragThreshold = 4;       // pixels a press may move and still be a click
constexpr float OrbitPerPixel = 0.4f;  // degrees
constexpr float WalkStep = 0.5f;       // sectors per key press
constexpr float WheelStep = 120.0f;    // one notch

} // namespace

RoomsView::RoomsView(QWidget* parent)
    : QOpenGLWidget(parent)
{
    setObjectName(QStringLiteral("vwRooms"));
    setFormat(RoomSurfaceFormat::format());
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(160, 120);
}

RoomsView::~RoomsView()
{
    releaseRenderer();
}

void RoomsView::releaseRenderer()
{
    if (!m_ready || !context())
        return;
    makeCurrent();
    m_renderer.release();
    doneCurrent();
    m_ready = false;
}

void RoomsView::initializeGL()
{
    connect(context(), &QOpenGLContext::aboutToBeDestroyed, this, &RoomsView::releaseRenderer, Qt::UniqueConnection);
    QString why;
    if (!RoomSurfaceFormat::isEnough(context()->format()))
        why = RoomSurfaceFormat::tooOldText(context()->format());
    else if (!m_renderer.initialize(&why))
        why = QStringLiteral("the rooms' shaders cannot be built: %1").arg(why);
    m_ready = why.isEmpty();
    m_sceneChanged = m_tableChanged = m_bitmapChanged = true;
    if (!m_ready) {
        m_failure = why;
        emit failed(why);
    }
}

void RoomsView::setScene(std::shared_ptr<const RoomScene> scene)
{
    m_scene = std::move(scene);
    m_sceneChanged = true;
    update();
}

void RoomsView::setTextures(const TextureTable& table)
{
    m_table = std::make_unique<TextureTable>(table);
    m_tableChanged = true;
    update();
}

void RoomsView::setBitmap(const QImage& bitmap)
{
    m_bitmap = bitmap;
    m_bitmapChanged = true;
    update();
}

// What changed since the last frame goes to the renderer now that its context is current.
void RoomsView::uploadPending()
{
    if (m_sceneChanged) {
        m_renderer.setScene(m_scene ? *m_scene : RoomScene());
        m_sceneChanged = false;
    }
    if (m_tableChanged && m_table)
        m_renderer.setTextures(*m_table);
    if (m_bitmapChanged)
        m_renderer.setTiles(TileLayers(m_bitmap));
    m_tableChanged = m_bitmapChanged = false;
}

void RoomsView::paintGL()
{
    if (!m_ready)
        return;
    uploadPending();
    const qreal ratio = devicePixelRatioF();
    m_renderer.draw(m_camera, QSize(int(width() * ratio), int(height() * ratio)));
}

std::optional<int> RoomsView::faceAt(QPoint pixel)
{
    if (!m_ready)
        return std::nullopt;
    makeCurrent();
    uploadPending();
    const qreal ratio = devicePixelRatioF();
    const QSize size(int(width() * ratio), int(height() * ratio));
    const std::optional<int> face =
        m_renderer.pick(m_camera, size, QPoint(int(pixel.x() * ratio), int(pixel.y() * ratio)));
    doneCurrent();
    return face;
}

void RoomsView::frame(const RoomScene::Bounds& bounds)
{
    const RoomCamera framed = RoomCamera::framing(bounds.centre, bounds.radius);
    m_camera.target = framed.target;
    m_camera.distance = framed.distance;
    update();
}

void RoomsView::frameLevel()
{
    if (m_scene)
        frame(m_scene->levelBounds());
}

void RoomsView::frameRoom(int room)
{
    if (m_scene && room >= 0 && room < m_scene->roomCount())
        frame(m_scene->roomBounds(room));
}

void RoomsView::frameFace(int face)
{
    if (!m_scene || face < 0 || face >= m_scene->faces().size())
        return;
    m_camera.target = m_scene->faces()[face].centre;
    m_camera.distance = 4.0f;
    update();
}

void RoomsView::mousePressEvent(QMouseEvent* event)
{
    m_pressAt = m_lastAt = event->position().toPoint();
    m_dragged = false;
}

void RoomsView::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint at = event->position().toPoint();
    const QPoint delta = at - m_lastAt;
    m_lastAt = at;
    if ((at - m_pressAt).manhattanLength() > DragThreshold)
        m_dragged = true;
    if (event->buttons() & Qt::LeftButton)
        m_camera.orbit(delta.x() * OrbitPerPixel, delta.y() * OrbitPerPixel);
    else if (event->buttons() & (Qt::RightButton | Qt::MiddleButton))
        m_camera.pan(-delta.x(), delta.y());
    update();
}

void RoomsView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || m_dragged)
        return;
    if (const std::optional<int> face = faceAt(event->position().toPoint()))
        emit faceClicked(*face);
}

void RoomsView::wheelEvent(QWheelEvent* event)
{
    m_camera.zoom(float(event->angleDelta().y()) / WheelStep);
    update();
}

void RoomsView::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_W: m_camera.walk(WalkStep, 0); break;
    case Qt::Key_S: m_camera.walk(-WalkStep, 0); break;
    case Qt::Key_A: m_camera.walk(0, -WalkStep); break;
    case Qt::Key_D: m_camera.walk(0, WalkStep); break;
    case Qt::Key_Home: frameLevel(); return;
    default: QOpenGLWidget::keyPressEvent(event); return;
    }
    update();
}
