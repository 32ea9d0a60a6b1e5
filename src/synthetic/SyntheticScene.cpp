#include "synthetic/SyntheticScene.h"

#include "demo/DemoTile16Encoder.h"
#include "synthetic/SyntheticGeometry.h"
#include "synthetic/SyntheticMeshSet.h"

#include <QPainter>
#include <QtEndian>

namespace {

using Geometry = SyntheticGeometry;

void appendLong(QByteArray& bytes, qint32 value)
{
    char data[4];
    qToLittleEndian(value, data);
    bytes.append(data, 4);
}

void appendWord(QByteArray& bytes, quint16 value)
{
    char data[2];
    qToLittleEndian(value, data);
    bytes.append(data, 2);
}

} // namespace

SyntheticScene::SyntheticScene(int rooms, int side, int textureCount)
    : m_rooms(rooms)
    , m_side(side)
    , m_textureCount(qMax(2, textureCount))
{
}

quint16 SyntheticScene::floorTexture(int room, int column, int row) const
{
    // Textures 0 and 1 belong to the walls and the cube; floors use the rest.
    const int floors = m_textureCount - 2;
    return quint16(floors > 0 ? 2 + (room * 7 + row * m_side + column) % floors : 0);
}

QColor SyntheticScene::colorOf(int texture)
{
    // Hues far apart from one texture to the next; never the see-through magenta.
    return QColor::fromHsv((texture * 137) % 300, 200 + texture % 3 * 20, 160 + texture % 5 * 20);
}

QList<ObjectTexture> SyntheticScene::objectTextures() const
{
    QList<ObjectTexture> textures;
    for (int t = 0; t < m_textureCount; ++t) {
        const int cell = t % 16;
        const int x = cell % 4 * CellSize, y = cell / 4 * CellSize;
        ObjectTexture record;
        record.setColumn(ObjectTexture::TileColumn, t / 16);
        const int xs[4] = {x, x + CellSize - 1, x + CellSize - 1, x};
        const int ys[4] = {y, y, y + CellSize - 1, y + CellSize - 1};
        for (int c = 0; c < 4; ++c) {
            record.setColumn(ObjectTexture::XColumn(c), xs[c]);
            record.setColumn(ObjectTexture::YColumn(c), ys[c]);
            record.setColumn(ObjectTexture::XHiColumn(c), c == 1 || c == 2 ? 255 : 1);
            record.setColumn(ObjectTexture::YHiColumn(c), c >= 2 ? 255 : 1);
        }
        textures.append(record);
    }
    return textures;
}

QImage SyntheticScene::bitmap() const
{
    QImage image(256, 256 * tileCount(), QImage::Format_RGB888);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    for (int t = 0; t < m_textureCount; ++t) {
        const int cell = t % 16;
        painter.fillRect(cell % 4 * CellSize, t / 16 * 256 + cell / 4 * CellSize, CellSize, CellSize, colorOf(t));
    }
    return image;
}

QByteArray SyntheticScene::roomData(int room) const
{
    QList<quint16> floor;
    for (int row = 0; row < m_side; ++row) {
        for (int column = 0; column < m_side; ++column)
            floor.append(floorTexture(room, column, row));
    }
    return roomOf(m_side, m_side, floor, {WallTexture});
}

