#include "ucAnimTexture.h"

#include "BitmapCache.h"

#include <QPainter>

ucAnimTexture::ucAnimTexture(QWidget* parent)
    : QWidget(parent)
{
    setMinimumSize(70, 70);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

bool ucAnimTexture::Init(const QString& fileName)
{
    m_image = BitmapCache::Load(fileName);
    m_loaded = !m_image.isNull();
    if (!m_loaded)
        return false;
    PutPicture(0, 0, width(), height());
    SetViewport(width() - 6, height() - 6);
    return true;
}

void ucAnimTexture::NoPicture()
{
    m_image = QImage();
    update();
}

void ucAnimTexture::PutPicture(qint32 X, qint32 Y, qint32 width, qint32 height)
{
    if (!m_loaded)
        return;
    m_textureShown = true;
    m_origin = QPoint(X, Y);
    // Doubling is done in 64 bits and held to what a widget can show.
    auto doubled = [](qint32 v) { return int(qBound(qint64(0), qint64(v) * 2, qint64(1) << 24)); };
    SetViewport(doubled(width), doubled(height));
}

void ucAnimTexture::StopAnim()
{
    m_textureShown = false;
    SetViewport(width() - 6, height() - 6);
}

void ucAnimTexture::SetViewport(int width, int height)
{
    m_viewport = QSize(qMax(0, width), qMax(0, height));
    update();
}

void ucAnimTexture::resizeEvent(QResizeEvent*)
{
    m_origin = QPoint();
    update();
}

void ucAnimTexture::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window));
    if (!m_textureShown || m_image.isNull())
        return;
    const QRect frame = QRect(QPoint(0, 0), m_viewport).intersected(rect());
    painter.setClipRect(frame);
    // The bitmap part under the frame, each pixel a 2 x 2 block.
    const QRect source(m_origin, QSize((frame.width() + 1) / 2, (frame.height() + 1) / 2));
    const QRect target(0, 0, source.width() * 2, source.height() * 2);
    painter.drawImage(target, m_image, source);
}
