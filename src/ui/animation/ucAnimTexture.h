#pragma once

#include <QImage>
#include <QRect>
#include <QWidget>

// Shows one rectangle of the texture bitmap at twice its size: a frame of an
// animation or a sequence preview.
class ucAnimTexture : public QWidget
{
    Q_OBJECT

public:
    explicit ucAnimTexture(QWidget* parent = nullptr);

    // Loads the bitmap; False when it cannot be read (nothing is shown then).
    bool Init(const QString& fileName);
    void NoPicture();
    // Shows the width x height pixels at (X, Y), doubled; nothing before Init.
    void PutPicture(qint32 X, qint32 Y, qint32 width, qint32 height);
    void StopAnim();

    bool IsLoaded() const { return m_loaded; }
    bool IsShowingFrame() const { return m_textureShown && !m_image.isNull(); }
    // The bitmap point at the viewport's top left, and the viewport's size.
    QPoint FrameOrigin() const { return m_origin; }
    QSize FrameViewport() const { return m_viewport; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void SetViewport(int width, int height);

    QImage m_image;
    bool m_loaded = false;
    bool m_textureShown = false;
    QPoint m_origin;
    QSize m_viewport;
};
