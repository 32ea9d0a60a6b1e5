#include "cli/InfoCommand.h"

#include "level/C_LevelInfo.h"
#include "cli/CommandArguments.h"
#include "cli/CommandLine.h"
#include "cli/TablePositionFields.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QList>
#include <QPair>

namespace {

QList<QPair<QString, qint64>> positions(const C_LevelInfo& level)
{
    QList<QPair<QString, qint64>> fields = TablePositionFields(level);
    fields.append({QStringLiteral("OffsetCameras"), level.OffsetCameras()});
    fields.append({QStringLiteral("OffsetItems"), level.OffsetItems()});
    return fields;
}

} // namespace

int InfoCommand::run(const QStringList& words)
{
    const QString json = QStringLiteral("json");
    CommandArguments args(QStringLiteral("info"));
    args.addFlag(json, QStringLiteral("print JSON"));
    if (!args.parse(words, 1, QStringLiteral("one LEVEL")))
        return m_cli.usageError(args.error());

    const QString path = args.positionals().first();
    C_LevelInfo level;
    level.Init(path);
    if (!level.IsOpened())
        return m_cli.fail(CommandLine::InputUnreadable, level.Error());

    const QString game = LevelVersion::gameName(level.Game());
    if (args.hasFlag(json)) {
        QJsonObject json;
        json.insert(QStringLiteral("Version"), qint64(level.Version()));
        json.insert(QStringLiteral("VersionString"), level.VersionString());
        json.insert(QStringLiteral("TypeLevel"), level.TypeLevel());
        for (const auto& [name, value] : positions(level))
            json.insert(name, value);
        json.insert(QStringLiteral("FileLength"), level.FileLength());
        json.insert(QStringLiteral("Game"), game);
        m_cli.out() << QJsonDocument(json).toJson(QJsonDocument::Indented);
        return refuseNoLevel(level);
    }

    QTextStream& out = m_cli.out();
    out << "Level:                 " << path << '\n'
        << "VersionString:         " << level.VersionString() << " (" << game << ")\n"
        << "FileLength:            " << level.FileLength() << '\n';
    for (const auto& [name, value] : positions(level))
        out << QStringLiteral("%1 %2").arg(name + QLatin1Char(':'), -22).arg(value) << '\n';
    if (level.Game() == LevelVersion::Game::TR2 || level.Game() == LevelVersion::Game::TR3) {
        if (!level.IsWalkComplete())
            out << "Note: the walk stopped before the end of the level; later positions are 0.\n";
        else if (const QString cause = level.TablesUnusableCause(); !cause.isEmpty())
            out << "Note: " << cause << "; its tables cannot be taken.\n";
    } else if (level.Game() == LevelVersion::Game::TR1) {
        out << "Note: TR1 levels are recognised but not walked.\n";
    } else {
        out << "Note: unknown version; nothing was walked.\n";
    }
    out.flush();
    return refuseNoLevel(level);
}

// Described, yet no level to work on: the exit status says so as every
// other command's does.
int InfoCommand::refuseNoLevel(const C_LevelInfo& level)
{
    m_cli.out().flush();
    if (LevelVersion::hasTextureTables(level.Game()))
        return CommandLine::Done;
    return m_cli.fail(CommandLine::InputUnreadable,
                      FileError::reading(level.FileName(), LevelVersion::refusal(level.VersionString())));
}
