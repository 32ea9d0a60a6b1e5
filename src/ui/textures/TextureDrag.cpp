#include "ui/textures/TextureDrag.h"

#include "common/BitmapSelection.h"
#include "ui/bitmap/ucScrollPic.h"
#include "ui/bitmap/ucScrollPicCanvas.h"

#include <QMouseEvent>

#include <cmath>

TextureDrag::TextureDrag(ucScrollPic& view, QObject* parent)
    : QObject(parent)
    , m_view(view)
{
    view.Picture1()->installEventFilter(this);
}

bool TextureDrag::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type != QEvent::MouseButtonPress && type != QEvent::MouseMove && type != QEvent::MouseButtonRelease)
        return QObject::eventFilter(watched, event);
    auto* mouse = static_cast<QMouseEvent*>(event);
    const QPointF point = mouse->position() + m_view.Picture1()->offset();
    switch (type) {
    case QEvent::MouseButtonPress:
        if (mouse->button() != Qt::LeftButton || !isEditing || !isEditing())
            return false;
        return Press(point);
    case QEvent::MouseMove:
        // The move goes on to the view too, which shows where the mouse is.
        if (IsDragging() && (mouse->buttons() & Qt::LeftButton))
            Move(point);
        return false;
    default:
        if (mouse->button() != Qt::LeftButton || !IsDragging())
            return false;
        Move(point);
        m_mode = Mode::None;
        return true;
    }
}

bool TextureDrag::Press(QPointF picturePoint)
{
    const QSize picture = m_view.Picture1()->pictureSize();
    // A press beside the picture starts nothing, and neither does the view.
    if (picturePoint.x() < 0 || picturePoint.y() < 0 || picturePoint.x() >= picture.width()
        || picturePoint.y() >= picture.height())
        return true;
    m_start = picturePoint;
    if (hasFreeCorners && hasFreeCorners()) {
        m_row = CornerNear(picturePoint);
        if (m_row < 0) {
            emit pressedAwayFromCorners();
            return true;
        }
        m_mode = Mode::Corner;
        return true;
    }
    m_mode = Mode::Rectangle;
    return true;
}

void TextureDrag::Move(QPointF picturePoint)
{
    const int zoom = m_view.ZoomFactor();
    if (m_mode == Mode::Corner) {
        // The pixel under the mouse; the owner holds it to the texture's tile.
        const BitmapSelection at = BitmapSelection::FromView(float(picturePoint.x()), float(picturePoint.y()),
                                                             float(picturePoint.x()), float(picturePoint.y()), zoom);
        emit cornerDragged(m_row, QPoint(at.x1, at.y1));
        return;
    }
    const BitmapSelection pick = BitmapSelection::FromView(float(m_start.x()), float(m_start.y()),
                                                           float(picturePoint.x()), float(picturePoint.y()), zoom);
    // Until the mouse leaves the pressed pixel both ways there is no
    // rectangle, and the frame keeps what it held.
    if (pick.x1 == pick.x2 || pick.y1 == pick.y2)
        return;
    emit rectangleDragged(pick.tile, QPoint(qMin(pick.x1, pick.x2), qMin(pick.y1, pick.y2)),
                          QPoint(qMax(pick.x1, pick.x2), qMax(pick.y1, pick.y2)));
}

int TextureDrag::CornerNear(QPointF picturePoint) const
{
    if (!corners)
        return -1;
    const QList<QPoint> at = corners();
    const int zoom = m_view.ZoomFactor();
    int nearest = -1;
    double best = CornerReach + 0.5;
    for (int row = 0; row < at.size(); ++row) {
        const QPointF corner = QPointF(at[row]) * zoom;
        const double distance = std::hypot(corner.x() - picturePoint.x(), corner.y() - picturePoint.y());
        if (distance < best) {
            best = distance;
            nearest = row;
        }
    }
    return nearest;
}
