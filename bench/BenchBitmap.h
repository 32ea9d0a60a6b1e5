#pragma once

#include <QString>

class QTemporaryDir;

// A texture bitmap of the given number of tiles, every pixel different
// enough that no paint can take a shortcut over flat colour.
class BenchBitmap
{
public:
    // The path written inside dir; "" with a message on stderr on failure.
    static QString write(const QTemporaryDir& dir, int tiles, const char* figure);
};
