#pragma once

class QColor;
class QLineEdit;
class QWidget;

// The looks an edit box takes on the editing pages: locked (read-only, light
// grey 0xE0E0E0 behind the window-text colour), open for typing (the system
// window colours), disabled (light grey, no input) and unused (green text on
// dark green: the corner a triangle does not have). Colours are the
// palette's base and text, so they can be read back from the box.
class EditBoxLook
{
public:
    static void Lock(QLineEdit& box);
    static void Unlock(QLineEdit& box);
    // Enabled with the window colours, or disabled on light grey.
    static void Enable(QLineEdit& box, bool enabled);
    static void ShowUnused(QLineEdit& box);
    // The locked colours without changing whether the box takes typing.
    static void ShowLockedColours(QLineEdit& box);

private:
    static void Paint(QLineEdit& box, const char* background, const char* text);
    static void Paint(QLineEdit& box, const QColor& background, const QColor& text);

public:
    // The widget's base colour, set only when it differs: pages repaint
    // their controls on every undo, and a palette set anew is resolved anew.
    static void PaintBase(QWidget& widget, const QColor& base);
    // Empties the box; an empty one is left alone, for the same reason.
    static void Empty(QLineEdit& box);
    static void PaintSystem(QLineEdit& box, bool locked);
};