QByteArray SyntheticScene::roomOf(int columns, int rows, const QList<quint16>& floor, const QList<quint16>& walls,
                                  const QList<quint16>& triangles, const QList<quint16>& sprites)
{
    const auto at = [columns, rows](int column, int row, int level) {
        return quint16((level * (rows + 1) + row) * (columns + 1) + column);
    };
    QList<Geometry::Point> points;
    for (int level = 0; level < 2; ++level) {
        for (int row = 0; row <= rows; ++row) {
            for (int column = 0; column <= columns; ++column)
                points.append({qint16(column * Sector), qint16(-level * WallHeight), qint16(row * Sector)});
        }
    }
    QList<Geometry::Face> quads;
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column)
            quads.append({{at(column, row, 0), at(column + 1, row, 0), at(column + 1, row + 1, 0), at(column, row + 1, 0)},
                          floor.value(quads.size() % qMax<qsizetype>(1, floor.size()))});
    }
    // The walls run round the edge, each quad top edge first.
    QList<std::array<int, 4>> edges;
    for (int i = 0; i < columns; ++i) {
        edges.append({i, 0, i + 1, 0});
        edges.append({i + 1, rows, i, rows});
    }
    for (int i = 0; i < rows; ++i) {
        edges.append({columns, i, columns, i + 1});
        edges.append({0, i + 1, 0, i});
    }
    for (qsizetype i = 0; i < edges.size(); ++i) {
        const auto& e = edges[i];
        quads.append({{at(e[0], e[1], 1), at(e[2], e[3], 1), at(e[2], e[3], 0), at(e[0], e[1], 0)},
                      walls.value(i % qMax<qsizetype>(1, walls.size()))});
    }
    QList<Geometry::Face> pyramid;
    if (!triangles.isEmpty()) {
        // The middle floor point raised a quarter sector, joined to its four neighbours.
        const auto middle = quint16(points.size());
        const qint16 cx = qint16(columns / 2 * Sector), cz = qint16(rows / 2 * Sector);
        points.append({cx, qint16(-Sector / 4), cz});
        const std::array<quint16, 4> around{at(columns / 2 - 1, rows / 2, 0), at(columns / 2, rows / 2 - 1, 0),
                                            at(columns / 2 + 1, rows / 2, 0), at(columns / 2, rows / 2 + 1, 0)};
        for (int i = 0; i < 4; ++i)
            pyramid.append({{around[size_t(i)], around[size_t((i + 1) % 4)], middle}, triangles[i % triangles.size()]});
    }
    QList<Geometry::Face> standing;
    for (quint16 sprite : sprites)
        standing.append({{0}, sprite});
    return Geometry()
        .points(points, Geometry::RoomVertexSize)
        .faceList(quads, 4)
        .faceList(pyramid, 3)
        .faceList(standing, 1)
        .bytes();
}

QByteArray SyntheticScene::cubeMesh(quint16 texture)
{
    constexpr qint16 h = Sector / 4;
    QList<Geometry::Point> points;
    for (int i = 0; i < 8; ++i)
        points.append({qint16(i & 1 ? h : -h), qint16(i & 2 ? 0 : -2 * h), qint16(i & 4 ? h : -h)});
    const QList<Geometry::Face> quads{{{0, 1, 3, 2}, texture}, {{4, 6, 7, 5}, texture}, {{0, 4, 5, 1}, texture},
                                      {{2, 3, 7, 6}, texture}, {{0, 2, 6, 4}, texture}, {{1, 5, 7, 3}, texture}};
    return Geometry().meshHeader().points(points, Geometry::MeshVertexSize).normals(8).faceList(quads, 4).coloured(0, 0).bytes();
}

QByteArray SyntheticScene::roomHeader(qint32 x, qint32 z)
{
    QByteArray bytes;
    appendLong(bytes, x);
    appendLong(bytes, z);
    appendLong(bytes, 0);
    appendLong(bytes, -WallHeight);
    return bytes;
}

QByteArray SyntheticScene::placement(qint32 x, qint32 y, qint32 z, quint16 rotation, quint16 kind)
{
    QByteArray bytes;
    appendLong(bytes, x);
    appendLong(bytes, y);
    appendLong(bytes, z);
    appendWord(bytes, rotation);
    appendWord(bytes, 0);
    appendWord(bytes, 0);
    appendWord(bytes, kind);
    return bytes;
}

QByteArray SyntheticScene::staticKind(quint32 number, quint16 mesh)
{
    QByteArray bytes;
    appendLong(bytes, qint32(number));
    appendWord(bytes, mesh);
    bytes.append(QByteArray(26, '\0'));
    return bytes;
}

SyntheticLevel SyntheticScene::level(LevelVersion::Game game) const
{
    SyntheticLevel level(game);
    QList<SyntheticRoom> rooms;
    for (int r = 0; r < m_rooms; ++r) {
        SyntheticRoom room = SyntheticRoom::holding(roomData(r));
        const qint32 x = roomX(r, m_side);
        room.header = roomHeader(x, 0);
        room.staticMeshes = 1;
        room.placements = placement(x + m_side * Sector / 2, 0, m_side * Sector / 2, quint16(r * 0x2000), quint16(CubeKind));
        rooms.append(room);
    }
    level.setRooms(rooms);
    SyntheticMeshSet meshes;
    meshes.addPointed(cubeMesh());
    meshes.applyTo(level);
    level.setBlock(SyntheticField::StaticMeshes, staticKind(CubeKind, 0));
    level.setObjectTextures(objectTextures());
    level.setTileCount(quint32(tileCount()), DemoTile16Encoder::encode(bitmap(), QColor(Qt::magenta).rgb()));
    return level;
}
