#pragma once

class QAbstractButton;
class QScrollBar;
class QWidget;
class frmMain;

// The keys a desktop editor answers to: Ctrl+N, Ctrl+O, Ctrl+S,
// Ctrl+Shift+S, Ctrl+W and Ctrl+I on the menus, Ctrl++ and Ctrl+- on the
// zoom, and Delete on a chosen row of the texture, sprite, sequence and
// range lists, where it presses that list's delete button.
class WindowShortcuts
{
public:
    static void Install(frmMain& window);

    // Delete over list presses button, when the button is enabled and a row
    // of the list is chosen.
    static void DeleteKeyPresses(QWidget& list, QAbstractButton& button);
    // Ctrl++ and Ctrl+- (Ctrl+= too, for keyboards without a keypad) step
    // the zoom bar while it is enabled.
    static void ZoomKeys(QWidget& window, QScrollBar& zoom);
};
