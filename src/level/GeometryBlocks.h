#pragma once

#include "level/TablePosition.h"

#include <QByteArray>
#include <QList>

class BinaryReader;

// The blocks that hold a level's faces, fetched whole: room data words, mesh
// data and mesh pointers. What reads faces reads them from here, never past
// what the file holds.
class GeometryBlocks
{
public:
    // Room data and mesh data are read a block at a time; the window only
    // serves the small tables.
    static constexpr qint64 ReadWindow = 1 << 16;
    static constexpr int MeshPointerSize = 4;

    // The words of a block the walk found, as far as the file holds them.
    static QByteArray blockBytes(BinaryReader& reader, const TablePosition& block);

    // Every pointer, in table order: byte offsets into the mesh data, which
    // may point anywhere.
    static QList<quint32> meshPointers(const QByteArray& pointers);

    // Meshes lie side by side in a real level, so their faces together cannot
    // outnumber what the mesh data holds at the smallest face size. Pointers
    // into the middle of other meshes could make every face be read again and
    // again; reading stops at this bound instead.
    static qint64 meshFaceBudget(const QByteArray& meshData);
};
