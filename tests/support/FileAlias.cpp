#include "support/FileAlias.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

QString FileAlias::make(const QString& target, const QString& spelling, const QString& linkPath,
                        const QString& folderBeside)
{
    if (spelling == QLatin1String("symlink")) {
        QFile::remove(linkPath);
        return QFile::link(target, linkPath) ? linkPath : QString();
    }
#ifdef Q_OS_UNIX
    if (spelling == QLatin1String("hardlink")) {
        QFile::remove(linkPath);
        return ::link(QFile::encodeName(target).constData(), QFile::encodeName(linkPath).constData()) == 0 ? linkPath
                                                                                                           : QString();
    }
#endif
    QDir().mkpath(folderBeside);
    return folderBeside + QStringLiteral("/../") + QFileInfo(target).fileName();
}
