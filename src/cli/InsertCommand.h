#pragma once

#include "cli/Command.h"

// insert LEVEL LIST [-o OUT]: the level with the list's tables.
class InsertCommand : public Command
{
public:
    using Command::Command;
    int run(const QStringList& words) override;
};
