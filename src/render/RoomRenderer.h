#pragma once

#include "render/RoomCamera.h"

#include <QColor>
#include <QOpenGLExtraFunctions>
#include <QPoint>
#include <QSize>
#include <QString>

#include <memory>
#include <optional>

class QOpenGLShaderProgram;
class QOpenGLFramebufferObject;
class RoomScene;
class TextureTable;
class TileLayers;

// Draws a level's rooms over plain OpenGL 3.3 core calls in whatever context
// is current: the window's view or the command line's offscreen one. It owns
// one vertex buffer of every face, the texture table and one 2D texture
// array of the 256 x 256 tiles. Faces whose texture has attribute 2 are added
// onto what lies behind them, after every other face; see-through texels are
// cut out. Every call needs the context current that initialize() ran in,
// release() too.
class RoomRenderer : protected QOpenGLExtraFunctions
{
public:
    RoomRenderer();
    ~RoomRenderer();

    // False, saying why, when the context cannot run the shaders.
    bool initialize(QString* error = nullptr);
    void release();

    void setScene(const RoomScene& scene);
    void setTextures(const TextureTable& table);
    void setTiles(const TileLayers& tiles);

    QColor background = QColor(40, 44, 52);
    QColor tint = QColor(255, 170, 0); // what a highlighted face is mixed with

    // Into the framebuffer bound now, over the whole viewport.
    void draw(const RoomCamera& camera, QSize viewport);
    // Each pixel's face number plus one as a little-endian RGBA word, 0 where
    // no face is, into the framebuffer bound now: what picking reads.
    void drawFaceNumbers(const RoomCamera& camera, QSize viewport);
    static int faceOfPixel(const quint8* rgba);
    // The face drawn at pixel (top-left origin), or nothing where no face is.
    std::optional<int> pick(const RoomCamera& camera, QSize viewport, QPoint pixel);

    qint64 tileBytes() const { return m_tileBytes; }

private:
    void drawPass(int pass, const RoomCamera& camera, QSize viewport);
    void ensurePickTarget(QSize viewport);

    std::unique_ptr<QOpenGLShaderProgram> m_program;
    std::unique_ptr<QOpenGLFramebufferObject> m_pickTarget;
    GLuint m_vertexArray = 0;
    GLuint m_vertexBuffer = 0;
    GLuint m_tableTexture = 0;
    GLuint m_tileTexture = 0;
    GLsizei m_vertexCount = 0;
    int m_textureCount = 0;
    qint64 m_tileBytes = 0;
    bool m_initialized = false;
};
