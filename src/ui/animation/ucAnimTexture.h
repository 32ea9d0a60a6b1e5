#pragma once

#include <QImage>
#include <QPoint>
#include <QSize>
#include <QWidget>

// Shows one rectangle of the texture bitmap at twice its size, with sharp
// pixels: a frame of an animation or a sequence preview. The bitmap is kept
// once at its own size and the shown part is doubled while painting; the
// viewport (the area the frame may cover, from the top-left corner) clips it.
class ucAnimTexture : public QWidget
{
    Q_OBJECT

public:
    explicit ucAnimTexture(QWidget* parent = nullptr);

    // Loads the bitmap and shows its top-left part over the whole control,
    // then leaves the viewport at the control's size less 6 each way.
    // False when the file cannot be read: nothing is shown then.
    bool Init(const QString& fileName);
    // Removes the bitmap from the display.
    void NoPicture();
    // Shows the width x height pixels at (X, Y) as a 2 x width by 2 x height
    // image; nothing before Init.
    void PutPicture(qint32 X, qint32 Y, qint32 width, qint32 height);
    // Hides the frame; the viewport returns to the control's size less 6.
    void StopAnim();

    bool IsShowingFrame() const { return m_textureShown && !m_image.isNull(); }
    // The bitmap pixel at the viewport's top-left, and the viewport's size.
    QPoint FrameOrigin() const { return m_origin; }
    QSize FrameViewport() const { return m_viewport; }

    QSize sizeHint() const override { return {140, 140}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void SetViewport(qint64 width, qint64 height);
    void PaintFrame(QPainter& painter) const;

    QImage m_image;
    bool m_loaded = false;
    bool m_textureShown = false;
    QPoint m_origin;
    QSize m_viewport;
};
