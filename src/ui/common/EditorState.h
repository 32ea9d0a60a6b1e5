#pragma once

#include "common/ListViewModel.h"
#include "list/ListViewSet.h"

#include <QColor>
#include <QObject>
#include <QString>

class IPromptService;
class ucScrollPic;

// What the main window and its pages share: the open list's document fields,
// its list views (the working copy), the index and draw lists, the outline
// colour, the bitmap view, the prompts and the previews' frame counter.
// frmMain owns it and hands it to every page; a page reaches another page's
// behaviour only through this state and its signals.
class EditorState : public QObject
{
    Q_OBJECT

public:
    explicit EditorState(IPromptService& prompts, QObject* parent = nullptr);

    // The six content lists, filled and written by the list document.
    ListViewSet views;
    // Index lists: the object texture checklist, the textures an animation
    // can take, and the sprite checklist.
    ListViewModel lsvObjects;
    ListViewModel lsvAvailTextures;
    ListViewModel lsvSpriteIndex;
    // The outlines to draw, in whole-bitmap coordinates.
    ListViewModel lsvDrawList;
    ListViewModel lsvSpriteDrawLisr;

    IPromptService& prompts() const { return *m_prompts; }
    void setPrompts(IPromptService& prompts) { m_prompts = &prompts; }

    ucScrollPic* picture() const { return m_picture; }
    void setPicture(ucScrollPic* picture) { m_picture = picture; }

    // Document fields of the open list.
    QString ListFileName;
    QString LevelFileName;
    QString BitmapFileName;
    quint32 ListVersion = 45;
    bool IsListOpen = false;
    bool IsBitmapLoaded = false;
    bool IsDirty = false;
    bool IsDataFromLevel = false;
    int NumberOfTiles = 0;

    // The one colour every outline is drawn in, set by either colour button.
    QColor OutlineColor = QColor(255, 255, 0);

    // The frame counter and frame count both previews step through.
    int PreviewFrame = 0;
    int PreviewFrameCount = 0;

    // An edit was made: the list needs saving.
    void MarkDirty();
    // Sets IsDirty and tells the window to bring Save List up to date.
    void SetDirty(bool dirty);

    // Reloads the bitmap with its tile grid, then draws every row of the
    // object and the sprite draw lists.
    void RedrawOutlines();
    // One row of a draw list: a quad's rectangle or a triangle's three sides,
    // with its number in the middle.
    void DrawOutlineRow(const ListViewModel& drawList, int row, int zoom);
    // Scrolls the bitmap to the first outline of the draw lists, textures
    // before sprites, when none of them is in view; with none, leaves the
    // view where it is.
    void ShowFirstOutline();
    bool IsAnyOutlineInView() const;
    // Adds the texture (sprite) rows named by keys to lsvDrawList
    // (lsvSpriteDrawLisr); a key that names no row adds nothing.
    void AppendTextureOutlines(const QStringList& keys);
    void AppendSpriteOutlines(const QStringList& keys);

    // A line in the window's status bar: what a silent failure did.
    void ShowStatus(const QString& message);

    // The object texture checklist and the textures an animation can take,
    // filled anew for the rows of lsvTextures.
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
    void dirtyChanged(bool dirty);
    void reloadPictureRequested();
    void statusMessage(const QString& message);
    void drawObjectsRequested();
    void drawSpritesRequested();

private:
    IPromptService* m_prompts;
    ucScrollPic* m_picture = nullptr;
};
