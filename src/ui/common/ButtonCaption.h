#pragma once

#include <QStringView>

class QAbstractButton;

// Two-state buttons carry their state in their caption ("Add" becomes
// "Accept" while a record is entered, "Start" becomes "Stop"); handlers ask
// the caption, without regard to case.
class ButtonCaption
{
public:
    static bool Is(const QAbstractButton& button, QStringView caption);
};
