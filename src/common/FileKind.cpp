#include "common/FileKind.h"

#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

FileKind::Kind FileKind::of(const QString& path)
{
#ifdef Q_OS_UNIX
    struct stat status {};
    if (path.isEmpty() || ::stat(QFile::encodeName(path).constData(), &status) != 0)
        return Missing;
    if (S_ISREG(status.st_mode))
        return Regular;
    if (S_ISDIR(status.st_mode))
        return Directory;
    if (S_ISFIFO(status.st_mode))
        return Fifo;
    if (S_ISCHR(status.st_mode) || S_ISBLK(status.st_mode))
        return Device;
    if (S_ISSOCK(status.st_mode))
        return Socket;
    return Other;
#else
    const QFileInfo info(path);
    if (!info.exists())
        return Missing;
    if (info.isDir())
        return Directory;
    return info.isFile() ? Regular : Other;
#endif
}

QString FileKind::refusal(const QString& path)
{
    return refusal(of(path));
}

QString FileKind::refusal(Kind kind)
{
    switch (kind) {
    case Missing:
    case Regular:
        break;
    case Directory:
        return QStringLiteral("is a directory");
    case Fifo:
        return QStringLiteral("is a FIFO, not a regular file");
    case Device:
        return QStringLiteral("is a device, not a regular file");
    case Socket:
        return QStringLiteral("is a socket, not a regular file");
    case Other:
        return QStringLiteral("is not a regular file");
    }
    return {};
}
