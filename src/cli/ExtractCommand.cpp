#include "ExtractCommand.h"

#include "C_LevelInfo.h"
#include "C_ListInfo.h"
#include "CommandArguments.h"
#include "CommandLine.h"
#include "LevelTableReader.h"
#include "ListViewSet.h"

#include <QFileInfo>
#include <QImageReader>

int ExtractCommand::run(const QStringList& words)
{
    const QString bitmapOption = QStringLiteral("--bitmap");
    const QString outputOption = QStringLiteral("-o");
    CommandArguments args(words, {bitmapOption, outputOption}, {});
    if (!args.expectPositionals(1, QStringLiteral("one LEVEL")))
        return m_cli.usageError(args.error());
    if (!args.hasValue(bitmapOption) || !args.hasValue(outputOption))
        return m_cli.usageError(QStringLiteral("extract needs --bitmap BMP and -o LIST"));

    const QString levelPath = QFileInfo(args.positionals().first()).absoluteFilePath();
    const QString bitmapPath = QFileInfo(args.value(bitmapOption)).absoluteFilePath();
    const QString listPath = QFileInfo(args.value(outputOption)).absoluteFilePath();
    if (listPath == levelPath || listPath == bitmapPath)
        return m_cli.usageError(QStringLiteral("the list would replace an input"));

    C_LevelInfo level;
    level.Init(levelPath);
    if (!level.IsOpened())
        return m_cli.fail(CommandLine::InputUnreadable, levelPath, level.ErrorString());
    const LevelVersion::Game game = level.Game();
    if (game != LevelVersion::Game::TR2 && game != LevelVersion::Game::TR3) {
        return m_cli.fail(CommandLine::InputUnreadable, levelPath,
                          QStringLiteral("not a TR2 or TR3 level (version %1)").arg(level.VersionString()));
    }
    if (!level.IsWalkComplete() || level.OffsetItems() > level.FileLength()) {
        return m_cli.fail(CommandLine::InputUnreadable, levelPath,
                          QStringLiteral("the level's blocks could not be followed to its end"));
    }

    QImageReader bitmap(bitmapPath);
    if (!bitmap.canRead())
        return m_cli.fail(CommandLine::InputUnreadable, bitmapPath, bitmap.errorString());

    ListViewSet views;
    if (!LevelTableReader::ReadIntoViews(level, views.lsvTextures, views.lsvAnims, views.lsvAnimDetails,
                                         views.lsvSprites, views.lsvSequences, views.lsvSequenceDetails)) {
        return m_cli.fail(CommandLine::InputUnreadable, levelPath, QStringLiteral("cannot be read"));
    }

    C_ListInfo list;
    list.Init(listPath, levelPath, bitmapPath, &views.lsvTextures, &views.lsvAnims, &views.lsvAnimDetails,
              &views.lsvSprites, &views.lsvSequences, &views.lsvSequenceDetails);
    if (list.PutAllListContents() != C_ListInfo::Success)
        return m_cli.fail(CommandLine::InputUnreadable, listPath, list.ErrorString());
    m_cli.out() << listPath << Qt::endl;
    return CommandLine::Done;
}
