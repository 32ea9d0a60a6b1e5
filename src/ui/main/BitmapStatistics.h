#pragma once

#include <QObject>

class EditorState;
class ListDocument;
class ucScrollPic;
namespace Ui {
class frmMain;
}

// The numbers beside the bitmap: its height, width and tiles, the tile in
// view, the mouse's pixel and the zoom. They follow the bitmap view's signals
// and the zoom bar; the number of tiles is the document's.
class BitmapStatistics : public QObject
{
    Q_OBJECT

public:
    BitmapStatistics(Ui::frmMain& ui, ListDocument& document, EditorState& state, QObject* parent);

    // The statistics of no bitmap: zeros.
    void ShowNone();
    // The loaded bitmap's size and tiles; where the mouse was over the bitmap
    // before is no place on this one.
    void ShowLoaded(const ucScrollPic& view);
    // A bitmap's tiles as the document counts them: halves round to even,
    // so 640 pixels are 2 tiles and 896 are 4.
    static int TilesOf(int pictureHeight);

private:
    void ZoomChanged(int value);
    void Scrolled(int x, int y);
    void MouseAt(float x, float y);
    void ShowNoMouse();

    Ui::frmMain& m_ui;
    ListDocument& m_document;
    EditorState& m_state;
};
