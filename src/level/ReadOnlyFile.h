#pragma once

#include "common/FileError.h"

#include <QFile>

// Opening a file the user chose, for reading only. Only a regular file is
// opened: a folder opens as an empty file on some systems, which would read
// as an empty level or list instead of failing, and a FIFO or a device would
// block the first read or never end.
class ReadOnlyFile
{
public:
    // False with the cause in error when file cannot be read.
    static bool open(QFile& file, FileError& error, QIODevice::OpenMode extra = {});
};
