#include "InsertCommand.h"

#include "CommandLine.h"

int InsertCommand::run(const QStringList&)
{
    return m_cli.usageError(QStringLiteral("insert is not available yet"));
}
