#pragma once

#include <QPoint>
#include <QString>

class ListView;
class QLineEdit;
class QWidget;

// What a user does to the editor's controls, sent as the mouse and keyboard
// events the controls receive. The window must be shown.
class UserActions
{
public:
    // Selects the box's text and types over it, key by key.
    static void TypeInto(QLineEdit* box, const QString& text);
    // Clicks a row's text (the row is scrolled into view first).
    static void ClickRow(ListView* view, int row);
    // Clicks a row's check box, as a user ticks or unticks it.
    static void ClickCheckBox(ListView* view, int row);
    // Presses the left button at from, moves to to with it held, releases.
    static void Drag(QWidget* widget, QPoint from, QPoint to);
};
