#include "ui/bitmap/ucScrollPicCanvas.h"

#include "common/NumberText.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <optional>

namespace {

// Corners in bitmap pixels, in zoomed picture pixels.
QPolygon Zoomed(const QPolygon& bitmapCorners, int zoom)
{
    QPolygon zoomed = bitmapCorners;
    for (QPoint& corner : zoomed)
        corner *= zoom;
    return zoomed;
}

} // namespace

ucScrollPicCanvas::ucScrollPicCanvas(QWidget* parent)
    : QWidget(parent)
{
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    QFont small = font();
    small.setPointSize(8);
    setFont(small);
    m_textAscent = fontMetrics().ascent();
    m_textHeight = fontMetrics().height();
    m_advances.fill(-1);
    m_digitAdvance = advance(u'0');
    for (char16_t digit = u'1'; digit <= u'9'; ++digit) {
        if (advance(digit) != m_digitAdvance)
            m_digitAdvance = 0;
    }
}

int ucScrollPicCanvas::advance(QChar c) const
{
    const ushort code = c.unicode();
    if (code >= m_advances.size())
        return fontMetrics().horizontalAdvance(c);
    int& advance = m_advances[code];
    if (advance < 0)
        advance = fontMetrics().horizontalAdvance(c);
    return advance;
}

QSize ucScrollPicCanvas::textSize(const QString& text) const
{
    int width = 0;
    for (const QChar c : text)
        width += advance(c);
    return {width, m_textHeight};
}

QSize ucScrollPicCanvas::numberSize(qint32 number, int width) const
{
    if (number < 0 || !m_digitAdvance)
        return textSize(NumberText::padded(number, width));
    int digits = 1;
    for (qint32 rest = number / 10; rest > 0; rest /= 10)
        ++digits;
    return {qMax(digits, width) * m_digitAdvance, m_textHeight};
}

void ucScrollPicCanvas::setOffset(QPoint offset)
{
    if (offset == m_offset)
        return;
    m_offset = offset;
    update();
}

namespace {

// The pixels a shape's corners span, with the one around them a stroke may
// touch; a label adds its own box.
QRect Around(QPoint a, QPoint b, QPoint c)
{
    return QRect(QPoint(std::min({a.x(), b.x(), c.x()}) - 1, std::min({a.y(), b.y(), c.y()}) - 1),
                 QPoint(std::max({a.x(), b.x(), c.x()}) + 1, std::max({a.y(), b.y(), c.y()}) + 1));
}

QRect Joined(const QRect& a, const QRect& b)
{
    return QRect(QPoint(std::min(a.left(), b.left()), std::min(a.top(), b.top())),
                 QPoint(std::max(a.right(), b.right()), std::max(a.bottom(), b.bottom())));
}

} // namespace

void ucScrollPicCanvas::addShape(Shape shape)
{
    int pieces = 1;
    switch (shape.kind) {
    case Shape::Contour:
    case Shape::Line:
        shape.bounds = Around(shape.p1, shape.p2, shape.p2);
        break;
    case Shape::Triangle:
        shape.bounds = Around(shape.p1, shape.p2, shape.p3);
        pieces = 3;
        break;
    case Shape::Text:
        shape.bounds = labelBounds(shape);
        break;
    }
    if (shape.labelled && shape.kind != Shape::Text) {
        shape.bounds = Joined(shape.bounds, labelBounds(shape));
        ++pieces;
    }
    // A Draw adds tens of thousands of shapes at once: the area they cover
    // in view is gathered and asked to be repainted once, after the Draw.
    const QRect shown = shape.bounds.translated(-m_offset);
    if (shown.right() >= 0 && shown.bottom() >= 0 && shown.left() < width() && shown.top() < height()) {
        if (m_unpainted.isNull())
            QMetaObject::invokeMethod(this, &ucScrollPicCanvas::repaintAdded, Qt::QueuedConnection);
        m_unpainted = m_unpainted.united(shown);
    }
    const int index = int(m_shapes.size());
    const int last = bandOf(shape.bounds.bottom());
    if (size_t(last) >= m_bands.size())
        m_bands.resize(size_t(last) + 1);
    for (int band = bandOf(shape.bounds.top()); band <= last; ++band)
        m_bands[size_t(band)].push_back(index);
    m_shapes.push_back(shape);
    m_drawnCount += pieces;
}

