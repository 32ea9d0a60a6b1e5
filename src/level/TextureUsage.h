#pragma once

#include "common/FileError.h"
#include "level/LevelWalk.h"
#include "level/TextureUseCounts.h"

#include <QList>
#include <QString>

#include <optional>

class QIODevice;

// Which textures a level's geometry uses, read by the level's public layout:
// the faces and sprites of its rooms, the faces of its meshes (each once,
// however many pointers share it), its sprite sequences and its animated
// texture ranges. Every list is ascending, each index once.
//
// A truncated or hostile level yields what its bytes hold: a room's lists are
// read inside its data words only, a mesh inside the mesh data only, and no
// count sizes an allocation or a loop beyond the bytes present.
class TextureUsage
{
public:
    QList<int> polygons; // object textures a room face uses
    QList<int> objects;  // object textures a textured mesh face uses
    QList<int> sprites;  // sprite textures a room sprite or a sprite sequence uses
    QList<int> unused;   // object textures 0 .. NumberObjectTexture - 1 that no face and no animated range uses

    // How many name each index: room faces and mesh faces (object textures),
    // room sprites (sprite textures), and sprite sequences by their last
    // sprite texture.
    TextureUseCounts roomFaces;
    TextureUseCounts meshFaces;
    TextureUseCounts roomSprites;
    TextureUseCounts sequenceEnds;

    // False when the level ends before its blocks do, or its blocks could
    // not be followed to their end: the lists then hold what its bytes held.
    bool complete = true;
    qint64 levelLength = 0; // the bytes the level holds
    qint64 blocksEnd = 0;   // where its blocks end; 0 when they could not be followed

    // Where a partial level ends, in one short clause; "" for a complete one.
    QString partialNote() const;

    // The usage of the level at levelPath, which is only read; nothing, with
    // the cause in error, when it cannot be read or is not TR2 or TR3.
    static std::optional<TextureUsage> ofLevel(const QString& levelPath, FileError* error = nullptr);

    // The usage of the level on device, walked as game whatever its version says.
    static TextureUsage ofDevice(QIODevice& device, LevelWalk::Game game);

    friend bool operator==(const TextureUsage&, const TextureUsage&) = default;

private:
    static TextureUsage ofWalk(QIODevice& device, const LevelWalk::Result& walk);
};
