#pragma once

#include "common/FileError.h"
#include "level/TextureUsage.h"

#include <QDateTime>
#include <QString>

#include <optional>

// The usage of one level, read once and kept while the level's file stays
// as it was (same path, size and time of change): Find Usage and the
// questions asked before a deletion read the same usage without walking the
// level again.
class LevelUsageCache
{
public:
    // The usage of the level at path; nothing, with the cause in error, when
    // it cannot be read. The pointer lives until the next call or clear().
    const TextureUsage* usageOf(const QString& path, FileError* error = nullptr);
    void clear();

private:
    QString m_path;
    qint64 m_size = -1;
    QDateTime m_modified;
    std::optional<TextureUsage> m_usage;
};
