#include "C_LevelInfo.h"

#include "BinaryReader.h"
#include "m_AllBinTo.h"

#include <QFile>
#include <QFileInfo>

namespace {

// The walk hops from count to count; a small window keeps each hop to one
// short read instead of a buffer refill.
constexpr qint64 WalkWindow = 512;

bool openForReading(QFile& file, QString& error)
{
    const QFileInfo info(file.fileName());
    if (info.isDir()) {
        error = QStringLiteral("is a directory");
        return false;
    }
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        error = file.errorString();
        return false;
    }
    return true;
}

} // namespace

void C_LevelInfo::Init(const QString& strFileName)
{
    if (strFileName.isEmpty())
        return;
    *this = C_LevelInfo(); // one info serves level after level: nothing of the last may remain
    QFile probe(strFileName);
    if (openForReading(probe, m_errorString)) {
        m_opened = true;
        probe.close();
        WalkTheLevel(strFileName);
    }
    m_fileLength = QFileInfo(strFileName).isFile() ? QFileInfo(strFileName).size() : 0;
}

bool C_LevelInfo::WalkTheLevel(const QString& sFileName)
{
    m_fileName = sFileName;
    QFile file(sFileName);
    if (!openForReading(file, m_errorString))
        return false;
    WalkOpenDevice(file);
    return false;
}

void C_LevelInfo::WalkDevice(QIODevice& device)
{
    *this = C_LevelInfo();
    m_opened = true;
    WalkOpenDevice(device);
    m_fileLength = device.size();
}

void C_LevelInfo::WalkOpenDevice(QIODevice& device)
{
    m_version = 0;
    m_walk = {};
    if (device.size() == 0)
        return;
    const QString version = ReadVersionString(device);
    BinaryReader reader(device, WalkWindow);
    switch (LevelVersion::gameOf(version)) {
    case LevelVersion::Game::TR2:
        m_walk = LevelWalk::walk(reader, LevelWalk::Game::TR2);
        break;
    case LevelVersion::Game::TR3:
        m_walk = LevelWalk::walk(reader, LevelWalk::Game::TR3);
        break;
    case LevelVersion::Game::TR1: // recognised, never walked
    case LevelVersion::Game::Unknown:
        break;
    }
}

QString C_LevelInfo::ReadVersionString(QIODevice& device)
{
    BinaryReader reader(device, 4);
    m_version = reader.u32(0);
    return VersionString();
}

QString C_LevelInfo::VersionString() const
{
    return m_AllBinTo::ConvertToHex(m_version, 32, 0);
}
