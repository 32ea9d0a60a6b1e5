#pragma once

#include "render/RoomCamera.h"
#include "render/RoomRenderer.h"
#include "render/RoomScene.h"

#include <QImage>
#include <QOpenGLWidget>
#include <QPoint>

#include <memory>
#include <optional>

class TextureTable;

// The level's rooms, drawn by the shared renderer in the window. Drag to
// orbit, right-drag or W, A, S, D to move, the wheel to zoom, Home to frame
// the whole level. A click (a press and release without a drag) picks the
// face under the pointer.
class RoomsView : public QOpenGLWidget
{
    Q_OBJECT

public:
    explicit RoomsView(QWidget* parent = nullptr);
    ~RoomsView() override;

    // What is drawn; each takes effect on the next frame.
    void setScene(std::shared_ptr<const RoomScene> scene);
    void setTextures(const TextureTable& table);
    void setBitmap(const QImage& bitmap);

    const RoomScene* scene() const { return m_scene.get(); }
    RoomCamera& camera() { return m_camera; }
    void frameLevel();
    void frameRoom(int room);
    void frameFace(int face);

    // Why the view draws nothing, once the context turned out unusable; "" while it draws.
    QString failure() const { return m_failure; }
    // The face at a pixel of the view, as a click picks it.
    std::optional<int> faceAt(QPoint pixel);

signals:
    void faceClicked(int face);
    // The renderer could not start: why, in words.
    void failed(const QString& why);

protected:
    void initializeGL() override;
    void paintGL() override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void releaseRenderer();
    void uploadPending();
    void frame(const RoomScene::Bounds& bounds);

    RoomRenderer m_renderer;
    RoomCamera m_camera;
    std::shared_ptr<const RoomScene> m_scene;
    // Kept, not only passed on: a dock floated or docked again makes a new
    // context, which is given everything anew.
    std::unique_ptr<TextureTable> m_table;
    QImage m_bitmap;
    bool m_sceneChanged = false;
    bool m_tableChanged = false;
    bool m_bitmapChanged = false;
    bool m_ready = false;
    QString m_failure;
    QPoint m_pressAt;
    QPoint m_lastAt;
    bool m_dragged = false;
};
