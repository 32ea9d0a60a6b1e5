#include "DumpCommand.h"

#include "CommandLine.h"

int DumpCommand::run(const QStringList&)
{
    return m_cli.usageError(QStringLiteral("dump is not available yet"));
}
