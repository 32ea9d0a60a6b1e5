#include "ucScrollPicCanvas.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

ucScrollPicCanvas::ucScrollPicCanvas(QWidget* parent)
    : QWidget(parent)
{
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    QFont small = font();
    small.setPointSize(8);
    setFont(small);
}

void ucScrollPicCanvas::setOffset(QPoint offset)
{
    if (offset == m_offset)
        return;
    m_offset = offset;
    update();
}

void ucScrollPicCanvas::addShape(Shape shape)
{
    switch (shape.kind) {
    case Shape::Contour:
    case Shape::Line:
        shape.bounds = QRect(shape.p1, shape.p2).normalized().adjusted(-1, -1, 1, 1);
        break;
    case Shape::Text:
        shape.bounds = QRect(shape.p1, fontMetrics().boundingRect(shape.text).size()).adjusted(-2, -2, 2, 2);
        break;
    }
    const QRect visible(m_offset, size());
    if (visible.intersects(shape.bounds))
        update(shape.bounds.translated(-m_offset));
    m_shapes.push_back(std::move(shape));
}

void ucScrollPicCanvas::clearShapes()
{
    if (m_shapes.empty())
        return;
    m_shapes.clear();
    update();
}

void ucScrollPicCanvas::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    paintView(painter, event->rect());
}

void ucScrollPicCanvas::paintView(QPainter& painter, const QRect& area) const
{
    painter.fillRect(area, palette().color(QPalette::Dark));
    if (m_image.isNull())
        return;
    const QRect visible = area.translated(m_offset).intersected(QRect(QPoint(0, 0), pictureSize()));
    if (visible.isEmpty())
        return;
    painter.save();
    painter.translate(-m_offset);
    paintBitmap(painter, visible);
    paintShapes(painter, visible);
    painter.restore();
}

void ucScrollPicCanvas::paintBitmap(QPainter& painter, const QRect& visible) const
{
    // The bitmap pixels under the visible part, whole pixels only, each drawn
    // as a zoom x zoom block with no smoothing.
    const int left = visible.left() / m_zoom;
    const int top = visible.top() / m_zoom;
    const int right = (visible.right() + m_zoom) / m_zoom;
    const int bottom = (visible.bottom() + m_zoom) / m_zoom;
    const QRect source(left, top, right - left, bottom - top);
    const QRect target(left * m_zoom, top * m_zoom, source.width() * m_zoom, source.height() * m_zoom);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.drawImage(target, m_image, source);
}

void ucScrollPicCanvas::paintShapes(QPainter& painter, const QRect& visible) const
{
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setBrush(Qt::NoBrush);
    for (const Shape& shape : m_shapes) {
        if (!visible.intersects(shape.bounds))
            continue;
        painter.setPen(QPen(shape.color, 1));
        switch (shape.kind) {
        case Shape::Contour:
            painter.drawRect(QRect(shape.p1, shape.p2).normalized().adjusted(0, 0, -1, -1));
            break;
        case Shape::Line:
            painter.drawLine(shape.p1, shape.p2);
            break;
        case Shape::Text:
            painter.drawText(QRect(shape.p1, shape.bounds.size()), Qt::AlignLeft | Qt::AlignTop, shape.text);
            break;
        }
    }
}

void ucScrollPicCanvas::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        emit leftPressedAt(picturePoint(event->position()));
}

void ucScrollPicCanvas::mouseMoveEvent(QMouseEvent* event)
{
    emit mouseMovedTo(picturePoint(event->position()), event->buttons());
}

void ucScrollPicCanvas::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        emit leftReleasedAt(picturePoint(event->position()));
}

void ucScrollPicCanvas::wheelEvent(QWheelEvent* event)
{
    emit wheelScrolled(event->angleDelta(), event->modifiers());
    event->accept();
}