void ucScrollPicCanvas::repaintAdded()
{
    update(m_unpainted);
    m_unpainted = {};
}

void ucScrollPicCanvas::addText(QPoint at, const QString& text, const QColor& color)
{
    m_texts.push_back(text);
    addShape({Shape::Text, at, at, at, color.rgba(), {}, qint32(m_texts.size() - 1), 0, true});
}

QPoint ucScrollPicCanvas::labelPlace(const Shape& shape)
{
    switch (shape.kind) {
    case Shape::Contour:
        return {(shape.p1.x() + shape.p2.x()) / 2, (shape.p1.y() + shape.p2.y()) / 2};
    case Shape::Triangle:
        return {(shape.p1.x() + shape.p2.x() + shape.p3.x()) / 3, (shape.p1.y() + shape.p2.y() + shape.p3.y()) / 3};
    case Shape::Line:
    case Shape::Text:
        break;
    }
    return shape.p1;
}

QRect ucScrollPicCanvas::labelBounds(const Shape& shape) const
{
    const QSize size = shape.kind == Shape::Text ? textSize(m_texts[size_t(shape.number)])
                                                 : numberSize(shape.number, shape.width);
    return QRect(labelPlace(shape), size).adjusted(-2, -2, 2, 2);
}

void ucScrollPicCanvas::reserveShapes(int count)
{
    if (count > 0)
        m_shapes.reserve(m_shapes.size() + size_t(count));
}

void ucScrollPicCanvas::clearShapes()
{
    if (m_shapes.empty() && m_selection.isNull())
        return;
    m_shapes.clear();
    m_texts.clear();
    m_drawnCount = 0;
    for (std::vector<int>& band : m_bands)
        band.clear();
    m_selection = QRect();
    update();
}

QRect ucScrollPicCanvas::Spanning(QPoint a, QPoint b)
{
    // QRect(a, b).normalized() would lose a pixel on each side where b lies
    // left of or above a: both corners are pixels of the outline.
    return QRect(QPoint(qMin(a.x(), b.x()), qMin(a.y(), b.y())), QPoint(qMax(a.x(), b.x()), qMax(a.y(), b.y())));
}

void ucScrollPicCanvas::setSelection(QPoint corner, QPoint opposite, const QColor& color)
{
    const QRect before = m_selection;
    m_selection = Spanning(corner, opposite);
    m_selectionColor = color;
    for (const QRect& changed : {before, m_selection}) {
        if (!changed.isNull())
            update(changed.adjusted(-1, -1, 1, 1).translated(-m_offset));
    }
}

void ucScrollPicCanvas::clearSelection()
{
    if (m_selection.isNull())
        return;
    update(m_selection.adjusted(-1, -1, 1, 1).translated(-m_offset));
    m_selection = QRect();
}

void ucScrollPicCanvas::setEditOutline(const QPolygon& bitmapCorners, const QColor& color)
{
    if (bitmapCorners == m_editOutline && color == m_editOutlineColor)
        return;
    const QRect before = editOutlineBounds();
    m_editOutline = bitmapCorners;
    m_editOutlineColor = color;
    update(before.united(editOutlineBounds()));
}

void ucScrollPicCanvas::clearEditOutline()
{
    if (m_editOutline.isEmpty())
        return;
    update(editOutlineBounds());
    m_editOutline.clear();
}

QRect ucScrollPicCanvas::editOutlineBounds() const
{
    if (m_editOutline.isEmpty())
        return {};
    return Zoomed(m_editOutline, m_zoom).boundingRect().adjusted(-1, -1, 1, 1).translated(-m_offset);
}

void ucScrollPicCanvas::setHighlight(const QPolygon& bitmapOutline, const QColor& color)
{
    m_highlight = bitmapOutline;
    m_highlightColor = color;
    update();
}

