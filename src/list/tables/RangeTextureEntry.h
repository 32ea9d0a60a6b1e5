#pragma once

#include <QtGlobal>

// One texture of an animated texture range: the range's number, the place
// the row names (text "NN-place"), and the object texture number. Places
// need not run without gaps: a range that lost a texture keeps the others'
// places, and its textures go out in the order of their places. keyed is
// false for a row whose key ("A", NN, place) another range's row took first.
struct RangeTextureEntry
{
    qint32 range = 0;
    qint32 place = 0;
    quint16 texture = 0;
    bool keyed = true;

    friend bool operator==(const RangeTextureEntry&, const RangeTextureEntry&) = default;
};
