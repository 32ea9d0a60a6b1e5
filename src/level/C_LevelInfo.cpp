#include "level/C_LevelInfo.h"

#include "level/BinaryReader.h"
#include "level/ReadOnlyFile.h"
#include "level/TableCountLimits.h"
#include "level/m_AllBinTo.h"

#include <QFile>
#include <QFileInfo>

#include <utility>

namespace {

// The walk hops from count to count; a small window keeps each hop to one
// short read instead of a buffer refill.
constexpr qint64 WalkWindow = 512;

} // namespace

void C_LevelInfo::Init(const QString& strFileName)
{
    if (strFileName.isEmpty())
        return;
    *this = C_LevelInfo(); // one info serves level after level: nothing of the last may remain
    QFile probe(strFileName);
    if (ReadOnlyFile::open(probe, m_error, QIODevice::Unbuffered)) {
        m_opened = true;
        probe.close();
        WalkTheLevel(strFileName);
    }
    const QFileInfo info(strFileName);
    m_fileLength = info.isFile() ? info.size() : 0;
}

bool C_LevelInfo::WalkTheLevel(const QString& sFileName)
{
    m_fileName = sFileName;
    QFile file(sFileName);
    if (!ReadOnlyFile::open(file, m_error, QIODevice::Unbuffered))
        return false;
    WalkOpenDevice(file, LevelWalk::Reach::End);
    return false;
}

void C_LevelInfo::WalkDevice(QIODevice& device, LevelWalk::Reach reach)
{
    *this = C_LevelInfo();
    m_opened = true;
    WalkOpenDevice(device, reach);
    m_fileLength = device.size();
}

void C_LevelInfo::WalkOpenDevice(QIODevice& device, LevelWalk::Reach reach)
{
    m_version = 0;
    m_walk = {};
    if (device.size() == 0)
        return;
    const QString version = ReadVersionString(device);
    BinaryReader reader(device, WalkWindow);
    switch (LevelVersion::gameOf(version)) {
    case LevelVersion::Game::TR2:
        m_walk = LevelWalk::walk(reader, LevelWalk::Game::TR2, 4, reach);
        break;
    case LevelVersion::Game::TR3:
        m_walk = LevelWalk::walk(reader, LevelWalk::Game::TR3, 4, reach);
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

QString C_LevelInfo::TablesUnusableCause() const
{
    const std::pair<QLatin1String, qint32> numbers[] = {
        {QLatin1String("NumberObjectTexture"), NumberObjectTexture()},
        {QLatin1String("NumberSpriteTexture"), NumberSpriteTexture()},
        {QLatin1String("NumberSpriteSequence"), NumberSpriteSequence()},
        {QLatin1String("NumberAnimatedTexture"), NumberAnimatedTexture()},
    };
    for (const auto& [name, number] : numbers) {
        if (number < 0)
            return QStringLiteral("the level's %1 is negative (%2)").arg(name).arg(number);
    }
    if (!m_walk.complete || m_walk.offsetItems > m_fileLength)
        return QStringLiteral("the level's blocks could not be followed to its end");
    TableCountLimits::Claims claims;
    claims.objectTextures = NumberObjectTexture();
    claims.spriteTextures = NumberSpriteTexture();
    claims.spriteSequences = NumberSpriteSequence();
    claims.animationWords = NumberAnimatedTexture();
    claims.animationBytesPresent = m_fileLength - (OffsetAnimatedTexture() + 4);
    return TableCountLimits::excess(claims);
}
