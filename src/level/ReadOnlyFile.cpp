#include "level/ReadOnlyFile.h"

#include <QFileInfo>

bool ReadOnlyFile::open(QFile& file, QString& error, QIODevice::OpenMode extra)
{
    if (QFileInfo(file.fileName()).isDir()) {
        error = QStringLiteral("is a directory");
        return false;
    }
    if (!file.open(QIODevice::ReadOnly | extra)) {
        error = file.errorString();
        return false;
    }
    return true;
}
