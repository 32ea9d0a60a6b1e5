#pragma once

#include <QString>

// A name read from a file (a list's bitmap or level, a path in a message) as
// it is shown to a user: characters that cannot be printed are written as
// escapes ("\x07", "\u200b"), and a name longer than MaxLength keeps its
// beginning and its end around an ellipsis, so that a message stays one
// line and a dialog stays on the screen whatever the file held.
class ShownName
{
public:
    static constexpr qsizetype MaxLength = 160;

    static QString of(const QString& name);

private:
    static QString escaped(const QString& name);
    static QString cut(const QString& name);
};
