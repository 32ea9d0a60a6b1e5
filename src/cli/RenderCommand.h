#pragma once

#include "cli/Command.h"

#include <QImage>
#include <QList>
#include <QSet>
#include <QSize>

#include <optional>

struct ObjectTexture;

// render LEVEL [--list LIST] [--bitmap BMP|PNG] [--room N] [--highlight T,...]
// [--size WxH] -o OUT.png: the level's rooms drawn as the rooms view draws
// them, from a fixed camera framing room N or the whole level, textured with
// the list's object textures (the level's own without one) over BMP (the
// level's own tiles without one). Needs an OpenGL 3.3 context: a display,
// such as xvfb-run gives; without one it says so and exits 2.
class RenderCommand : public Command
{
public:
    using Command::Command;
    int run(const QStringList& words) override;

    // "WxH" within 16 .. 8192 each; nothing for anything else.
    static std::optional<QSize> parseSize(const QString& text);
    // "3,17,40": texture numbers; nothing for a word that is none.
    static std::optional<QSet<int>> parseHighlight(const QString& text);

private:
    int readTextures(const QString& levelPath, const QString& listPath, QList<ObjectTexture>& textures);
    int readBitmap(const QString& levelPath, const QString& bitmapPath, QImage& bitmap);
};
