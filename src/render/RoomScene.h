#pragma once

#include "level/LevelGeometry.h"

#include <QList>
#include <QVector3D>

#include <optional>
#include <vector>

// A level's geometry laid out for drawing: every textured face of the rooms
// and of the static meshes they place, as triangles in drawing units (one
// sector to a unit, y up), each vertex carrying its face's texture number,
// its corner in that texture and the face's number. Face numbers run over
// the rooms' faces, then each placed mesh's, room by room; pick results and
// highlights speak in them.
class RoomScene
{
public:
    struct DrawVertex
    {
        float x, y, z;
        quint16 texture;
        quint8 corner;
        quint8 spare;
        quint32 face;
    };

    struct FaceRef
    {
        int room = 0;
        int face = 0;        // within the room's faces, or the placed mesh's
        int staticMesh = -1; // which of the room's placements, -1 for a room face
        quint16 texture = 0;
        QVector3D centre;
    };

    struct Bounds
    {
        QVector3D centre;
        float radius = 0;
    };

    RoomScene() = default;
    explicit RoomScene(const LevelGeometry& geometry);

    const std::vector<DrawVertex>& vertices() const { return m_vertices; }
    const QList<FaceRef>& faces() const { return m_faces; }
    int roomCount() const { return int(m_roomBounds.size()); }

    Bounds levelBounds() const { return m_levelBounds; }
    Bounds roomBounds(int room) const { return m_roomBounds.value(room); }

    // The face using texture nearest to point; nothing when none uses it.
    std::optional<int> nearestFaceUsing(int texture, const QVector3D& point) const;

    // A level point (y down) in drawing units.
    static QVector3D toDrawing(qint64 x, qint64 y, qint64 z);

private:
    void addFace(const std::array<QVector3D, 4>& corners, const LevelGeometry::Face& face, const FaceRef& ref);
    void addRoom(int index, const LevelGeometry& geometry);

    std::vector<DrawVertex> m_vertices;
    QList<FaceRef> m_faces;
    QList<Bounds> m_roomBounds;
    Bounds m_levelBounds;
};
