#pragma once

#include <QString>

// Whether the files chosen in New List can make a list: a level the walk
// can read, a bitmap the view can show, and a list file that is neither of
// them. Asked before the open list is set aside, so a refusal changes nothing.
class NewListInputs
{
public:
    // The message that refuses the choice, or "" when the list can be made.
    // Empty level and bitmap names are not looked at.
    static QString Refusal(const QString& list, const QString& level, const QString& bitmap);

private:
    static QString LevelRefusal(const QString& level);
    static QString BitmapRefusal(const QString& bitmap);
};
