#pragma once

#include <QStringList>

class CommandLine;

// demo DIR: writes the demo level, its bitmap and the list extracted from the
// level into DIR (created if needed) and prints their absolute paths.
class DemoCommand
{
public:
    explicit DemoCommand(CommandLine& cli) : m_cli(cli) {}
    int run(const QStringList& words);

private:
    CommandLine& m_cli;
};
