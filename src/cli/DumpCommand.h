#pragma once

#include <QStringList>

class CommandLine;

class DumpCommand
{
public:
    explicit DumpCommand(CommandLine& cli) : m_cli(cli) {}
    int run(const QStringList& words);

private:
    CommandLine& m_cli;
};
