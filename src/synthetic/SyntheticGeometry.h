#pragma once

#include <QByteArray>
#include <QList>
#include <QtGlobal>

// The words of a room's data or of one mesh, written list by list in file
// order: each list is a 16-bit count and its records. Vertices, normals and
// lights are zeros; a face names one vertex at every corner and carries the
// texture field given; a room sprite names vertex 0.
//
//   room:  vertices(n, RoomVertexSize).rectangles(...).triangles(...).sprites(...)
//   mesh:  meshHeader().vertices(n, MeshVertexSize).normals(n)
//              .rectangles(...).triangles(...).coloured(r, t)
//
// count() writes a bare count, so a list can claim what does not follow it.
class SyntheticGeometry
{
public:
    static constexpr int RoomVertexSize = 12;
    static constexpr int MeshVertexSize = 6;
    static constexpr int MeshHeaderSize = 10; // centre and collision radius
    static constexpr int NormalSize = 6;
    static constexpr int LightSize = 2;
    static constexpr int RectangleSize = 10;
    static constexpr int TriangleSize = 8;
    static constexpr int SpriteSize = 4;
    static constexpr quint16 DoubleSided = 0x8000;

    struct Point
    {
        qint16 x = 0;
        qint16 y = 0;
        qint16 z = 0;
    };
    // A face with its own corners (three or four vertex indices) and texture field.
    struct Face
    {
        QList<quint16> corners;
        quint16 texture = 0;
    };

    SyntheticGeometry& count(qint16 n);
    // Vertices at the given points, the rest of each record zeros.
    SyntheticGeometry& points(const QList<Point>& points, int vertexSize);
    // One face list: every face has as many corners as the first.
    SyntheticGeometry& faceList(const QList<Face>& faces, int corners);
    SyntheticGeometry& vertices(qint16 n, int vertexSize);
    SyntheticGeometry& meshHeader();
    // n > 0 normals; otherwise -n vertex lights, as the count's sign says.
    SyntheticGeometry& normals(qint16 n);
    SyntheticGeometry& rectangles(const QList<quint16>& textures, quint16 vertex = 0);
    SyntheticGeometry& triangles(const QList<quint16>& textures, quint16 vertex = 0);
    SyntheticGeometry& sprites(const QList<quint16>& textures);
    // Untextured faces: counts and zero records.
    SyntheticGeometry& coloured(qint16 rectangles, qint16 triangles);

    const QByteArray& bytes() const { return m_bytes; }

    // A room with vertexCount vertices and the given textured faces and sprites.
    static QByteArray room(qint16 vertexCount, const QList<quint16>& rectangles, const QList<quint16>& triangles,
                           const QList<quint16>& sprites = {});
    // A mesh with vertexCount vertices, normalCount normals (or lights) and
    // the given textured faces, then a coloured rectangle and triangle.
    static QByteArray mesh(qint16 vertexCount, qint16 normalCount, const QList<quint16>& rectangles,
                           const QList<quint16>& triangles);

private:
    SyntheticGeometry& faces(const QList<quint16>& textures, int corners, quint16 vertex);
    void word(quint16 value);
    void zeros(qint64 n);

    QByteArray m_bytes;
};
