#include "ExtractCommand.h"

#include "CommandLine.h"

int ExtractCommand::run(const QStringList&)
{
    return m_cli.usageError(QStringLiteral("extract is not available yet"));
}
