#pragma once

#include <QStringList>

class CommandLine;

// extract LEVEL --bitmap BMP -o LIST: a new list made from a level, the same
// bytes the editor's New List writes (absolute names, version from the level).
class ExtractCommand
{
public:
    explicit ExtractCommand(CommandLine& cli) : m_cli(cli) {}
    int run(const QStringList& words);

private:
    CommandLine& m_cli;
};
