#include "cli/InsertCommand.h"

#include "list/C_ListInserter.h"
#include "cli/CommandArguments.h"
#include "cli/CommandLine.h"

namespace {

const QString TilesOption = QStringLiteral("--tiles");
const QString OutputOption = QStringLiteral("-o");

// "--tiles" takes the word after it as its bitmap only when LEVEL and LIST
// are there without it: "insert L T --tiles" uses the list's bitmap.
bool takeTilesOption(QStringList& words, QString& bitmap)
{
    const qsizetype at = words.indexOf(TilesOption);
    if (at < 0)
        return false;
    words.removeAt(at);
    if (at < words.size() && !words[at].startsWith(QLatin1Char('-'))) {
        QStringList without = words;
        without.removeAt(at);
        CommandArguments rest(without, {OutputOption}, {});
        if (rest.isValid() && rest.positionals().size() == 2) {
            bitmap = words[at];
            words = without;
        }
    }
    return true;
}

} // namespace

int InsertCommand::run(const QStringList& words)
{
    QStringList remaining = words;
    QString tilesBitmap;
    const bool writeTiles = takeTilesOption(remaining, tilesBitmap);
    CommandArguments args(remaining, {OutputOption}, {});
    if (!args.expectPositionals(2, QStringLiteral("LEVEL and LIST")))
        return m_cli.usageError(args.error());

    C_ListInserter inserter;
    if (writeTiles)
        inserter.WriteTiles(tilesBitmap);
    const C_ListInserter::Result result =
        inserter.Insert(args.positionals()[0], args.positionals()[1], args.value(OutputOption));
    switch (result.status) {
    case C_ListInserter::Status::Done:
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
    case C_ListInserter::Status::BitmapUnusable:
    case C_ListInserter::Status::TilesUnusable:
        break;
    }
    m_cli.err() << "brindle-cli: " << result.error << Qt::endl;
    return CommandLine::InputUnreadable;
}
