#include "level/LevelVersion.h"

#include "level/m_AllBinTo.h"

namespace LevelVersion {

Game gameOf(const QString& versionString)
{
    auto is = [&](const char* literal) {
        return versionString.compare(QLatin1String(literal), Qt::CaseInsensitive) == 0;
    };
    if (is(TR1String))
        return Game::TR1;
    if (is(TR2String))
        return Game::TR2;
    if (is(TR3String))
        return Game::TR3;
    return Game::Unknown;
}

Game gameOf(quint32 version)
{
    return gameOf(m_AllBinTo::ConvertToHex(version, 32, 0));
}

QString gameName(Game game)
{
    switch (game) {
    case Game::TR1:
        return QStringLiteral("TR1");
    case Game::TR2:
        return QStringLiteral("TR2");
    case Game::TR3:
        return QStringLiteral("TR3");
    case Game::Unknown:
        break;
    }
    return QStringLiteral("unknown");
}

bool hasTextureTables(Game game)
{
    return game == Game::TR2 || game == Game::TR3;
}

QString refusal(const QString& versionString)
{
    return QStringLiteral("not a TR2 or TR3 level (version %1)").arg(versionString);
}

} // namespace LevelVersion
