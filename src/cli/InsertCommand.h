#pragma once

#include "cli/Command.h"

// insert LEVEL LIST [--tiles [BMP]] [-o OUT]: the level with the list's
// tables, and with --tiles the pixels of the list's bitmap, or of BMP, in
// its texture tiles.
class InsertCommand : public Command
{
public:
    using Command::Command;
    int run(const QStringList& words) override;
};
