#include "synthetic/SyntheticGeometry.h"

#include <QtEndian>

SyntheticGeometry& SyntheticGeometry::count(qint16 n)
{
    word(quint16(n));
    return *this;
}

SyntheticGeometry& SyntheticGeometry::vertices(qint16 n, int vertexSize)
{
    count(n);
    zeros(qint64(n) * vertexSize);
    return *this;
}

SyntheticGeometry& SyntheticGeometry::points(const QList<Point>& points, int vertexSize)
{
    count(qint16(points.size()));
    for (const Point& point : points) {
        word(quint16(point.x));
        word(quint16(point.y));
        word(quint16(point.z));
        zeros(vertexSize - 6);
    }
    return *this;
}

SyntheticGeometry& SyntheticGeometry::faceList(const QList<Face>& faces, int corners)
{
    count(qint16(faces.size()));
    for (const Face& face : faces) {
        for (int corner = 0; corner < corners; ++corner)
            word(face.corners.value(corner));
        word(face.texture);
    }
    return *this;
}

SyntheticGeometry& SyntheticGeometry::meshHeader()
{
    zeros(MeshHeaderSize);
    return *this;
}

SyntheticGeometry& SyntheticGeometry::normals(qint16 n)
{
    count(n);
    zeros(n > 0 ? qint64(n) * NormalSize : -qint64(n) * LightSize);
    return *this;
}

SyntheticGeometry& SyntheticGeometry::rectangles(const QList<quint16>& textures, quint16 vertex)
{
    return faces(textures, 4, vertex);
}

SyntheticGeometry& SyntheticGeometry::triangles(const QList<quint16>& textures, quint16 vertex)
{
    return faces(textures, 3, vertex);
}

SyntheticGeometry& SyntheticGeometry::sprites(const QList<quint16>& textures)
{
    return faces(textures, 1, 0);
}

SyntheticGeometry& SyntheticGeometry::coloured(qint16 rectangles, qint16 triangles)
{
    count(rectangles);
    zeros(qint64(rectangles) * RectangleSize);
    count(triangles);
    zeros(qint64(triangles) * TriangleSize);
    return *this;
}

QByteArray SyntheticGeometry::room(qint16 vertexCount, const QList<quint16>& rectangles,
                                   const QList<quint16>& triangles, const QList<quint16>& sprites)
{
    return SyntheticGeometry()
        .vertices(vertexCount, RoomVertexSize)
        .rectangles(rectangles)
        .triangles(triangles)
        .sprites(sprites)
        .bytes();
}

QByteArray SyntheticGeometry::mesh(qint16 vertexCount, qint16 normalCount, const QList<quint16>& rectangles,
                                   const QList<quint16>& triangles)
{
    return SyntheticGeometry()
        .meshHeader()
        .vertices(vertexCount, MeshVertexSize)
        .normals(normalCount)
        .rectangles(rectangles)
        .triangles(triangles)
        .coloured(1, 1)
        .bytes();
}

// A face record: its corners' vertex indices, then its texture field.
SyntheticGeometry& SyntheticGeometry::faces(const QList<quint16>& textures, int corners, quint16 vertex)
{
    count(qint16(textures.size()));
    for (quint16 texture : textures) {
        for (int corner = 0; corner < corners; ++corner)
            word(vertex);
        word(texture);
    }
    return *this;
}

void SyntheticGeometry::word(quint16 value)
{
    char data[2];
    qToLittleEndian(value, data);
    m_bytes.append(data, 2);
}

void SyntheticGeometry::zeros(qint64 n)
{
    if (n > 0)
        m_bytes.append(QByteArray(n, '\0'));
}
