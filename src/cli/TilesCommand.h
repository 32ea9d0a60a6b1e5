#pragma once

#include "cli/Command.h"

// tiles LEVEL -o FILE: the level's 16-bit texture tiles as a 24-bit bitmap,
// or a PNG with alpha when FILE ends in .png, tile 0 at the top; prints the
// file's absolute path.
class TilesCommand : public Command
{
public:
    using Command::Command;
    int run(const QStringList& words) override;
};
