#include "cli/InsertCommand.h"

#include "list/C_ListInserter.h"
#include "cli/CommandArguments.h"
#include "cli/CommandLine.h"

namespace {

const QString OutputOption = QStringLiteral("o");

void addInsertOptions(CommandArguments& args)
{
    args.addValueOption(OutputOption, QStringLiteral("OUT"), QStringLiteral("the level to write"));
}

// "--tiles" takes the word after it as its bitmap only when LEVEL and LIST
// are there without it: "insert L T --tiles" uses the list's bitmap.
bool holdsLevelAndList(const QStringList& words)
{
    CommandArguments args(QStringLiteral("insert"));
    addInsertOptions(args);
    return args.parse(words, 2, QString());
}

} // namespace

int InsertCommand::run(const QStringList& words)
{
    QStringList remaining = words;
    const std::optional<QString> tiles =
        CommandArguments::takeOptionalValue(remaining, QStringLiteral("--tiles"), holdsLevelAndList);
    CommandArguments args(QStringLiteral("insert"));
    addInsertOptions(args);
    if (!args.parse(remaining, 2, QStringLiteral("LEVEL and LIST")))
        return m_cli.usageError(args.error());

    C_ListInserter inserter;
    if (tiles)
        inserter.WriteTiles(*tiles);
    const C_ListInserter::Result result =
        inserter.Insert(args.positionals()[0], args.positionals()[1], args.value(OutputOption));
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
    case C_ListInserter::Status::LevelUnreadable:
    case C_ListInserter::Status::LevelUnusable:
    case C_ListInserter::Status::ListUnreadable:
    case C_ListInserter::Status::ListTruncated:
    case C_ListInserter::Status::WriteFailed:
    case C_ListInserter::Status::BitmapUnusable:
    case C_ListInserter::Status::TilesUnusable:
        break;
    }
    return m_cli.fail(CommandLine::InputUnreadable, result.failure);
}
