#pragma once

#include "common/FileError.h"

#include <QString>

// Makes a new list from a level, as New List does: the level's tables are read
// into the six views, and the list is written with the given names, the
// level's version and TypeLevel 0.
class LevelListExtractor
{
public:
    enum class Status {
        Done,
        LevelUnreadable,   // cannot be opened
        LevelNotTR2OrTR3,  // another version: no tables to take
        LevelUnusable,     // its tables cannot be taken (C_LevelInfo::TablesUnusableCause)
        WriteFailed,
    };

    struct Result
    {
        Status status = Status::Done;
        FileError error;
    };

    static Result Extract(const QString& levelPath, const QString& bitmapPath, const QString& listPath);
};
