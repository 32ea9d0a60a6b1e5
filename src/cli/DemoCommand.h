#pragma once

#include <QStringList>

class CommandLine;

class DemoCommand
{
public:
    explicit DemoCommand(CommandLine& cli) : m_cli(cli) {}
    int run(const QStringList& words);

private:
    CommandLine& m_cli;
};
