#pragma once

#include "support/ScratchDir.h"
#include "uisupport/ScriptedPrompts.h"

#include <QString>

#include <memory>

class frmMain;
class QAbstractButton;
class QDialog;

// A main window over scripted prompts, with the demo level, bitmap and list
// written into a scratch folder: what most editor tests start from.
class EditorFixture
{
public:
    EditorFixture();
    ~EditorFixture();

    ScratchDir dir;
    ScriptedPrompts prompts;
    std::unique_ptr<frmMain> window;

    QString levelPath() const;
    QString bitmapPath() const;
    QString listPath() const;

    // Opens a list through File, Open List as a user would.
    void openList(const QString& path);
    // Queues the answers of File, New List: the three files chosen through
    // the dialog's buttons (no level: a stand-alone list), then OK.
    void scriptNewList(const QString& list, const QString& level, const QString& bitmap);
    // File, New List with those answers; a stand-alone list is made for TR 2.
    void newList(const QString& list, const QString& level, const QString& bitmap);
    // One edit of the open list through its document, as a page makes it:
    // the texture row's tile goes up by one. False when it was refused.
    bool editTexture(int row = 0);
    // A bitmap of tiles x 256 pixels high, 256 wide, each tile its own grey.
    QString writeBitmap(const QString& name, int tiles, int height = -1) const;

    // Clicks the named button of form (found by its objectName).
    static void click(QDialog& form, const char* button);
    // The named control of the window.
    template <typename T> T* find(const char* name) const;
};

#include "ui/main/frmMain.h"

template <typename T> T* EditorFixture::find(const char* name) const
{
    return window->findChild<T*>(QString::fromLatin1(name));
}
