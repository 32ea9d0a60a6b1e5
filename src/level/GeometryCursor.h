#pragma once

#include <QByteArrayView>
#include <QtGlobal>

#include <limits>

class TextureIndexSet;
class TextureUseCounts;

// Reads the lists of a room's data words or of one mesh: each list is a
// 16-bit count and its records. Only the bytes given are ever read, so a list
// ends where they end whatever its count says; a negative count holds no
// records. Past the end every count reads 0.
class GeometryCursor
{
public:
    static constexpr int RoomVertexSize = 12;
    static constexpr int MeshVertexSize = 6;
    static constexpr int MeshHeaderSize = 10; // centre and collision radius
    static constexpr int NormalSize = 6;
    static constexpr int LightSize = 2;
    static constexpr int RectangleSize = 10; // four vertex indices, then the texture
    static constexpr int TriangleSize = 8;   // three vertex indices, then the texture
    static constexpr int SpriteSize = 4;     // a vertex index, then the sprite texture
    static constexpr quint16 FaceTextureMask = 0x7FFF; // the top bit marks a double-sided face
    static constexpr quint16 SpriteTextureMask = 0xFFFF;

    GeometryCursor(QByteArrayView bytes, qint64 position = 0);

    // A list's records as far as the bytes hold them: claimed is what its
    // count says, records the bytes of those present (at most limit).
    struct List
    {
        qint64 claimed = 0;
        QByteArrayView records;
        qint64 present(int recordSize) const { return records.size() / recordSize; }
    };

    qint16 count();
    void skip(qint64 bytes);
    // The next list, the cursor moved past every record its count claims.
    List list(int recordSize, qint64 limit = std::numeric_limits<qint64>::max());
    void skipList(int recordSize);
    // A mesh's normals, or its vertex lights when the count is negative.
    void skipNormals();

    // A list whose records end with a texture field: inserts each texture
    // (masked) into textures and counts it in counts, at most `limit`
    // records of them, and returns how many it read.
    qint64 readTextures(int recordSize, quint16 mask, TextureIndexSet& textures, TextureUseCounts& counts,
                        qint64 limit = std::numeric_limits<qint64>::max());

private:
    QByteArrayView m_bytes;
    qint64 m_position;
};
