#include "ui/bitmap/ucScrollPic.h"

#include "ui/bitmap/BitmapCache.h"
#include "ui/bitmap/ucScrollPicCanvas.h"

#include <QScrollBar>
#include <QStyle>

#include <cmath>

namespace {

// Rounding as the view reports positions: to nearest, halves to even.
int RoundHalfEven(double value)
{
    return int(std::nearbyint(value));
}

} // namespace

ucScrollPic::ucScrollPic(QWidget* parent)
    : QWidget(parent)
    , m_canvas(new ucScrollPicCanvas(this))
    , m_hScroll(new QScrollBar(Qt::Horizontal, this))
    , m_vScroll(new QScrollBar(Qt::Vertical, this))
{
    m_canvas->setObjectName(QStringLiteral("Picture1"));
    m_hScroll->setObjectName(QStringLiteral("HScroll1"));
    m_vScroll->setObjectName(QStringLiteral("VScroll1"));
    m_hScroll->hide();
    m_vScroll->hide();
    setMinimumSize(64, 64);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);

    connect(m_hScroll, &QScrollBar::valueChanged, this, &ucScrollPic::OnScrolled);
    connect(m_vScroll, &QScrollBar::valueChanged, this, &ucScrollPic::OnScrolled);
    connect(m_canvas, &ucScrollPicCanvas::mouseMovedTo, this, &ucScrollPic::OnMouseMoved);
    connect(m_canvas, &ucScrollPicCanvas::leftPressedAt, this, &ucScrollPic::OnLeftPressed);
    connect(m_canvas, &ucScrollPicCanvas::leftReleasedAt, this, &ucScrollPic::OnLeftReleased);
    connect(m_canvas, &ucScrollPicCanvas::wheelScrolled, this, &ucScrollPic::OnWheel);
}

bool ucScrollPic::LoadOnePicture(const QString& strFileName)
{
    if (strFileName.isEmpty())
        return true;
    const QImage image = BitmapCache::Load(strFileName, &m_error, &m_cutNote);
    if (image.isNull())
        return false;
    m_error.clear();
    m_fileName = strFileName;
    m_canvas->setImage(image);
    m_pictureHeight = image.height();
    m_pictureWidth = image.width();
    m_hasPicture = true;
    ArrangeView();
    return true;
}

void ucScrollPic::NoPicture()
{
    m_fileName.clear();
    m_cutNote.clear();
    m_canvas->setImage({});
    m_canvas->clearShapes();
    m_canvas->clearEditOutline();
    ClearHighlight();
    m_hasPicture = false;
    m_pictureWidth = 0;
    m_pictureHeight = 0;
    ArrangeView();
}

void ucScrollPic::setZoomFactor(int zoom)
{
    if (zoom < 1 || zoom == m_zoomFactor)
        return;
    m_zoomFactor = zoom;
    ArrangeView();
}

void ucScrollPic::RefreshPicture()
{
    m_canvas->setZoom(m_zoomFactor);
    m_canvas->clearShapes();
    m_hScroll->setValue(0);
    m_vScroll->setValue(0);
    m_canvas->setOffset({});
    m_canvas->update();
}

void ucScrollPic::DrawContour(int lngX1, int lngY1, int lngX2, int lngY2, const QColor& lngColor)
{
    m_canvas->addShape({ucScrollPicCanvas::Shape::Contour, {lngX1, lngY1}, {lngX2, lngY2}, {}, lngColor.rgba(), {}});
}

void ucScrollPic::DrawLine(int X1, int Y1, int X2, int Y2, const QColor& Color)
{
    m_canvas->addShape({ucScrollPicCanvas::Shape::Line, {X1, Y1}, {X2, Y2}, {}, Color.rgba(), {}});
}

void ucScrollPic::PutText(int X, int Y, const QString& Text, const QColor& Color)
{
    m_canvas->addText({X, Y}, Text, Color);
}

void ucScrollPic::DrawNumberedContour(QPoint corner, QPoint opposite, qint32 number, int width, const QColor& Color)
{
    m_canvas->addShape(
        {ucScrollPicCanvas::Shape::Contour, corner, opposite, {}, Color.rgba(), {}, number, qint16(width), true});
}

void ucScrollPic::DrawNumberedTriangle(QPoint a, QPoint b, QPoint c, qint32 number, int width, const QColor& Color)
{
    m_canvas->addShape({ucScrollPicCanvas::Shape::Triangle, a, b, c, Color.rgba(), {}, number, qint16(width), true});
}

void ucScrollPic::ReserveShapes(int count)
{
    m_canvas->reserveShapes(count);
}

void ucScrollPic::DrawSelection(int X1, int Y1, int X2, int Y2, const QColor& Color)
{
    m_canvas->setSelection(QPoint(X1, Y1), QPoint(X2, Y2), Color);
}

void ucScrollPic::ClearSelection()
{
    m_canvas->clearSelection();
}

void ucScrollPic::DrawEditOutline(const QPolygon& bitmapCorners, const QColor& Color)
{
    m_canvas->setEditOutline(bitmapCorners, Color);
    emit EditOutlineChanged(bitmapCorners);
}

void ucScrollPic::ClearEditOutline()
{
    m_canvas->clearEditOutline();
    emit EditOutlineChanged({});
}

