#pragma once

#include <QStringList>

class CommandLine;

// insert LEVEL LIST [-o OUT]: the level with the list's tables.
class InsertCommand
{
public:
    explicit InsertCommand(CommandLine& cli) : m_cli(cli) {}
    int run(const QStringList& words);

private:
    CommandLine& m_cli;
};
