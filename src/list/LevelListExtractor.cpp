#include "list/LevelListExtractor.h"

#include "level/C_LevelInfo.h"
#include "list/C_ListInfo.h"
#include "list/LevelTableReader.h"
#include "list/ListViewSet.h"

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

    ListViewSet views;
    FileError error;
    if (!LevelTableReader::ReadIntoViews(level, views.lsvTextures, views.lsvAnims, views.lsvAnimDetails,
                                         views.lsvSprites, views.lsvSequences, views.lsvSequenceDetails, &error)) {
        return failure(Status::LevelUnreadable, error);
    }
    C_ListInfo list;
    views.initList(list, listPath, levelPath, bitmapPath);
    if (list.PutAllListContents() != C_ListInfo::Success)
        return failure(Status::WriteFailed, list.Error());
    Result done;
    done.notice = RangelessNotice(views, levelPath);
    return done;
}

QString LevelListExtractor::RangelessNotice(const ListViewSet& views, const QString& levelPath)
{
    if (views.lsvAnims.count() > 0 || (views.lsvSprites.count() == 0 && views.lsvSequences.count() == 0))
        return {};
    return QStringLiteral("%1 has no animation ranges, so its list cannot carry its sprite tables back into the "
                          "level: a list saved without ranges keeps them 2 bytes past where its counts say. Add an "
                          "animation range before saving the list.")
        .arg(QDir::toNativeSeparators(levelPath));
}
