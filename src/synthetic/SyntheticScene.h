#pragma once

#include "level/LevelVersion.h"
#include "level/ObjectTexture.h"
#include "synthetic/SyntheticLevel.h"

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QList>

// Rooms whose faces and textures are known, for the tests and benchmarks of
// what draws a level. Room r of a scene is a square of side x side sectors
// whose corner lies at (r * (side + 1) sectors, 0): a floor at y = 0 of one
// quad per sector, the quad in column c and row w textured
// floorTexture(r, c, w), and four walls one sector high, one quad per sector,
// textured WallTexture. Each room places one static mesh, a cube half a
// sector wide whose six faces use CubeTexture, at the room's centre.
//
// The textures are textureCount rectangles of 64 x 64 pixels, sixteen to a
// tile, texture t filled with colorOf(t); bitmap() draws them (magenta
// elsewhere) and the level carries them as its tiles.
class SyntheticScene
{
public:
    static constexpr int Sector = 1024;
    static constexpr int WallHeight = 1024; // y points down: the walls rise to y = -1024
    static constexpr int CellSize = 64;
    static constexpr quint16 WallTexture = 0;
    static constexpr quint16 CubeTexture = 1;
    static constexpr quint32 CubeKind = 7; // the static mesh number rooms place

    SyntheticScene(int rooms, int side, int textureCount);

    int rooms() const { return m_rooms; }
    int side() const { return m_side; }
    int textureCount() const { return m_textureCount; }
    int tileCount() const { return (m_textureCount + 15) / 16; }

    quint16 floorTexture(int room, int column, int row) const;
    static QColor colorOf(int texture);
    // The level's position of room r's corner.
    static qint32 roomX(int room, int side) { return room * (side + 1) * Sector; }

    QList<ObjectTexture> objectTextures() const;
    QImage bitmap() const; // 256 wide, tileCount() tiles high
    SyntheticLevel level(LevelVersion::Game game) const;

    // The room's data words: vertices, floor and wall quads, no triangles.
    QByteArray roomData(int room) const;
    // The data words of a room of columns x rows sectors: floor quad i (row
    // by row) takes floor[i % size], wall quad i (round the room) walls[i %
    // size]; with triangles, a low pyramid of four of them stands in the
    // middle, taking triangles in turn; sprites stand on vertex 0.
    static QByteArray roomOf(int columns, int rows, const QList<quint16>& floor, const QList<quint16>& walls,
                             const QList<quint16>& triangles = {}, const QList<quint16>& sprites = {});
    // A cube's mesh: eight vertices, eight normals and six quads of texture.
    static QByteArray cubeMesh(quint16 texture = CubeTexture);
    static QByteArray roomHeader(qint32 x, qint32 z);
    static QByteArray placement(qint32 x, qint32 y, qint32 z, quint16 rotation, quint16 kind);
    static QByteArray staticKind(quint32 number, quint16 mesh);

private:
    int m_rooms;
    int m_side;
    int m_textureCount;
};
