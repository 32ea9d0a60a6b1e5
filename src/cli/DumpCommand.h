#pragma once

#include "cli/Command.h"

// dump LIST [--json]: a list's header, table positions and the rows of its
// six views.
class DumpCommand : public Command
{
public:
    using Command::Command;
    int run(const QStringList& words) override;
};
