#include "common/TailKeepingSaveFile.h"

#include <QFile>
#include <QFileInfo>

namespace {
constexpr qint64 CopyChunk = 1 << 20;
}

TailKeepingSaveFile::TailKeepingSaveFile(const QString& path)
    : m_path(path)
    , m_file(path)
{
}

bool TailKeepingSaveFile::failWith(const QString& error)
{
    m_error = error;
    m_file.cancelWriting();
    return false;
}

bool TailKeepingSaveFile::open()
{
    if (QFileInfo(m_path).isDir())
        return failWith(QStringLiteral("is a directory"));
    if (!m_file.open(QIODevice::WriteOnly)) {
        m_error = m_file.errorString();
        return false;
    }
    return true;
}

bool TailKeepingSaveFile::write(const char* data, qint64 length)
{
    if (length <= 0)
        return true;
    if (m_file.write(data, length) != length)
        return failWith(m_file.errorString());
    m_written += length;
    return true;
}

bool TailKeepingSaveFile::carryOldTail()
{
    QFile old(m_path);
    if (!old.exists() || old.size() <= m_written)
        return true;
    if (!old.open(QIODevice::ReadOnly) || !old.seek(m_written))
        return failWith(old.errorString());
    QByteArray chunk;
    while (!old.atEnd()) {
        chunk = old.read(CopyChunk);
        if (chunk.isEmpty())
            return failWith(old.errorString());
        if (m_file.write(chunk) != chunk.size())
            return failWith(m_file.errorString());
    }
    return true;
}

bool TailKeepingSaveFile::commit()
{
    if (!m_file.isOpen())
        return false;
    if (!carryOldTail())
        return false;
    if (!m_file.commit()) {
        m_error = m_file.errorString();
        return false;
    }
    return true;
}
