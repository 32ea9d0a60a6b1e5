#pragma once

#include "cli/Command.h"

// usage LEVEL [--json]: the object textures the level's room faces use
// ("polygons"), those its mesh faces use ("objects"), the sprite textures its
// room sprites and sprite sequences use ("sprites"), and the object textures
// nothing uses ("unused").
class UsageCommand : public Command
{
public:
    using Command::Command;
    int run(const QStringList& words) override;
};
