#include "cli/TilesCommand.h"

#include "cli/CommandArguments.h"
#include "cli/CommandLine.h"
#include "level/LevelTileBitmap.h"

#include <QFileInfo>

int TilesCommand::run(const QStringList& words)
{
    const QString outputOption = QStringLiteral("o");
    CommandArguments args(QStringLiteral("tiles"));
    args.addValueOption(outputOption, QStringLiteral("BMP"), QStringLiteral("the bitmap to write"));
    if (!args.parse(words, 1, QStringLiteral("one LEVEL")))
        return m_cli.usageError(args.error());
    if (!args.hasValue(outputOption))
        return m_cli.usageError(QStringLiteral("tiles needs -o FILE"));

    const QString levelPath = QFileInfo(args.positionals().first()).absoluteFilePath();
    const QString bitmapPath = QFileInfo(args.value(outputOption)).absoluteFilePath();
    FileError error;
    if (!LevelTileBitmap::write(levelPath, bitmapPath, &error))
        return m_cli.fail(CommandLine::InputUnreadable, error);
    m_cli.out() << bitmapPath << Qt::endl;
    return CommandLine::Done;
}
