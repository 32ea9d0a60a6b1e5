#include "WalkRatioFigure.h"

#include "level/C_LevelInfo.h"
#include "synthetic/SyntheticLevel.h"

bool WalkRatioFigure::writeLevel(const QString& path, QString* error) const
{
    return SyntheticLevel::ofSize(LevelVersion::Game::TR2, LevelBytes, Rooms).writeTo(path, error);
}

bool WalkRatioFigure::run(const QString& path, const QString&)
{
    C_LevelInfo info;
    info.Init(path);
    return info.IsWalkComplete();
}
