#include "level/ReadOnlyFile.h"

#include "common/FileKind.h"

bool ReadOnlyFile::open(QFile& file, FileError& error, QIODevice::OpenMode extra)
{
    // Checked before the open, which itself blocks on a FIFO.
    if (const QString refusal = FileKind::refusal(file.fileName()); !refusal.isEmpty()) {
        error = FileError::reading(file.fileName(), refusal);
        return false;
    }
    if (!file.open(QIODevice::ReadOnly | extra)) {
        error = FileError::reading(file.fileName(), file.errorString());
        return false;
    }
    return true;
}
