#pragma once

#include <QString>

class C_ListInfo;
class ListDocument;

// What the status bar says once a list is opened: that it opened, and what
// of it could not be had (a level that is gone, a damaged range block, a cut
// bitmap, tables after the lone word or cut short), so a list that opened
// only in part never looks whole.
class ListOpenNotes
{
public:
    // "" when no list was read.
    static QString Of(const ListDocument& document, const C_ListInfo* list, const QString& bitmapCutNote);
};
