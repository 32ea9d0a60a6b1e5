#pragma once

#include <QFile>
#include <QString>

// Opening a file the user chose, for reading only. A folder is refused by
// name: on some systems a folder opens as an empty file, which would read as
// an empty level or list instead of failing.
class ReadOnlyFile
{
public:
    // False with the cause in error when file cannot be read.
    static bool open(QFile& file, QString& error, QIODevice::OpenMode extra = {});
};
