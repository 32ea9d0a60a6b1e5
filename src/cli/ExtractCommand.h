#pragma once

#include <QStringList>

class CommandLine;

class ExtractCommand
{
public:
    explicit ExtractCommand(CommandLine& cli) : m_cli(cli) {}
    int run(const QStringList& words);

private:
    CommandLine& m_cli;
};