void ucScrollPicCanvas::paintHighlight(QPainter& painter) const
{
    if (m_highlight.size() < 2)
        return;
    const int zoom = m_zoom;
    // A rectangle's outline runs through its corner pixels, as the drawn
    // outlines do; a triangle's sides join its corner pixels.
    if (m_highlight.size() == 2) {
        paintContour(painter, Spanning(m_highlight[0] * zoom, m_highlight[1] * zoom), m_highlightColor);
        return;
    }
    paintPolygon(painter, Zoomed(m_highlight, zoom), m_highlightColor);
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
    if (!m_selection.isNull() && visible.intersects(m_selection.adjusted(-1, -1, 1, 1)))
        paintContour(painter, m_selection, m_selectionColor);
    // The chosen row under the texture being edited, which is drawn last.
    paintHighlight(painter);
    paintEditOutline(painter);
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
    if (m_shapes.empty())
        return;
    const int firstBand = bandOf(visible.top());
    const int lastBand = qMin(bandOf(visible.bottom()), int(m_bands.size()) - 1);
    std::vector<int> seen;
    for (int band = firstBand; band <= lastBand; ++band) {
        for (int index : m_bands[size_t(band)]) {
            // A shape crossing several visible bands is drawn once, from the first.
            if (bandOf(m_shapes[size_t(index)].bounds.top()) >= band || band == firstBand)
                seen.push_back(index);
        }
    }
    // Later shapes are drawn over earlier ones, as they were drawn.
    std::sort(seen.begin(), seen.end());
    seen.erase(std::unique(seen.begin(), seen.end()), seen.end());

    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setBrush(Qt::NoBrush);
    std::optional<QRgb> penColor;
    // One brush for a run of contours of one colour: the paint engine takes
    // a brush it has just used as it stands, where a colour is made into a
    // fill afresh for every side.
    std::optional<QRgb> brushColor;
    QBrush brush;
    for (int index : seen) {
        const Shape& shape = m_shapes[size_t(index)];
        if (!visible.intersects(shape.bounds))
            continue;
        if ((shape.kind == Shape::Line || shape.kind == Shape::Triangle) && shape.color != penColor) {
            penColor = shape.color;
            painter.setPen(QPen(QColor::fromRgba(shape.color), 0)); // cosmetic: one pixel, no stroking
        }
        switch (shape.kind) {
        case Shape::Contour:
            if (shape.color != brushColor) {
                brushColor = shape.color;
                brush = QBrush(QColor::fromRgba(shape.color));
            }
            paintContour(painter, Spanning(shape.p1, shape.p2), brush);
            break;
        case Shape::Line:
            painter.drawLine(shape.p1, shape.p2);
            break;
        case Shape::Triangle:
            painter.drawLine(shape.p1, shape.p2);
            painter.drawLine(shape.p2, shape.p3);
            painter.drawLine(shape.p3, shape.p1);
            break;
        case Shape::Text:
            break;
        }
        if (shape.labelled)
            painter.drawImage(labelPlace(shape), labelImage(labelText(shape), shape.color));
    }
}

void ucScrollPicCanvas::paintContour(QPainter& painter, const QRect& r, const QBrush& brush)
{
    // Four one-pixel fills: the same pixels as a stroked outline, far cheaper.
    painter.fillRect(QRect(r.left(), r.top(), r.width(), 1), brush);
    painter.fillRect(QRect(r.left(), r.bottom(), r.width(), 1), brush);
    painter.fillRect(QRect(r.left(), r.top(), 1, r.height()), brush);
    painter.fillRect(QRect(r.right(), r.top(), 1, r.height()), brush);
}

void ucScrollPicCanvas::paintEditOutline(QPainter& painter) const
{
    if (m_editOutline.size() < 2)
        return;
    paintPolygon(painter, Zoomed(m_editOutline, m_zoom), m_editOutlineColor);
}

void ucScrollPicCanvas::paintPolygon(QPainter& painter, const QPolygon& zoomed, const QColor& color)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, 0));
    painter.drawPolygon(zoomed);
    painter.restore();
}

const QImage& ucScrollPicCanvas::labelImage(const QString& text, QRgb color) const
{
    const LabelKey key{color, text};
    auto found = m_labels.constFind(key);
    if (found != m_labels.constEnd())
        return *found;
    if (m_labels.size() > 20000)
        m_labels.clear();
    const QFontMetrics metrics = fontMetrics();
    QImage image(metrics.boundingRect(text).size() + QSize(2, 2), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setFont(font());
    painter.setPen(QColor::fromRgba(color));
    painter.drawText(QPoint(0, m_textAscent), text);
    painter.end();
    return *m_labels.insert(key, image);
}

QString ucScrollPicCanvas::labelText(const Shape& shape) const
{
    return shape.kind == Shape::Text ? m_texts[size_t(shape.number)] : NumberText::padded(shape.number, shape.width);
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
