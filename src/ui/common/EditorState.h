#pragma once

#include "list/rows/IndexRows.h"
#include "list/rows/OutlineRows.h"
#include "list/ListDocument.h"

#include <QColor>
#include <QObject>
#include <QString>

class IPromptService;
class ucScrollPic;

// What the main window and its pages share: the open list's document (its
// views, files and undo stack), the index and draw lists, the outline colour,
// the bitmap view, the prompts and the previews' frame counter. frmMain owns
// it and hands it to every page; a page reaches another page's behaviour only
// through this state and its signals, and changes the list only through the
// document.
class EditorState : public QObject
{
    Q_OBJECT

public:
    EditorState(IPromptService& prompts, ListDocument& document, QObject* parent = nullptr);

    ListDocument& document() const { return *m_document; }
    // The document's six content lists, to read and to choose rows in; their
    // rows change only through the document's edits.
    ListViewSet& views;
    // Index lists: the object texture checklist, the textures an animation
    // can take, and the sprite checklist.
    IndexRows lsvObjects;
    IndexRows lsvAvailTextures;
    IndexRows lsvSpriteIndex;
    // The outlines to draw, in whole-bitmap coordinates.
    OutlineRows lsvDrawList;
    OutlineRows lsvSpriteDrawLisr;

    IPromptService& prompts() const { return *m_prompts; }
    void setPrompts(IPromptService& prompts) { m_prompts = &prompts; }

    ucScrollPic* picture() const { return m_picture; }
    void setPicture(ucScrollPic* picture) { m_picture = picture; }

    // The whole-bitmap Y of the bitmap's bottom edge: its height in pixels,
    // or as many tiles as a texture can name while no bitmap is loaded.
    int BitmapHeight() const;

    // The one colour every outline is drawn in, set by either colour button.
    QColor OutlineColor = QColor(255, 255, 0);

    // The frame counter and frame count both previews step through.
    int PreviewFrame = 0;
    int PreviewFrameCount = 0;

    // Reloads the bitmap with its tile grid, then draws every row of the
    // object and the sprite draw lists.
    void RedrawOutlines();
    // One row of a draw list: a quad's rectangle or a triangle's three sides,
    // with its number in the middle.
    void DrawOutline(const OutlineRows::Outline& outline, int zoom);
    // Scrolls the bitmap to the first outline of the draw lists, textures
    // before sprites, when none of them is in view; with none, leaves the
    // view where it is.
    void ShowFirstOutline();
    bool IsAnyOutlineInView() const;
    // Adds the textures (sprites) with the numbers to lsvDrawList
    // (lsvSpriteDrawLisr); a number no row has adds nothing. The numbers
    // are kept while the draw list lasts, so an undo or redo of an edit
    // redraws the outlines from the rows as they then are.
    void AppendTextureOutlines(const std::vector<qint32>& numbers);
    void AppendSpriteOutlines(const std::vector<qint32>& numbers);

    // A line in the window's status bar: what a silent failure did.
    void ShowStatus(const QString& message);

    // The object texture checklist and the textures an animation can take,
    // filled anew for the rows of lsvTextures. Between fills they follow the
    // number of rows a row at a time, keeping their ticks.
    void FillTextureIndexLists();
    // The sprite checklist filled anew for the rows of lsvSprites.
    void FillSpriteIndexList();

    // Either colour button: the colour dialog, and on OK the new outline
    // colour. Outlines already drawn keep theirs until the next Draw.
    void ChooseOutlineColor();

    // The object texture page's Draw and the sprite page's Draw, for pages
    // that tick rows of lsvObjects or lsvSpriteIndex and then want them
    // outlined (the animation and sequence pages).
    void DrawCheckedObjects();
    void DrawCheckedSprites();

signals:
    // The document came to differ from its file, or to match it again.
    void dirtyChanged(bool dirty);
    void reloadPictureRequested();
    void statusMessage(const QString& message);
    void drawObjectsRequested();
    void drawSpritesRequested();

private:
    void FollowTextureCount();
    void FollowSpriteCount();
    // An edit, undo or redo changed rows the outlines may show.
    void RedrawChangedOutlines();

    ListDocument* m_document;
    IPromptService* m_prompts;
    ucScrollPic* m_picture = nullptr;
    std::vector<qint32> m_drawnTextureNumbers;
    std::vector<qint32> m_drawnSpriteNumbers;
};
