#include "list/C_ListInserter.h"

#include "level/C_LevelInfo.h"
#include "level/LevelTileBlock.h"
#include "level/ReadOnlyFile.h"
#include "level/TileBitmapSource.h"
#include "list/C_ListInfo.h"
#include "common/FileIdentity.h"
#include "common/ReplacingFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

constexpr qint64 CopyChunk = 1 << 20;
constexpr char OutputName[] = "templevel.tr2";

} // namespace

QString C_ListInserter::FolderOf(const QString& path)
{
    const qsizetype at = qMax(path.lastIndexOf(QLatin1Char('\\')), path.lastIndexOf(QLatin1Char('/')));
    return at < 0 ? QString() : path.left(at + 1);
}

QString C_ListInserter::DefaultOutputPath(const QString& levelPath)
{
    return FolderOf(levelPath) + QLatin1String(OutputName);
}

QList<C_ListInserter::Range> C_ListInserter::CopyPlan(const C_LevelInfo& L, const C_ListInfo& T)
{
    const Range objectTextures{Range::List, T.OffsetObjectTexture(), T.OffsetAnimatedTexture() - 1};
    const Range animatedTextures{Range::List, T.OffsetAnimatedTexture(), T.OffsetSpriteTexture() - 1};
    const Range spriteTextures{Range::List, T.OffsetSpriteTexture(), T.OffsetSpriteSequence() - 1};
    const Range spriteSequences{Range::List, T.OffsetSpriteSequence(), T.Offset_EOF() - 1};
    const Range camerasToZones{Range::Level, L.OffsetCameras(), L.OffsetAnimatedTexture() - 1};
    const Range itemsToEnd{Range::Level, L.OffsetItems(), L.FileLength() - 1};

    switch (L.Game()) {
    case LevelVersion::Game::TR2:
        return {{Range::Level, 0, L.OffsetObjectTexture() - 1},
                objectTextures,
                spriteTextures,
                spriteSequences,
                camerasToZones,
                animatedTextures,
                itemsToEnd};
    case LevelVersion::Game::TR3:
        return {{Range::Level, 0, L.OffsetSpriteTexture() - 1},
                spriteTextures,
                spriteSequences,
                camerasToZones,
                animatedTextures,
                objectTextures,
                itemsToEnd};
    case LevelVersion::Game::TR1:
    case LevelVersion::Game::Unknown:
        break;
    }
    return {itemsToEnd};
}

C_ListInserter::Result C_ListInserter::Refuse(Status status, const FileError& failure)
{
    Result result;
    result.status = status;
    result.failure = failure;
    result.error = failure.text();
    return result;
}

QString C_ListInserter::NoticeFor(const C_ListInfo& list)
{
    if (list.NumberAnimatedTexture() != 0)
        return {};
    return QStringLiteral("%1: the list holds no animation ranges, so the output's animated texture block "
                          "holds no word at all, where levels hold at least the range count 0")
        .arg(list.FileName());
}

C_ListInserter::Result C_ListInserter::Insert(const QString& levelPath, const QString& listPath,
                                              const QString& outputPath, const Progress& progress)
{
    C_LevelInfo level;
    level.Init(levelPath);
    if (!level.IsOpened())
        return Refuse(Status::LevelUnreadable, level.Error());

    // Only TR2 and TR3 levels hold tables a list can replace; anything else
    // is no level to insert into, whatever version the list claims.
    if (!LevelVersion::hasTextureTables(level.Game()))
        return Refuse(Status::LevelUnusable, FileError::reading(levelPath, LevelVersion::refusal(level.VersionString())));

    C_ListInfo list;
    if (list.InitForInsert(listPath) != C_ListInfo::Success)
        return Refuse(Status::ListUnreadable, list.Error());

    const QString cannotInsert = FileError::cannotInsert();
    if (list.Version() != level.Version()) {
        return Refuse(Status::VersionMismatch,
                      {listPath, cannotInsert,
                       QStringLiteral("list version %1 differs from the level's %2")
                           .arg(list.VersionString(), level.VersionString())});
    }
    if (const QString cause = level.TablesUnusableCause(); !cause.isEmpty())
        return Refuse(Status::LevelUnusable, {levelPath, FileError::cannotReceive(), cause});
    if (list.AreTablesAfterLoneWord())
        return Refuse(Status::ListTruncated, {listPath, cannotInsert, list.LoneWordNotice()});
    if (!list.RangeBlockDamage().isEmpty())
        return Refuse(Status::ListTruncated, {listPath, cannotInsert, list.RangeBlockDamage()});
    if (const QString cut = list.CutShortNote(); !cut.isEmpty())
        return Refuse(Status::ListTruncated, {listPath, cannotInsert, cut});

    Result result;
    result.outputPath = outputPath.isEmpty() ? DefaultOutputPath(levelPath) : outputPath;
    // Every file the insertion reads, the bitmap the list names included:
    // "--tiles" with no bitmap of its own reads that one.
    const FileError sameAsInput = FileIdentity::outputRefusal(
        result.outputPath, {levelPath, listPath, ListBitmapPath(list, listPath), m_tileBitmap});
    if (sameAsInput.failed())
        return Refuse(Status::OutputIsInput, sameAsInput);

    QFile levelFile(levelPath);
    QFile listFile(listPath);
    FileError readError;
    if (!ReadOnlyFile::open(levelFile, readError))
        return Refuse(Status::LevelUnreadable, readError);
    if (!ReadOnlyFile::open(listFile, readError))
        return Refuse(Status::ListUnreadable, readError);

    QList<Range> plan = CopyPlan(level, list);
    LevelTileBlock tiles;
    if (m_writeTiles) {
        const Result refused = BuildTiles(level, levelFile, list, listPath, tiles);
        if (refused.status != Status::Done)
            return refused;
        plan = WithTiles(plan, tiles.first(), tiles.last());
        if (plan.isEmpty())
            return Refuse(Status::TilesUnusable, {levelPath, FileError::cannotReceive(),
                                                  QStringLiteral("its tiles lie among its tables")});
        result.tileCount = tiles.tileCount();
        result.changedTiles = tiles.changedTiles();
    }

    // Files are written in place from their first byte, never truncated: an
    // older, longer output keeps its bytes beyond the new end.
    ReplacingFile output(result.outputPath, ReplacingFile::KeepOlderTail);
    if (!output.open())
        return Refuse(Status::WriteFailed, output.error());

    const qint64 levelLength = level.FileLength();
    const auto report = [&](qint64 copied) {
        if (progress)
            progress(copied, levelLength);
    };
    report(0);
    qint64 at = 0;
    bool ok = true;
    for (const Range& range : plan) {
        if (range.source == Range::Tiles) {
            ok = output.write(tiles.bytes());
            at += tiles.bytes().size();
            report(at);
            if (!ok)
                break;
            continue;
        }
        QFile& source = range.source == Range::Level ? levelFile : listFile;
        at = CopyFileRange(source, output, range.first, range.last, at, ok, report);
        if (!ok)
            break;
    }
    if (!ok && !output.error().failed()) {
        // The copy stopped on a read: the level or the list changed under it.
        return Refuse(Status::WriteFailed,
                      FileError::reading(levelPath, QStringLiteral("it or its list changed while it was copied")));
    }
    if (!ok || !output.commit())
        return Refuse(Status::WriteFailed, output.error());
    result.notice = NoticeFor(list);
    return result;
}

