#include "list/LevelUsageCache.h"

#include <QFileInfo>

const TextureUsage* LevelUsageCache::usageOf(const QString& path, FileError* error)
{
    const QFileInfo file(path);
    const qint64 size = file.size();
    const QDateTime modified = file.lastModified();
    if (m_usage && path == m_path && size == m_size && modified == m_modified)
        return &*m_usage;
    clear();
    FileError cause;
    m_usage = TextureUsage::ofLevel(path, &cause);
    if (!m_usage) {
        if (error)
            *error = cause;
        return nullptr;
    }
    m_path = path;
    m_size = size;
    m_modified = modified;
    return &*m_usage;
}

void LevelUsageCache::clear()
{
    m_usage.reset();
    m_path.clear();
    m_size = -1;
    m_modified = {};
}
