#pragma once

#include "cli/Command.h"

// demo DIR: writes the demo level, its bitmap and the list extracted from the
// level into DIR (created if needed) and prints their absolute paths.
class DemoCommand : public Command
{
public:
    using Command::Command;
    int run(const QStringList& words) override;
};
