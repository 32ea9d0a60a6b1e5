#include "cli/DemoCommand.h"

#include "cli/CommandArguments.h"
#include "cli/CommandLine.h"
#include "demo/DemoLevel.h"

int DemoCommand::run(const QStringList& words)
{
    CommandArguments args(QStringLiteral("demo"));
    if (!args.parse(words, 1, QStringLiteral("one DIR")))
        return m_cli.usageError(args.error());
    const QString dir = args.positionals().first();
    if (dir.isEmpty())
        return m_cli.usageError(QStringLiteral("DIR is empty"));

    FileError error;
    if (!DemoLevel::writeInto(dir, &error))
        return m_cli.fail(CommandLine::InputUnreadable, error);
    for (const QString& path : DemoLevel::paths(dir))
        m_cli.out() << path << Qt::endl;
    return CommandLine::Done;
}
