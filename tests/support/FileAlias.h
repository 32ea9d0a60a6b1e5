#pragma once

#include <QString>

// The same file as a target reached by another path, as a user may spell an
// output: "symlink" or "hardlink" makes a link at the path given, "dotdot"
// names the target through a folder beside it and back up ("sub/../name").
// "" when the link cannot be made.
class FileAlias
{
public:
    static QString make(const QString& target, const QString& spelling, const QString& linkPath,
                        const QString& folderBeside);
};
