#pragma once

#include <QString>

// What a path names, as far as reading or writing it as a file goes. Only a
// regular file can be read or replaced: opening a FIFO blocks until another
// program writes to it, a device never ends, and replacing either with an
// ordinary file would take it away from whatever else uses it.
class FileKind
{
public:
    enum Kind { Missing, Regular, Directory, Fifo, Device, Socket, Other };

    // The kind of what path names, following symbolic links.
    static Kind of(const QString& path);

    // Empty for a regular file and for a path that names nothing; otherwise
    // why it is no file to read or replace ("is a FIFO, not a regular file").
    static QString refusal(const QString& path);
    static QString refusal(Kind kind);
};
