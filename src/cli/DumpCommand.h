#pragma once

#include <QStringList>

class CommandLine;

// dump LIST [--json]: a list's header, table positions and the rows of its
// six views.
class DumpCommand
{
public:
    explicit DumpCommand(CommandLine& cli) : m_cli(cli) {}
    int run(const QStringList& words);

private:
    CommandLine& m_cli;
};