void ucScrollPic::ShowArea(int X1, int Y1, int X2, int Y2)
{
    const QRect area = QRect(QPoint(X1, Y1), QPoint(X2, Y2)).normalized();
    const QRect view(m_canvas->offset(), m_canvas->size());
    if (view.contains(area))
        return;
    // The bars clamp what lies beyond the picture's edges.
    m_hScroll->setValue(area.center().x() - view.width() / 2);
    m_vScroll->setValue(area.center().y() - view.height() / 2);
}

void ucScrollPic::SetHighlight(const QPolygon& bitmapCorners, const QColor& color)
{
    m_canvas->setHighlight(bitmapCorners, color);
}

void ucScrollPic::ClearHighlight()
{
    m_canvas->setHighlight({}, {});
}

QPolygon ucScrollPic::Highlight() const
{
    return m_canvas->highlight();
}

QRect ucScrollPic::VisibleArea() const
{
    return QRect(m_canvas->offset(), m_canvas->size());
}

int ucScrollPic::ScrollMax(int pictureExtent, int viewportExtent, int otherBarThickness)
{
    const int beyond = pictureExtent - viewportExtent;
    if (otherBarThickness < 1)
        return beyond;
    return beyond + otherBarThickness + 5;
}

int ucScrollPic::ShapeCount() const
{
    return m_canvas->drawnCount();
}

void ucScrollPic::resizeEvent(QResizeEvent*)
{
    // A resize keeps the drawing and the place in the picture; only the
    // viewport and the bars' ranges follow the new size.
    PlaceScrollBars();
}

void ucScrollPic::ArrangeView()
{
    if (!m_hasPicture) {
        m_hScroll->hide();
        m_vScroll->hide();
        m_canvas->setOffset({});
        m_canvas->update();
        return;
    }
    RefreshPicture();
    PlaceScrollBars();
}

void ucScrollPic::PlaceScrollBars()
{
    const int barWidth = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    const int viewWidth = qMax(0, width() - barWidth);
    const int viewHeight = qMax(0, height() - barWidth);
    m_canvas->setGeometry(0, 0, viewWidth, viewHeight);
    if (!m_hasPicture)
        return;

    const QSize picture = m_canvas->pictureSize();
    const bool showV = picture.height() > viewHeight;
    const bool showH = picture.width() > viewWidth;
    m_vScroll->setGeometry(viewWidth, 0, barWidth, viewHeight);
    m_hScroll->setGeometry(0, viewHeight, viewWidth, barWidth);
    m_vScroll->setVisible(showV);
    m_hScroll->setVisible(showH);

    const int zoomStep = 16 * m_zoomFactor;
    if (showV) {
        m_vScroll->setRange(0, ScrollMax(picture.height(), viewHeight, showH ? barWidth : 0));
        m_vScroll->setSingleStep(zoomStep);
        m_vScroll->setPageStep(qMax(1, viewHeight));
    } else {
        m_vScroll->setRange(0, 0);
    }
    if (showH) {
        m_hScroll->setRange(0, ScrollMax(picture.width(), viewWidth, showV ? barWidth : 0));
        m_hScroll->setSingleStep(zoomStep);
        m_hScroll->setPageStep(qMax(1, viewWidth));
    } else {
        m_hScroll->setRange(0, 0);
    }
    OnScrolled();
}

void ucScrollPic::OnScrolled()
{
    const QPoint offset(m_hScroll->value(), m_vScroll->value());
    if (offset == m_canvas->offset())
        return;
    m_canvas->setOffset(offset);
    emit Change(RoundHalfEven(double(offset.x()) / m_zoomFactor), RoundHalfEven(double(offset.y()) / m_zoomFactor));
}

void ucScrollPic::OnMouseMoved(QPointF point, Qt::MouseButtons buttons)
{
    if (!m_hasPicture)
        return;
    const QSize picture = m_canvas->pictureSize();
    if (point.x() >= 0 && point.y() >= 0 && point.x() < picture.width() && point.y() < picture.height())
        emit MousePos(float(point.x() / m_zoomFactor), float(point.y() / m_zoomFactor));
    if (m_selecting && (buttons & Qt::LeftButton))
        emit MouseSelect(SelectStartX, SelectStartY, float(point.x()), float(point.y()));
}

void ucScrollPic::OnLeftPressed(QPointF point)
{
    if (!m_hasPicture)
        return;
    m_selecting = true;
    SelectStartX = float(point.x());
    SelectStartY = float(point.y());
    emit MouseSelect(SelectStartX, SelectStartY, SelectStartX, SelectStartY);
}

void ucScrollPic::OnLeftReleased(QPointF point)
{
    if (!m_selecting)
        return;
    m_selecting = false;
    emit MouseSelect(SelectStartX, SelectStartY, float(point.x()), float(point.y()));
    // A hand that shakes by a pixel or two still clicks.
    if (std::abs(point.x() - SelectStartX) <= 2 && std::abs(point.y() - SelectStartY) <= 2)
        emit Clicked(int(std::floor(SelectStartX / m_zoomFactor)), int(std::floor(SelectStartY / m_zoomFactor)));
}

void ucScrollPic::OnWheel(QPoint angleDelta, Qt::KeyboardModifiers modifiers)
{
    // One notch scrolls three steps; Shift or a sideways wheel scrolls across.
    const bool across = (modifiers & Qt::ShiftModifier) || angleDelta.x() != 0;
    QScrollBar* bar = across ? m_hScroll : m_vScroll;
    const int delta = across && angleDelta.x() != 0 ? angleDelta.x() : angleDelta.y();
    bar->setValue(bar->value() - delta * 3 * bar->singleStep() / 120);
}
