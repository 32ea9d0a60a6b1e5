#pragma once

#include <QStringList>

class CommandLine;

// info LEVEL [--json]: the game version and every table position of a level.
class InfoCommand
{
public:
    explicit InfoCommand(CommandLine& cli) : m_cli(cli) {}
    int run(const QStringList& words);

private:
    CommandLine& m_cli;
};
