#pragma once

#include <QString>

class EditorFixture;
class ListView;
class QAbstractButton;
class QLineEdit;

// What a user does with the pages' controls, done through real mouse and
// key events, so disabled controls refuse them as they would a user.
class UserActions
{
public:
    // Shows the window, activates it (so the caret can be seen moving) and
    // opens the tab (1 to 5).
    static void showTab(EditorFixture& fixture, int tab);
    // Clicks the row (from 0) of view after scrolling it into sight.
    static void chooseRow(ListView& view, int row);
    // Clicks the first row whose text is text; false when there is none.
    static bool chooseRowWithText(ListView& view, const QString& text);
    static void press(QAbstractButton& button);
    // Clicks into box, selects what it holds and types text over it.
    static void typeInto(QLineEdit& box, const QString& text);
};
