#include "list/LevelListExtractor.h"

#include "level/C_LevelInfo.h"
#include "list/C_ListInfo.h"
#include "list/LevelTableReader.h"
#include "list/ListViewSet.h"

namespace {

LevelListExtractor::Result failure(LevelListExtractor::Status status, const QString& file, const QString& error)
{
    return {status, file, error};
}

} // namespace

LevelListExtractor::Result LevelListExtractor::Extract(const QString& levelPath, const QString& bitmapPath,
                                                       const QString& listPath)
{
    using Status = LevelListExtractor::Status;
    C_LevelInfo level;
    level.Init(levelPath);
    if (!level.IsOpened())
        return failure(Status::LevelUnreadable, levelPath, level.ErrorString());
    if (!LevelVersion::hasTextureTables(level.Game()))
        return failure(Status::LevelNotTR2OrTR3, levelPath, LevelVersion::refusal(level.VersionString()));
    if (const QString cause = level.TablesUnusableCause(); !cause.isEmpty())
        return failure(Status::LevelUnusable, levelPath, cause);

    ListViewSet views;
    if (!LevelTableReader::ReadIntoViews(level, views.lsvTextures, views.lsvAnims, views.lsvAnimDetails,
                                         views.lsvSprites, views.lsvSequences, views.lsvSequenceDetails)) {
        return failure(Status::LevelUnreadable, levelPath, QStringLiteral("cannot be read"));
    }
    C_ListInfo list;
    views.initList(list, listPath, levelPath, bitmapPath);
    if (list.PutAllListContents() != C_ListInfo::Success)
        return failure(Status::WriteFailed, listPath, list.ErrorString());
    return {};
}
