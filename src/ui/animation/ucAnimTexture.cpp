#include "ui/animation/ucAnimTexture.h"

#include "ui/bitmap/BitmapCache.h"

#include <QPainter>

#include <algorithm>

namespace {

// The control's own size less this, each way, when no frame is shown.
constexpr int BorderAllowance = 6;

// The largest viewport side: far beyond any screen, small enough that
// doubling a 32-bit extent can never overflow what a widget measures.
constexpr qint64 LargestSide = qint64(1) << 24;

} // namespace

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
    m_textureShown = false;
    if (!m_loaded) {
        update();
        return false;
    }
    PutPicture(0, 0, width(), height());
    SetViewport(width() - BorderAllowance, height() - BorderAllowance);
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
    SetViewport(qint64(width) * 2, qint64(height) * 2);
}

void ucAnimTexture::StopAnim()
{
    m_textureShown = false;
    SetViewport(width() - BorderAllowance, height() - BorderAllowance);
}

void ucAnimTexture::SetViewport(qint64 width, qint64 height)
{
    m_viewport = QSize(int(std::clamp<qint64>(width, 0, LargestSide)), int(std::clamp<qint64>(height, 0, LargestSide)));
    update();
}

void ucAnimTexture::resizeEvent(QResizeEvent*)
{
    m_origin = QPoint();
    SetViewport(width(), height());
}

void ucAnimTexture::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window));
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    if (IsShowingFrame())
        PaintFrame(painter);
}

void ucAnimTexture::PaintFrame(QPainter& painter) const
{
    const QRect frame = QRect(QPoint(0, 0), m_viewport).intersected(rect());
    if (frame.isEmpty())
        return;
    // The bitmap pixels under the frame, clipped to the bitmap, worked out in
    // 64 bits since the origin may lie anywhere a 32-bit number reaches.
    const qint64 left = m_origin.x();
    const qint64 top = m_origin.y();
    const qint64 x0 = std::max<qint64>(left, 0);
    const qint64 y0 = std::max<qint64>(top, 0);
    const qint64 x1 = std::min<qint64>(left + (frame.width() + 1) / 2, m_image.width());
    const qint64 y1 = std::min<qint64>(top + (frame.height() + 1) / 2, m_image.height());
    if (x0 >= x1 || y0 >= y1)
        return;
    const QRect source(int(x0), int(y0), int(x1 - x0), int(y1 - y0));
    const QRect target(int(2 * (x0 - left)), int(2 * (y0 - top)), 2 * source.width(), 2 * source.height());
    painter.setClipRect(frame);
    // Without smooth transformation each bitmap pixel becomes a sharp 2 x 2 block.
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.drawImage(target, m_image, source);
}
