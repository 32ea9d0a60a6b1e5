#pragma once

#include "common/FileError.h"

#include <QList>
#include <QString>

#include <functional>

class C_LevelInfo;
class C_ListInfo;
class LevelTileBlock;
class QFile;
class ReplacingFile;

// Builds a level that carries a list's tables: the level's object texture,
// sprite texture, sprite sequence and animated texture tables are replaced by
// the list's, every other byte of the level is copied unchanged. The level
// and the list are only read; the output ("templevel.tr2" beside the level
// unless another path is given) is written crash-safe, and an older, longer
// output keeps its tail beyond the new end.
class C_ListInserter
{
public:
    enum class Status {
        Done,
        LevelUnreadable,  // the level cannot be opened
        LevelUnusable,    // a TR2/TR3 level whose tables cannot be taken (C_LevelInfo::TablesUnusableCause)
        ListUnreadable,   // the list cannot be opened
        ListTruncated,    // the list's tables run past its end, or its range block past itself
        VersionMismatch,  // nothing opened for writing, nothing created
        OutputIsInput,    // the output path names the level or the list
        WriteFailed,
        BitmapUnusable,   // the bitmap for the tiles cannot be read or does not fit the level
        TilesUnusable,    // the level's tiles cannot be rebuilt from the bitmap
    };

    struct Result
    {
        Status status = Status::Done;
        QString outputPath;
        QString error;     // failure.text(): one line naming the file and the cause
        FileError failure; // what failed, on which file, why
        // Said even when the output was written: something about it a user
        // should know (a list without animation ranges leaves the output's
        // animated texture block without a single word).
        QString notice;
        // With the tiles written: how many the output holds, and how many of
        // them the bitmap changed or added.
        qint64 tileCount = 0;
        qint64 changedTiles = 0;
    };

    // One piece of the output, in output order: bytes first to last
    // (inclusive) of the level or of the list.
    struct Range
    {
        // Tiles: the level's texture tiles rebuilt from a bitmap, in place
        // of level bytes first to last.
        enum Source { Level, List, Tiles };
        Source source = Level;
        qint64 first = 0;
        qint64 last = -1;
        qint64 length() const { return last - first + 1; }
        friend bool operator==(const Range&, const Range&) = default;
    };

    // Called with the bytes written so far, from 0 and then after every chunk.
    using Progress = std::function<void(qint64 bytesCopied, qint64 levelLength)>;

    Result Insert(const QString& levelPath, const QString& listPath, const QString& outputPath = {},
                  const Progress& progress = {});

    // Insertion then also writes a bitmap's pixels into the level's texture
    // tiles (LevelTileBlock): bitmapPath's, or with an empty path the
    // bitmap the list names.
    void WriteTiles(const QString& bitmapPath = {});

    // The bitmap a list names, a relative name taken from the list's folder.
    static QString ListBitmapPath(const C_ListInfo& list, const QString& listPath);

    // The copy sequence for the level's game: TR2 and TR3 place the tables
    // differently; any other version copies the level whole.
    static QList<Range> CopyPlan(const C_LevelInfo& level, const C_ListInfo& list);

    // The folder part of path with its trailing separator; "" when it has none.
    // The plan with the level range that holds bytes first to last split
    // around a Tiles range in their place; empty when no level range does.
    static QList<Range> WithTiles(const QList<Range>& plan, qint64 first, qint64 last);

    static QString FolderOf(const QString& path);
    static QString DefaultOutputPath(const QString& levelPath);

private:
    // Copies bytes first..last of src to dst, telling copied the output
    // position after every chunk; returns the next output position.
    static qint64 CopyFileRange(QFile& src, ReplacingFile& dst, qint64 first, qint64 last, qint64 at,
                                bool& ok, const std::function<void(qint64)>& copied);
    static Result Refuse(Status status, const FileError& failure);
    static QString NoticeFor(const C_ListInfo& list);
    Result BuildTiles(const C_LevelInfo& level, QFile& levelFile, const C_ListInfo& list, const QString& listPath,
                      LevelTileBlock& tiles) const;

    bool m_writeTiles = false;
    QString m_tileBitmap;
};
