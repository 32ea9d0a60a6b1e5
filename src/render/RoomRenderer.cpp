#include "render/RoomRenderer.h"

#include "render/RoomScene.h"
#include "render/TextureTable.h"
#include "render/TileLayers.h"

#include <QFile>
#include <QOpenGLFramebufferObject>
#include <QOpenGLShaderProgram>

#ifndef GL_BGRA
#define GL_BGRA 0x80E1
#endif
#ifndef GL_UNSIGNED_SHORT_1_5_5_5_REV
#define GL_UNSIGNED_SHORT_1_5_5_5_REV 0x8366
#endif

namespace {

constexpr int OpaquePass = 0;
constexpr int BlendedPass = 1;
constexpr int PickPass = 2;

QByteArray shaderSource(const QString& name)
{
    QFile file(QStringLiteral(":/render/shaders/") + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

RoomRenderer::RoomRenderer() = default;

RoomRenderer::~RoomRenderer() = default;

bool RoomRenderer::initialize(QString* error)
{
    initializeOpenGLFunctions();
    m_program = std::make_unique<QOpenGLShaderProgram>();
    const bool built = m_program->addShaderFromSourceCode(QOpenGLShader::Vertex, shaderSource("rooms.vert"))
                    && m_program->addShaderFromSourceCode(QOpenGLShader::Fragment, shaderSource("rooms.frag"))
                    && m_program->link();
    if (!built) {
        if (error)
            *error = m_program->log().trimmed();
        m_program.reset();
        return false;
    }
    glGenVertexArrays(1, &m_vertexArray);
    glGenBuffers(1, &m_vertexBuffer);
    glGenTextures(1, &m_tableTexture);
    glGenTextures(1, &m_tileTexture);

    glBindVertexArray(m_vertexArray);
    glBindBuffer(GL_ARRAY_BUFFER, m_vertexBuffer);
    constexpr GLsizei stride = sizeof(RoomScene::DrawVertex);
    glEnableVertexAttribArray(0);
    glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, stride, reinterpret_cast<void*>(offsetof(RoomScene::DrawVertex, x)));
    glEnableVertexAttribArray(1);
    glVertexAttribIPointer(1, 1, GL_UNSIGNED_SHORT, stride, reinterpret_cast<void*>(offsetof(RoomScene::DrawVertex, texture)));
    glEnableVertexAttribArray(2);
    glVertexAttribIPointer(2, 1, GL_UNSIGNED_BYTE, stride, reinterpret_cast<void*>(offsetof(RoomScene::DrawVertex, corner)));
    glEnableVertexAttribArray(3);
    glVertexAttribIPointer(3, 1, GL_UNSIGNED_INT, stride, reinterpret_cast<void*>(offsetof(RoomScene::DrawVertex, face)));
    glBindVertexArray(0);

    for (GLuint texture : {m_tableTexture, m_tileTexture}) {
        const GLenum target = texture == m_tableTexture ? GL_TEXTURE_2D : GL_TEXTURE_2D_ARRAY;
        glBindTexture(target, texture);
        glTexParameteri(target, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
        glTexParameteri(target, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
        glTexParameteri(target, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
        glTexParameteri(target, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
        glTexParameteri(target, GL_TEXTURE_MAX_LEVEL, 0);
    }
    setTextures(TextureTable::build({}));
    setTiles(TileLayers(QImage()));
    m_initialized = true;
    return true;
}

void RoomRenderer::release()
{
    if (!m_initialized)
        return;
    m_pickTarget.reset();
    glDeleteTextures(1, &m_tileTexture);
    glDeleteTextures(1, &m_tableTexture);
    glDeleteBuffers(1, &m_vertexBuffer);
    glDeleteVertexArrays(1, &m_vertexArray);
    m_program.reset();
    m_initialized = false;
}

void RoomRenderer::setScene(const RoomScene& scene)
{
    const auto& vertices = scene.vertices();
    glBindBuffer(GL_ARRAY_BUFFER, m_vertexBuffer);
    glBufferData(GL_ARRAY_BUFFER, GLsizeiptr(vertices.size() * sizeof(RoomScene::DrawVertex)), vertices.data(),
                 GL_STATIC_DRAW);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
    m_vertexCount = GLsizei(vertices.size());
}

void RoomRenderer::setTextures(const TextureTable& table)
{
    glBindTexture(GL_TEXTURE_2D, m_tableTexture);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA32F, TextureTable::Width, table.rows(), 0, GL_RGBA, GL_FLOAT,
                 table.texels().data());
    m_textureCount = table.textureCount();
}

void RoomRenderer::setTiles(const TileLayers& tiles)
{
    // An empty bitmap still gives the sampler one see-through layer.
    static const std::vector<quint16> blank(size_t(TileLayers::TileSize) * TileLayers::TileSize, 0);
    const int layers = qMax(1, tiles.count());
    glBindTexture(GL_TEXTURE_2D_ARRAY, m_tileTexture);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 2);
    glTexImage3D(GL_TEXTURE_2D_ARRAY, 0, GL_RGB5_A1, TileLayers::TileSize, TileLayers::TileSize, layers, 0, GL_BGRA,
                 GL_UNSIGNED_SHORT_1_5_5_5_REV, tiles.count() > 0 ? tiles.texels().data() : blank.data());
    m_tileBytes = qint64(layers) * TileLayers::TileSize * TileLayers::TileSize * 2;
}

void RoomRenderer::draw(const RoomCamera& camera, QSize viewport)
{
    glViewport(0, 0, viewport.width(), viewport.height());
    glClearColor(background.redF(), background.greenF(), background.blueF(), 1.0f);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    if (!m_program)
        return;
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    glDisable(GL_CULL_FACE); // rooms are seen from outside as well as in
    glDisable(GL_BLEND);
    drawPass(OpaquePass, camera, viewport);
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE, GL_ONE);
    glDepthMask(GL_FALSE);
    drawPass(BlendedPass, camera, viewport);
    glDepthMask(GL_TRUE);
    glDisable(GL_BLEND);
}

void RoomRenderer::drawPass(int pass, const RoomCamera& camera, QSize viewport)
{
    m_program->bind();
    m_program->setUniformValue("uViewProjection", camera.viewProjection(viewport));
    m_program->setUniformValue("uTextureCount", m_textureCount);
    m_program->setUniformValue("uPass", pass);
    m_program->setUniformValue("uTint", QVector3D(tint.redF(), tint.greenF(), tint.blueF()));
    m_program->setUniformValue("uTiles", 0);
    m_program->setUniformValue("uTable", 1);
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D_ARRAY, m_tileTexture);
    glActiveTexture(GL_TEXTURE1);
    glBindTexture(GL_TEXTURE_2D, m_tableTexture);
    glActiveTexture(GL_TEXTURE0);
    glBindVertexArray(m_vertexArray);
    glDrawArrays(GL_TRIANGLES, 0, m_vertexCount);
    glBindVertexArray(0);
    m_program->release();
}

void RoomRenderer::ensurePickTarget(QSize viewport)
{
    if (!m_pickTarget || m_pickTarget->size() != viewport)
        m_pickTarget = std::make_unique<QOpenGLFramebufferObject>(viewport, QOpenGLFramebufferObject::Depth);
}

std::optional<int> RoomRenderer::pick(const RoomCamera& camera, QSize viewport, QPoint pixel)
{
    if (!m_program || !QRect(QPoint(), viewport).contains(pixel))
        return std::nullopt;
    GLint previous = 0;
    glGetIntegerv(GL_FRAMEBUFFER_BINDING, &previous);
    ensurePickTarget(viewport);
    m_pickTarget->bind();
    // Only the one pixel is drawn: the rest of the frame costs nothing.
    const int row = viewport.height() - 1 - pixel.y();
    glEnable(GL_SCISSOR_TEST);
    glScissor(pixel.x(), row, 1, 1);
    drawFaceNumbers(camera, viewport);
    glDisable(GL_SCISSOR_TEST);
    quint8 rgba[4] = {};
    glReadPixels(pixel.x(), row, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, rgba);
    glBindFramebuffer(GL_FRAMEBUFFER, GLuint(previous));
    const int face = faceOfPixel(rgba);
    return face >= 0 ? std::optional<int>(face) : std::nullopt;
}

void RoomRenderer::drawFaceNumbers(const RoomCamera& camera, QSize viewport)
{
    glViewport(0, 0, viewport.width(), viewport.height());
    glClearColor(0, 0, 0, 0);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    if (!m_program)
        return;
    glEnable(GL_DEPTH_TEST);
    glDisable(GL_BLEND);
    drawPass(PickPass, camera, viewport);
}

int RoomRenderer::faceOfPixel(const quint8* rgba)
{
    const quint32 id = quint32(rgba[0]) | quint32(rgba[1]) << 8 | quint32(rgba[2]) << 16 | quint32(rgba[3]) << 24;
    return int(id) - 1;
}
