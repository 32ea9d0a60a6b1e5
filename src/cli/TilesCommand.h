#pragma once

#include "cli/Command.h"

// tiles LEVEL -o BMP: the level's 16-bit texture tiles as a 24-bit bitmap,
// tile 0 at the top; prints the bitmap's absolute path.
class TilesCommand : public Command
{
public:
    using Command::Command;
    int run(const QStringList& words) override;
};
