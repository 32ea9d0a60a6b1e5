#pragma once

#include <QGroupBox>

class EditorState;

// One tabbed page of the main window: a frame over the shared editor state.
// The window calls these at its start, when it empties every view, and
// around loading and closing a list; each page does its own part.
class EditorPage : public QGroupBox
{
    Q_OBJECT

public:
    explicit EditorPage(EditorState& state, QWidget* parent = nullptr);

    // Window start: edit fields emptied, buttons disabled.
    virtual void ResetPage() {}
    // The page's lists emptied and its editor reset (Close List, New List).
    virtual void ClearPage() {}
    // A list was loaded: pending edits cancelled, counts shown.
    virtual void ListLoaded() {}
    // The list was closed or replaced by an empty one.
    virtual void ListClosed() {}
    // The bitmap the previews show was loaded or removed.
    virtual void BitmapLoaded(const QString& fileName) { Q_UNUSED(fileName); }
    virtual void BitmapRemoved() {}
    // An undo or redo changed the list under the page: whatever it was
    // entering or showing of the rows before is dropped.
    virtual void DocumentRewound() { ListLoaded(); }

protected:
    EditorState& m_state;
};
