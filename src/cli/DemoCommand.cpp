#include "DemoCommand.h"

#include "CommandLine.h"

int DemoCommand::run(const QStringList&)
{
    return m_cli.usageError(QStringLiteral("demo is not available yet"));
}
