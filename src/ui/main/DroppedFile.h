#pragma once

#include <QString>

class QMimeData;

// A file dragged onto the main window: a texture list opens, a TR 2 or TR 3
// level starts a new list made from it; anything else is refused. A level is
// known by its version long, not by its name, since both games use ".tr2".
class DroppedFile
{
public:
    enum class Kind { None, List, Level };

    // The first local file the drag carries; empty when it carries none.
    static QString LocalFile(const QMimeData* data);
    static Kind KindOf(const QString& path);
};
