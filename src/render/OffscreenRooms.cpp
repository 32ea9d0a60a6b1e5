#include "render/OffscreenRooms.h"

#include "render/RoomSurfaceFormat.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions>

#include <vector>

OffscreenRooms::OffscreenRooms(QSize size)
    : m_size(size)
{
}

OffscreenRooms::~OffscreenRooms()
{
    if (m_ready) {
        makeCurrent();
        m_target.reset();
        m_renderer.release();
        m_context->doneCurrent();
    }
}

bool OffscreenRooms::create(QString* error)
{
    const auto refuse = [error](const QString& why) {
        if (error)
            *error = why;
        return false;
    };
    m_context = std::make_unique<QOpenGLContext>();
    m_context->setFormat(RoomSurfaceFormat::format());
    if (!m_context->create())
        return refuse(RoomSurfaceFormat::noContextText());
    if (!RoomSurfaceFormat::isEnough(m_context->format()))
        return refuse(RoomSurfaceFormat::tooOldText(m_context->format()));
    m_surface = std::make_unique<QOffscreenSurface>();
    m_surface->setFormat(m_context->format());
    m_surface->create();
    if (!m_surface->isValid() || !m_context->makeCurrent(m_surface.get()))
        return refuse(RoomSurfaceFormat::noContextText());
    QString why;
    if (!m_renderer.initialize(&why))
        return refuse(QStringLiteral("the rooms' shaders cannot be built: %1").arg(why));
    m_target = std::make_unique<QOpenGLFramebufferObject>(m_size, QOpenGLFramebufferObject::Depth);
    m_ready = m_target->isValid();
    if (!m_ready)
        return refuse(QStringLiteral("no framebuffer of %1 x %2 can be made").arg(m_size.width()).arg(m_size.height()));
    return true;
}

void OffscreenRooms::makeCurrent()
{
    m_context->makeCurrent(m_surface.get());
}

QImage OffscreenRooms::render(const RoomCamera& camera)
{
    draw(camera);
    return m_target->toImage().convertToFormat(QImage::Format_RGB32);
}

void OffscreenRooms::draw(const RoomCamera& camera)
{
    makeCurrent();
    m_target->bind();
    m_renderer.draw(camera, m_size);
    m_context->functions()->glFinish();
    m_target->release();
}

std::optional<int> OffscreenRooms::pick(const RoomCamera& camera, QPoint pixel)
{
    makeCurrent();
    return m_renderer.pick(camera, m_size, pixel);
}

QList<int> OffscreenRooms::faceNumbers(const RoomCamera& camera)
{
    makeCurrent();
    m_target->bind();
    m_renderer.drawFaceNumbers(camera, m_size);
    // Read as bytes: an image's alpha handling would change the numbers.
    const int width = m_size.width(), height = m_size.height();
    std::vector<quint8> rgba(size_t(width) * height * 4);
    m_context->functions()->glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
    m_target->release();
    QList<int> faces;
    faces.reserve(qsizetype(width) * height);
    for (int y = height - 1; y >= 0; --y) {
        for (int x = 0; x < width; ++x)
            faces.append(RoomRenderer::faceOfPixel(rgba.data() + (size_t(y) * width + x) * 4));
    }
    return faces;
}
