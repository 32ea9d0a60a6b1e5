#pragma once

#include "render/RoomRenderer.h"

#include <QImage>
#include <QSize>
#include <QString>

#include <memory>

class QOffscreenSurface;
class QOpenGLContext;
class QOpenGLFramebufferObject;

// The renderer without a window: an OpenGL 3.3 core context on an offscreen
// surface, drawing into a framebuffer object of a fixed size. What the
// command line and the tests draw with. Needs a QGuiApplication.
class OffscreenRooms
{
public:
    explicit OffscreenRooms(QSize size);
    ~OffscreenRooms();

    // False, saying why in one line, when no context can be made here.
    bool create(QString* error);

    QSize size() const { return m_size; }
    RoomRenderer& renderer() { return m_renderer; }
    // Makes the context current, for calls on the renderer.
    void makeCurrent();

    QImage render(const RoomCamera& camera);
    // One frame drawn and finished, not read back: what a frame costs.
    void draw(const RoomCamera& camera);
    std::optional<int> pick(const RoomCamera& camera, QPoint pixel);
    // Every pixel's face number, row after row from the top; -1 where none.
    QList<int> faceNumbers(const RoomCamera& camera);

private:
    QSize m_size;
    std::unique_ptr<QOpenGLContext> m_context;
    std::unique_ptr<QOffscreenSurface> m_surface;
    std::unique_ptr<QOpenGLFramebufferObject> m_target;
    RoomRenderer m_renderer;
    bool m_ready = false;
};
