#pragma once

#include "cli/Command.h"

// extract LEVEL [--bitmap BMP] -o LIST: a new list made from a level, the same
// bytes the editor's New List writes (absolute names, version from the level).
// A bitmap that does not exist yet (by default LIST's name with ".bmp") is
// written from the level's tiles first, as a BMP or a PNG by its name.
class ExtractCommand : public Command
{
public:
    using Command::Command;
    int run(const QStringList& words) override;

private:
    // Done when the existing bitmap can be read as an image; otherwise the
    // exit status of the one line that says why not.
    int RefuseBitmap(const QString& bitmapPath);
};
