#pragma once

#include <QtGlobal>

// Where a texture table lies in a file: the position of its 32-bit count
// field, the count read there and the bytes of records that follow it.
struct TablePosition
{
    qint64 offset = 0;
    qint64 number = 0;
    qint64 size = 0;

    qint64 end() const { return offset + 4 + size; }

    friend bool operator==(const TablePosition&, const TablePosition&) = default;
};
