#include "cli/InsertCommand.h"

#include "list/C_ListInserter.h"
#include "cli/CommandArguments.h"
#include "cli/CommandLine.h"

int InsertCommand::run(const QStringList& words)
{
    const QString outputOption = QStringLiteral("o");
    CommandArguments args(QStringLiteral("insert"));
    args.addValueOption(outputOption, QStringLiteral("OUT"), QStringLiteral("the level to write"));
    if (!args.parse(words, 2, QStringLiteral("LEVEL and LIST")))
        return m_cli.usageError(args.error());

    const C_ListInserter::Result result =
        C_ListInserter().Insert(args.positionals()[0], args.positionals()[1], args.value(outputOption));
    switch (result.status) {
    case C_ListInserter::Status::Done:
        if (!result.notice.isEmpty())
            m_cli.note(result.notice);
        m_cli.out() << result.outputPath << Qt::endl;
        return CommandLine::Done;
    case C_ListInserter::Status::VersionMismatch:
        m_cli.err() << "brindle-cli: " << result.error << "; nothing written" << Qt::endl;
        return CommandLine::VersionMismatch;
    case C_ListInserter::Status::OutputIsInput:
        return m_cli.usageError(result.error);
    case C_ListInserter::Status::LevelUnreadable:
    case C_ListInserter::Status::LevelUnusable:
    case C_ListInserter::Status::ListUnreadable:
    case C_ListInserter::Status::ListTruncated:
    case C_ListInserter::Status::WriteFailed:
        break;
    }
    return m_cli.fail(CommandLine::InputUnreadable, result.failure);
}
