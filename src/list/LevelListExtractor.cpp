#include "list/LevelListExtractor.h"

#include "level/C_LevelInfo.h"
#include "list/C_ListInfo.h"
#include "list/LevelTableReader.h"
#include "list/tables/ListTables.h"

#include <QDir>

namespace {

LevelListExtractor::Result failure(LevelListExtractor::Status status, const FileError& error)
{
    return {status, error, {}};
}

LevelListExtractor::Result unreadable(LevelListExtractor::Status status, const QString& level, const QString& why)
{
    return failure(status, FileError::reading(level, why));
}

} // namespace

LevelListExtractor::Result LevelListExtractor::Extract(const QString& levelPath, const QString& bitmapPath,
                                                       const QString& listPath)
{
    using Status = LevelListExtractor::Status;
    C_LevelInfo level;
    level.Init(levelPath);
    if (!level.IsOpened())
        return failure(Status::LevelUnreadable, level.Error());
    if (!LevelVersion::hasTextureTables(level.Game()))
        return unreadable(Status::LevelNotTR2OrTR3, levelPath, LevelVersion::refusal(level.VersionString()));
    if (const QString cause = level.TablesUnusableCause(); !cause.isEmpty())
        return unreadable(Status::LevelUnusable, levelPath, cause);

    ListTables tables;
    FileError error;
    if (!LevelTableReader::ReadIntoTables(level, tables, &error))
        return failure(Status::LevelUnreadable, error);
    C_ListInfo list;
    list.Init(listPath, levelPath, bitmapPath, &tables);
    if (list.PutAllListContents() != C_ListInfo::Success)
        return failure(Status::WriteFailed, list.Error());
    Result done;
    done.notice = RangelessNotice(tables, levelPath);
    return done;
}

QString LevelListExtractor::RangelessNotice(const ListTables& tables, const QString& levelPath)
{
    if (tables.ranges.count() > 0 || (tables.sprites.count() == 0 && tables.sequences.count() == 0))
        return {};
    return QStringLiteral("%1 has no animation ranges, so its list cannot carry its sprite tables back into the "
                          "level: a list saved without ranges keeps them 2 bytes past where its counts say. Add an "
                          "animation range before saving the list.")
        .arg(QDir::toNativeSeparators(levelPath));
}
