#include "cli/ExtractCommand.h"

#include "cli/CommandArguments.h"
#include "cli/CommandLine.h"
#include "common/FileIdentity.h"
#include "common/FileKind.h"
#include "list/LevelListExtractor.h"

#include <QFileInfo>
#include <QImageReader>

int ExtractCommand::run(const QStringList& words)
{
    const QString bitmapOption = QStringLiteral("bitmap");
    const QString outputOption = QStringLiteral("o");
    CommandArguments args(QStringLiteral("extract"));
    args.addValueOption(bitmapOption, QStringLiteral("BMP"), QStringLiteral("the level's texture bitmap"));
    args.addValueOption(outputOption, QStringLiteral("LIST"), QStringLiteral("the list to write"));
    if (!args.parse(words, 1, QStringLiteral("one LEVEL")))
        return m_cli.usageError(args.error());
    if (!args.hasValue(bitmapOption) || !args.hasValue(outputOption))
        return m_cli.usageError(QStringLiteral("extract needs --bitmap BMP and -o LIST"));

    const QString levelPath = QFileInfo(args.positionals().first()).absoluteFilePath();
    const QString bitmapPath = QFileInfo(args.value(bitmapOption)).absoluteFilePath();
    const QString listPath = QFileInfo(args.value(outputOption)).absoluteFilePath();
    if (const FileError sameAsInput = FileIdentity::outputRefusal(listPath, {levelPath, bitmapPath});
        sameAsInput.failed())
        return m_cli.fail(CommandLine::InputUnreadable, sameAsInput);

    // Looked at before the image reader opens it, which blocks on a FIFO.
    if (const QString refusal = FileKind::refusal(bitmapPath); !refusal.isEmpty())
        return m_cli.fail(CommandLine::InputUnreadable, FileError::reading(bitmapPath, refusal));
    QImageReader bitmap(bitmapPath);
    if (!bitmap.canRead())
        return m_cli.fail(CommandLine::InputUnreadable, FileError::reading(bitmapPath, bitmap.errorString()));

    const LevelListExtractor::Result result = LevelListExtractor::Extract(levelPath, bitmapPath, listPath);
    if (result.status != LevelListExtractor::Status::Done)
        return m_cli.fail(CommandLine::InputUnreadable, result.error);
    m_cli.out() << listPath << Qt::endl;
    return CommandLine::Done;
}
