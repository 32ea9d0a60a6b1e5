#pragma once

#include "cli/Command.h"

// extract LEVEL --bitmap BMP -o LIST: a new list made from a level, the same
// bytes the editor's New List writes (absolute names, version from the level).
class ExtractCommand : public Command
{
public:
    using Command::Command;
    int run(const QStringList& words) override;
};
