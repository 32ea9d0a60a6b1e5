#pragma once

#include <QStringList>

class CommandLine;

class InsertCommand
{
public:
    explicit InsertCommand(CommandLine& cli) : m_cli(cli) {}
    int run(const QStringList& words);

private:
    CommandLine& m_cli;
};
