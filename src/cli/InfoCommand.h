#pragma once

#include "cli/Command.h"

class C_LevelInfo;

// info LEVEL [--json]: the game version and every table position of a level.
class InfoCommand : public Command
{
public:
    using Command::Command;
    int run(const QStringList& words) override;

private:
    int refuseNoLevel(const C_LevelInfo& level);
};
