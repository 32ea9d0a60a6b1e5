#pragma once

#include "common/FileError.h"

class C_LevelInfo;
class ListTables;

// Reads a walked level's four texture tables into a list's records with
// the same routines that read a list file, so a list made from a level saves
// and reopens unchanged.
class LevelTableReader
{
public:
    // False when the level cannot be opened or its tables cannot be taken
    // (a negative count, more rows than a level can address, a walk that did
    // not reach the end); the records are then untouched, and error, when
    // given, says why.
    static bool ReadIntoTables(const C_LevelInfo& level, ListTables& tables, FileError* error = nullptr);
};
