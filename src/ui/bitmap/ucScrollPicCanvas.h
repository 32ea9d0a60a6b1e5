#pragma once

#include <QBrush>
#include <QColor>
#include <QHash>
#include <QImage>
#include <QLine>
#include <QPoint>
#include <QPolygon>
#include <QRect>
#include <QString>
#include <QWidget>

#include <array>
#include <type_traits>
#include <vector>

// The viewport of the bitmap view: paints the visible part of the bitmap,
// every pixel a zoom x zoom block, and the shapes drawn over it. The zoomed
// picture is never built: positions are in zoomed picture coordinates, and
// only what meets the viewport is painted.
class ucScrollPicCanvas : public QWidget
{
    Q_OBJECT

public:
    struct Shape
    {
        // A Triangle joins p1, p2 and p3. A labelled Contour or Triangle
        // carries its number, zero-padded to width digits, in its middle:
        // the label is spelt only when it is painted. A Text's text is kept
        // apart (addText), so that a drawing of tens of thousands of shapes
        // is cleared without a destructor called for each.
        // Kept small: a drawing holds one per outline of every texture.
        enum Kind : quint8 { Contour, Line, Triangle, Text } kind = Contour;
        QPoint p1;
        QPoint p2;
        QPoint p3;
        QRgb color = 0;
        QRect bounds; // in picture coordinates, for skipping what is not visible
        qint32 number = 0; // a Text's: the place of its text
        qint16 width = 0;
        bool labelled = false;
    };

    explicit ucScrollPicCanvas(QWidget* parent = nullptr);

    void setImage(const QImage& image) { m_image = image; }
    const QImage& image() const { return m_image; }
    void setZoom(int zoom) { m_zoom = zoom; }
    int zoom() const { return m_zoom; }
    // The picture point shown at the viewport's top left.
    void setOffset(QPoint offset);
    QPoint offset() const { return m_offset; }
    QSize pictureSize() const { return m_image.size() * m_zoom; }

    // A Contour, a Line or a Triangle, labelled or not.
    void addShape(Shape shape);
    void addText(QPoint at, const QString& text, const QColor& color);
    // Room for count more shapes, so a drawing of many does not regrow.
    void reserveShapes(int count);
    // Clears the shapes and the selection rectangle with them.
    void clearShapes();
    // The one rectangle being picked with the mouse, drawn over the shapes;
    // each call replaces the last.
    void setSelection(QPoint corner, QPoint opposite, const QColor& color);
    void clearSelection();
    // The rectangle whose outline runs through both corner pixels.
    static QRect Spanning(QPoint a, QPoint b);
    QRect selection() const { return m_selection; }
    // The chosen row's outline, in bitmap pixels: it follows the zoom and
    // outlives reloads, until it is replaced or cleared.
    void setHighlight(const QPolygon& bitmapOutline, const QColor& color);
    QPolygon highlight() const { return m_highlight; }
    QColor highlightColor() const { return m_highlightColor; }
    QColor selectionColor() const { return m_selectionColor; }
    const std::vector<Shape>& shapes() const { return m_shapes; }
    // What is drawn, counted as rectangles, lines and texts: a labelled
    // triangle is three lines and a text.
    int drawnCount() const { return m_drawnCount; }

    // The outline of the texture being edited, its corners in bitmap pixels,
    // drawn over everything in a colour of its own at whatever zoom and
    // scroll. It belongs to the edition, not to the drawing: a reload or a
    // zoom change keeps it, until it is cleared.
    void setEditOutline(const QPolygon& bitmapCorners, const QColor& color);
    void clearEditOutline();
    const QPolygon& editOutline() const { return m_editOutline; }
    QColor editOutlineColor() const { return m_editOutlineColor; }

    // Paints the viewport onto painter (the widget's own paint uses it too).
    void paintView(QPainter& painter, const QRect& area) const;

signals:
    void mouseMovedTo(QPointF picturePoint, Qt::MouseButtons buttons);
    void leftPressedAt(QPointF picturePoint);
    void leftReleasedAt(QPointF picturePoint);
    void wheelScrolled(QPoint angleDelta, Qt::KeyboardModifiers modifiers);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void repaintAdded();
    QPointF picturePoint(QPointF widgetPoint) const { return widgetPoint + m_offset; }
    void paintBitmap(QPainter& painter, const QRect& visible) const;
    void paintShapes(QPainter& painter, const QRect& visible) const;
    void paintHighlight(QPainter& painter) const;
    static void paintContour(QPainter& painter, const QRect& rectangle, const QBrush& brush);
    void paintEditOutline(QPainter& painter) const;
    // A polygon in zoomed picture pixels, one pixel wide, not filled.
    static void paintPolygon(QPainter& painter, const QPolygon& zoomed, const QColor& color);
    // The viewport pixels the edit outline covers.
    QRect editOutlineBounds() const;
    // Shapes are filed by the horizontal bands of the picture they cross, so
    // a paint looks only at those near the visible part.
    static constexpr int BandHeight = 256;
    static int bandOf(int y) { return y < 0 ? 0 : y / BandHeight; }

    QImage m_image;
    int m_zoom = 1;
    QPoint m_offset;
    std::vector<Shape> m_shapes;
    std::vector<QString> m_texts;
    int m_drawnCount = 0;
    QRect m_unpainted; // in view, added since the last repaint was asked for
    // Bands are emptied, not dropped, when the shapes are cleared: a redraw
    // fills them again without growing each anew.
    std::vector<std::vector<int>> m_bands;
    QRect m_selection;
    QPolygon m_highlight;
    QColor m_highlightColor;
    QColor m_selectionColor;
    QPolygon m_editOutline;
    QColor m_editOutlineColor;
    // Labels are numbers that repeat at every redraw: each is laid out once,
    // and found again by its colour's value and its text, with no key text
    // spelt for each label of each paint.
    struct LabelKey
    {
        QRgb color;
        QString text;
        friend bool operator==(const LabelKey& a, const LabelKey& b) { return a.color == b.color && a.text == b.text; }
        friend size_t qHash(const LabelKey& key, size_t seed) { return qHashMulti(seed, key.color, key.text); }
    };
    const QImage& labelImage(const QString& text, QRgb color) const;
    // The label a shape shows: its text, or its number spelt.
    QString labelText(const Shape& shape) const;
    // Where a shape's label stands: a text where it was put, a rectangle's
    // number in its middle, a triangle's at its centroid, inside it.
    static QPoint labelPlace(const Shape& shape);
    QRect labelBounds(const Shape& shape) const;
    mutable QHash<LabelKey, QImage> m_labels;
    // A label's size from the advances of its characters, each measured
    // once: laying out tens of thousands of labels one by one costs more
    // than drawing them.
    QSize textSize(const QString& text) const;
    // The same for a number zero-padded to width digits, spelling nothing.
    QSize numberSize(qint32 number, int width) const;
    int advance(QChar c) const;
    // The advance of every digit when all have one, as digits usually do;
    // 0 when they differ.
    int m_digitAdvance = 0;
    mutable std::array<int, 128> m_advances;
    int m_textAscent = 0;
    int m_textHeight = 0;
};

static_assert(std::is_trivially_destructible_v<ucScrollPicCanvas::Shape>);
