#include "common/FileIdentity.h"

#include "common/ShownName.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

FileIdentity FileIdentity::of(const QString& path)
{
    FileIdentity identity;
    if (path.isEmpty())
        return identity;
#ifdef Q_OS_UNIX
    struct stat status {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return identity;
    identity.m_device = quint64(status.st_dev);
    identity.m_inode = quint64(status.st_ino);
#else
    identity.m_canonicalPath = QFileInfo(path).canonicalFilePath();
    if (identity.m_canonicalPath.isEmpty())
        return identity;
#endif
    identity.m_exists = true;
    return identity;
}

bool FileIdentity::isSameFile(const FileIdentity& other) const
{
    return m_exists && other.m_exists && m_device == other.m_device && m_inode == other.m_inode
           && m_canonicalPath == other.m_canonicalPath;
}

FileError FileIdentity::outputRefusal(const QString& output, const QStringList& inputs)
{
    const FileIdentity target = of(output);
    if (!target.exists())
        return {};
    for (const QString& input : inputs) {
        if (target.isSameFile(of(input)))
            return FileError::writing(output,
                                      QStringLiteral("is the same file as %1").arg(ShownName::of(QDir::toNativeSeparators(input))));
    }
    return {};
}
