#pragma once

#include <QColor>
#include <QPolygon>
#include <QRect>
#include <QString>
#include <QWidget>

class QScrollBar;
class ucScrollPicCanvas;

// A bitmap shown at a whole-number zoom in a viewport with two scroll bars.
// Callers draw rectangles, lines and text over it in zoomed picture
// coordinates; a load, a zoom change or a refresh wipes what was drawn.
// It reports the pixel at the top left after scrolling (Change), the mouse
// position in bitmap pixels (MousePos) and left-button drags in zoomed
// picture coordinates (MouseSelect).
class ucScrollPic : public QWidget
{
    Q_OBJECT

public:
    explicit ucScrollPic(QWidget* parent = nullptr);

    // Loads and shows the bitmap; an empty name does nothing. False, with
    // ErrorString naming the file and the cause, when it cannot be read: the
    // view then stays as it was.
    bool LoadOnePicture(const QString& strFileName);
    QString ErrorString() const { return m_error; }
    // Why the shown bitmap holds fewer rows than it claims, as read
    // (BitmapCache); empty for a whole bitmap.
    QString CutNote() const { return m_cutNote; }
    void NoPicture();

    QString FileName() const { return m_fileName; }
    bool HasPicture() const { return m_hasPicture; }
    int PictureWidth() const { return m_pictureWidth; }
    int PictureHeight() const { return m_pictureHeight; }
    int ZoomFactor() const { return m_zoomFactor; }
    // A value below 1, or the current one, changes nothing.
    void setZoomFactor(int zoom);

    // Repaints the bitmap with nothing drawn over it and returns the view to
    // the top left.
    void RefreshPicture();

    void DrawContour(int lngX1, int lngY1, int lngX2, int lngY2, const QColor& lngColor);
    void DrawLine(int X1, int Y1, int X2, int Y2, const QColor& Color);
    void PutText(int X, int Y, const QString& Text, const QColor& Color);
    // An outline with its number, zero-padded to width digits, in the
    // middle: as DrawContour (three DrawLine) and PutText would draw them,
    // with the text spelt only when it is shown. The label of a rectangle
    // stands at the middle of its corners, a triangle's at its centroid.
    void DrawNumberedContour(QPoint corner, QPoint opposite, qint32 number, int width, const QColor& Color);
    void DrawNumberedTriangle(QPoint a, QPoint b, QPoint c, qint32 number, int width, const QColor& Color);
    // Room for count more shapes, for a caller about to draw many.
    void ReserveShapes(int count);
    // The rectangle being picked with the mouse, outlined like DrawContour;
    // each call replaces the one before, so a drag leaves one outline. A
    // load, zoom or refresh wipes it with the rest.
    void DrawSelection(int X1, int Y1, int X2, int Y2, const QColor& Color);
    void ClearSelection();
    // The outline of the texture being edited, its corners in bitmap pixels
    // (not zoomed): it follows every zoom and scroll and outlives reloads
    // and redraws until it is cleared or the picture goes.
    void DrawEditOutline(const QPolygon& bitmapCorners, const QColor& Color);
    void ClearEditOutline();
    // Outlines a chosen row in bitmap pixels: two opposite corners of a
    // rectangle, or a triangle's three corners. It keeps its place through
    // zooms and reloads; a new one replaces it, NoPicture removes it.
    void SetHighlight(const QPolygon& bitmapCorners, const QColor& color);
    void ClearHighlight();
    QPolygon Highlight() const;
    // The part of the zoomed picture the viewport shows.
    QRect VisibleArea() const;
    // Scrolls a rectangle in zoomed picture coordinates into the middle of
    // the view, as far as the picture allows; one already in view stays put.
    void ShowArea(int X1, int Y1, int X2, int Y2);

    // A scroll bar's maximum: what the picture exceeds the viewport by, plus
    // the other bar's thickness and a margin of 5 when that bar is there.
    static int ScrollMax(int pictureExtent, int viewportExtent, int otherBarThickness);

    QScrollBar* HScroll1() const { return m_hScroll; }
    QScrollBar* VScroll1() const { return m_vScroll; }
    ucScrollPicCanvas* Picture1() const { return m_canvas; }
    // What is drawn, counted as rectangles, lines and texts.
    int ShapeCount() const;

signals:
    void Change(int X, int Y);
    void MousePos(float X, float Y);
    void MouseSelect(float X1, float Y1, float X2, float Y2);
    // The left button went down and up on the same spot: the bitmap pixel.
    void Clicked(int X, int Y);
    // The texture being entered moved (whole-bitmap corners), or its outline
    // went (no corners).
    void EditOutlineChanged(const QPolygon& bitmapCorners);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void ArrangeView();
    void PlaceScrollBars();
    void OnScrolled();
    void OnMouseMoved(QPointF point, Qt::MouseButtons buttons);
    void OnLeftPressed(QPointF point);
    void OnLeftReleased(QPointF point);
    void OnWheel(QPoint angleDelta, Qt::KeyboardModifiers modifiers);

    ucScrollPicCanvas* m_canvas;
    QScrollBar* m_hScroll;
    QScrollBar* m_vScroll;

    QString m_fileName;
    QString m_error;
    QString m_cutNote;
    int m_pictureWidth = 0;
    int m_pictureHeight = 0;
    int m_zoomFactor = 1;
    bool m_hasPicture = false;
    bool m_selecting = false;
    float SelectStartX = 0;
    float SelectStartY = 0;
};
