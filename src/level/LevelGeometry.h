#pragma once

#include "common/FileError.h"
#include "level/LevelWalk.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <array>
#include <optional>

class QIODevice;

// The textured faces of a level's rooms and of the static meshes they place,
// as plain numbers in the level's own units (1024 to a sector, y pointing
// down). Coloured mesh faces, sprites and moving objects are left out.
//
// A hostile or cut level gives what its bytes hold: the same bounded walk as
// the texture usage, each list read inside its block only. A face naming a
// vertex past its room's or mesh's vertices, or a texture past the level's
// object textures, is skipped; a placement naming a static mesh the level
// does not have is skipped too. Each is counted and said in notes.
class LevelGeometry
{
public:
    struct Vertex
    {
        qint32 x = 0;
        qint32 y = 0;
        qint32 z = 0;
        friend bool operator==(const Vertex&, const Vertex&) = default;
    };

    struct Face
    {
        std::array<quint16, 4> corners{}; // vertex indices; the fourth unused by a triangle
        quint8 cornerCount = 4;
        quint16 texture = 0; // object texture number
        bool doubleSided = false;
        friend bool operator==(const Face&, const Face&) = default;
    };

    // A static mesh's shape: vertices relative to the point it is placed at.
    struct Mesh
    {
        QList<Vertex> vertices;
        QList<Face> faces;
    };

    struct StaticMesh
    {
        Vertex position;       // in the level, not in the room
        quint16 rotation = 0;  // about the vertical axis, 65536 to a turn
        quint16 kind = 0;      // the static mesh number the room names
        int mesh = 0;          // index into meshes
    };

    struct Room
    {
        Vertex position; // x and z of the room; its vertices' y are already the level's
        QList<Vertex> vertices; // x and z relative to position
        QList<Face> faces;
        QList<StaticMesh> staticMeshes;
    };

    QList<Room> rooms;
    QList<Mesh> meshes;
    int skippedFaces = 0;
    int skippedStaticMeshes = 0;
    QStringList notes; // one per room or mesh that lost something: what and why
    bool complete = true; // false when the walk could not follow the level to its end

    int faceCount() const;

    static std::optional<LevelGeometry> ofLevel(const QString& levelPath, FileError* error = nullptr);
    static LevelGeometry ofDevice(QIODevice& device, LevelWalk::Game game);

private:
    static LevelGeometry ofWalk(QIODevice& device, const LevelWalk::Result& walk);
};
