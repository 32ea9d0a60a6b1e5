#pragma once

#include <QList>
#include <QObject>
#include <QPoint>

#include <functional>

class ucScrollPic;

// The mouse on the bitmap while a texture is being added or edited. A press,
// drag and release picks a rectangle: the pixel under the press and the one
// under the mouse, sorted so that Lo is the top-left one, the tile that of
// the press, the far corner held in that tile. With free corners, a press
// within a few screen pixels of a corner of the edited texture drags that
// corner alone. A click without a drag changes nothing.
//
// Only while the owner says it is editing does the drag take the left
// button; otherwise the view's own press and release go on as ever.
class TextureDrag : public QObject
{
    Q_OBJECT

public:
    static constexpr int CornerReach = 4; // screen pixels

    TextureDrag(ucScrollPic& view, QObject* parent = nullptr);

    // Asked at each press: is a texture being added or edited on a page the
    // user sees, does it have free corners, and where are its corners (in
    // bitmap pixels, row by row; an empty list when the frame holds none).
    std::function<bool()> isEditing;
    std::function<bool()> hasFreeCorners;
    std::function<QList<QPoint>()> corners;

    bool IsDragging() const { return m_mode != Mode::None; }

signals:
    // Bitmap pixels: lo is the top-left corner, hi inside the tile.
    void rectangleDragged(int tile, QPoint lo, QPoint hi);
    // The corner of that row is now under the mouse at pixel at.
    void cornerDragged(int row, QPoint at);
    // A press with free corners that found no corner near it.
    void pressedAwayFromCorners();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Mode { None, Rectangle, Corner };

    bool Press(QPointF picturePoint);
    void Move(QPointF picturePoint);
    int CornerNear(QPointF picturePoint) const;

    ucScrollPic& m_view;
    Mode m_mode = Mode::None;
    QPointF m_start;
    int m_row = -1;
};
