#pragma once

#include <QColor>
#include <QObject>

class EditorState;
class ListView;
class ListRows;
class QTabBar;
class frmMain;
class ucScrollPic;

// Ties the bitmap to the complete texture and sprite lists. A row chosen in
// either list is outlined in the selection colour and scrolled into view. A
// click on the bitmap, while no texture or sprite is being added or edited,
// chooses the topmost texture under the pointer (the topmost sprite on the
// sprite pages), as if its row had been clicked, and the status bar names
// every texture and sprite covering that pixel. Draw on any page scrolls to
// the first outline when none of them is in view.
class BitmapPicker : public QObject
{
    Q_OBJECT

public:
    // Orange: apart from the yellow outlines, the cyan of a texture being
    // edited and the see-through magenta of most bitmaps.
    static inline const QColor SelectionColor = QColor(255, 96, 0);

    explicit BitmapPicker(frmMain& window);

    // A click at a bitmap pixel, as the view reports it; a click beside the
    // bitmap, where the view has no pixel, chooses nothing.
    void PickAt(int x, int y);
    // True while a page's Add or Edit reads "Accept": a drag on the bitmap
    // then belongs to that page.
    bool IsEntering() const;

private:
    enum class Kind { Texture, Sprite };
    void ConnectList(ListRows& rows, Kind kind);
    void OutlineChosen(Kind kind);
    bool OnSpritePages() const;
    QString CoveringText(int x, int y, const QList<int>& textures, const QList<int>& sprites) const;

    frmMain& m_window;
    EditorState& m_state;
    ucScrollPic& m_view;
    ListView* m_textures;
    ListView* m_sprites;
    Kind m_outlined = Kind::Texture;
};
