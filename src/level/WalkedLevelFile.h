#pragma once

#include "common/FileError.h"
#include "level/C_LevelInfo.h"

#include <QFile>
#include <QString>

#include <optional>

// A TR2 or TR3 level the user chose, opened read-only and walked once: where
// reading more of it than its tables begins (its tiles, its geometry). The
// file stays open for those reads while this lives. What needs only the
// tiles walks no further: a level's rooms cost most of a walk.
class WalkedLevelFile
{
public:
    explicit WalkedLevelFile(const QString& path, LevelWalk::Reach reach = LevelWalk::Reach::End);

    // False, saying why in error, when the file cannot be read or is not a
    // TR2 or TR3 level.
    bool open(FileError& error);

    // What ofWalk (a reader's Reading ofWalk(QIODevice&, const
    // LevelWalk::Result&)) makes of the level at path; nothing, saying why in
    // error, when the level cannot be read.
    template <typename Reading>
    static std::optional<Reading> read(const QString& path, FileError* error,
                                       Reading (*ofWalk)(QIODevice&, const LevelWalk::Result&))
    {
        WalkedLevelFile level(path);
        FileError cause;
        if (!level.open(cause)) {
            if (error)
                *error = cause;
            return std::nullopt;
        }
        return ofWalk(level.file(), level.walk());
    }

    QFile& file() { return m_file; }
    const C_LevelInfo& info() const { return m_info; }
    const LevelWalk::Result& walk() const { return m_info.Walk(); }

private:
    QFile m_file;
    LevelWalk::Reach m_reach;
    C_LevelInfo m_info;
};