void C_ListInserter::WriteTiles(const QString& bitmapPath)
{
    m_writeTiles = true;
    m_tileBitmap = bitmapPath;
}

QString C_ListInserter::ListBitmapPath(const C_ListInfo& list, const QString& listPath)
{
    return C_ListInfo::NamedPath(list.BitMapName(), listPath);
}

QList<C_ListInserter::Range> C_ListInserter::WithTiles(const QList<Range>& plan, qint64 first, qint64 last)
{
    QList<Range> split;
    bool placed = false;
    for (const Range& range : plan) {
        if (placed || range.source != Range::Level || first < range.first || last > range.last) {
            split.append(range);
            continue;
        }
        if (range.first < first)
            split.append({Range::Level, range.first, first - 1});
        split.append({Range::Tiles, first, last});
        if (last < range.last)
            split.append({Range::Level, last + 1, range.last});
        placed = true;
    }
    return placed ? split : QList<Range>{};
}

C_ListInserter::Result C_ListInserter::BuildTiles(const C_LevelInfo& level, QFile& levelFile, const C_ListInfo& list,
                                                  const QString& listPath, LevelTileBlock& tiles) const
{
    if (level.Game() != LevelVersion::Game::TR2 && level.Game() != LevelVersion::Game::TR3) {
        return Refuse(Status::TilesUnusable, {level.FileName(), FileError::cannotReceive(),
                                              QStringLiteral("only TR2 and TR3 levels have their tiles written")});
    }
    const QString bitmapPath = m_tileBitmap.isEmpty() ? ListBitmapPath(list, listPath) : m_tileBitmap;
    if (bitmapPath.isEmpty())
        return Refuse(Status::BitmapUnusable, FileError::reading(listPath, QStringLiteral("the list names no bitmap")));
    // The level's own tiles are decoded whatever their file's size; only
    // tiles added beyond them are held to the bitmap's file.
    TileBitmapSource bitmap(bitmapPath, level.Walk().tileCount);
    if (bitmap.isNull())
        return Refuse(Status::BitmapUnusable, bitmap.error());
    if (!tiles.build(levelFile, level.Walk(), bitmap, bitmapPath)) {
        const Status status = tiles.error().file() == bitmapPath ? Status::BitmapUnusable : Status::TilesUnusable;
        return Refuse(status, tiles.error());
    }
    return {};
}

qint64 C_ListInserter::CopyFileRange(QFile& src, ReplacingFile& dst, qint64 first, qint64 last,
                                     qint64 at, bool& ok, const std::function<void(qint64)>& copied)
{
    // Only bytes the source holds are copied; the callers check beforehand
    // that every range lies inside its file.
    const qint64 end = qMin(last + 1, src.size());
    if (first < 0 || end <= first || !src.seek(first))
        return at;
    QByteArray chunk;
    for (qint64 pos = first; pos < end;) {
        chunk = src.read(qMin(CopyChunk, end - pos));
        if (chunk.isEmpty() || !dst.write(chunk)) {
            ok = false;
            return at;
        }
        pos += chunk.size();
        at += chunk.size();
        copied(at);
    }
    return at;
}
