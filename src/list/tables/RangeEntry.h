#pragma once

#include <QtGlobal>

// One animated texture range of an open list, as its summary row shows it:
// its number (text at least two digits, key "A" and that text) and the
// "Number" and "First" it shows. Its textures are RangeTextureEntry rows.
// The shown values are what the range had when they were last set: an edit
// made while the list holds several ranges leaves them as they were.
struct RangeEntry
{
    qint32 number = 0;
    qint32 shownCount = 0;
    qint32 shownFirst = 0;
    bool showsFirst = false; // a range read without textures shows no "First"

    friend bool operator==(const RangeEntry&, const RangeEntry&) = default;
};
