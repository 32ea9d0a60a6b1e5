#pragma once

#include "common/FileError.h"

#include <QString>

class ListTables;

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
        // Said even when the list was written: what the list cannot do.
        QString notice;
    };

    static Result Extract(const QString& levelPath, const QString& bitmapPath, const QString& listPath);

    // A level without animation ranges gives a list without ranges, and such
    // a list keeps a lone word before its sprite tables, which puts them 2
    // bytes past where its counts say: it cannot carry them back into the
    // level. Says so, and what to do, when the views have sprites or
    // sequences and no range; empty otherwise.
    static QString RangelessNotice(const ListTables& tables, const QString& levelPath);
};
