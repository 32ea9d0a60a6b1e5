#include "level/WalkedLevelFile.h"

#include "level/ReadOnlyFile.h"

WalkedLevelFile::WalkedLevelFile(const QString& path, LevelWalk::Reach reach)
    : m_file(path)
    , m_reach(reach)
{
}

bool WalkedLevelFile::open(FileError& error)
{
    if (!ReadOnlyFile::open(m_file, error, QIODevice::Unbuffered))
        return false;
    m_info.WalkDevice(m_file, m_reach);
    if (LevelVersion::hasTextureTables(m_info.Game()))
        return true;
    error = FileError::reading(m_file.fileName(), LevelVersion::refusal(m_info.VersionString()));
    return false;
}
