#pragma once

#include <QStringList>

class CommandLine;

// One brindle-cli command: it reads the words after its name, does its job
// and returns the exit status.
class Command
{
public:
    explicit Command(CommandLine& cli) : m_cli(cli) {}
    virtual ~Command() = default;

    virtual int run(const QStringList& words) = 0;

protected:
    CommandLine& m_cli;
};
