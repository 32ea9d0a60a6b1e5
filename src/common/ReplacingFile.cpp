#include "common/ReplacingFile.h"

#include <QFileInfo>
#include <QRandomGenerator>

#include <filesystem>
#include <system_error>

#ifdef Q_OS_LINUX
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#endif

namespace {

constexpr int NameAttempts = 16;

QString temporaryNameBeside(const QString& path)
{
    return path + QStringLiteral(".%1.tmp").arg(QRandomGenerator::global()->generate(), 8, 16, QLatin1Char('0'));
}

std::filesystem::path nativePath(const QString& path)
{
    return std::filesystem::path(path.toStdU16String());
}

} // namespace

ReplacingFile::ReplacingFile(const QString& path)
    : m_path(path)
{
}

ReplacingFile::~ReplacingFile()
{
    discard();
}

bool ReplacingFile::open()
{
    if (QFileInfo(m_path).isDir())
        return failWith(QStringLiteral("is a directory"));
    QString cause = QStringLiteral("no free temporary name beside it");
    for (int attempt = 0; attempt < NameAttempts; ++attempt) {
        m_temporary.setFileName(temporaryNameBeside(m_path));
        if (m_temporary.open(QIODevice::WriteOnly | QIODevice::NewOnly))
            break;
        const bool nameTaken = m_temporary.exists();
        cause = m_temporary.errorString();
        // Whatever has the name is not ours to remove.
        m_temporary.setFileName(QString());
        if (!nameTaken)
            return failWith(cause);
    }
    if (!m_temporary.isOpen())
        return failWith(cause);
    // A replaced file keeps who may read and write it.
    if (QFile::exists(m_path))
        m_temporary.setPermissions(QFile::permissions(m_path));
    return true;
}

bool ReplacingFile::reserve(qint64 size)
{
    if (!m_temporary.isOpen())
        return notOpen();
#ifdef Q_OS_LINUX
    // Only a lack of room is a failure: on a file system without
    // reservations (EOPNOTSUPP), or after an interrupted call, the writes
    // simply go ahead without one.
    if (size > 0 && ::fallocate(m_temporary.handle(), FALLOC_FL_KEEP_SIZE, 0, size) != 0
        && (errno == ENOSPC || errno == EFBIG))
        return failWith(QString::fromLocal8Bit(std::strerror(errno)));
#else
    Q_UNUSED(size);
#endif
    return true;
}

bool ReplacingFile::write(const char* data, qint64 length)
{
    if (!m_temporary.isOpen())
        return notOpen();
    if (m_temporary.write(data, length) != length)
        return failWith(m_temporary.errorString());
    return true;
}

bool ReplacingFile::commit()
{
    if (!m_temporary.isOpen())
        return notOpen();
    if (!m_temporary.flush())
        return failWith(m_temporary.errorString());
    m_temporary.close();
    std::error_code error;
    std::filesystem::rename(nativePath(m_temporary.fileName()), nativePath(m_path), error);
    if (error)
        return failWith(QString::fromStdString(error.message()));
    m_temporary.setFileName(QString());
    return true;
}

bool ReplacingFile::failWith(const QString& error)
{
    m_error = error;
    discard();
    return false;
}

// After a failure the first cause stands: it is the one worth reporting.
bool ReplacingFile::notOpen()
{
    if (m_error.isEmpty())
        m_error = QStringLiteral("is not open for writing");
    return false;
}

void ReplacingFile::discard()
{
    if (m_temporary.fileName().isEmpty())
        return;
    m_temporary.close();
    m_temporary.remove();
    m_temporary.setFileName(QString());
}
