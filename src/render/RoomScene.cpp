#include "render/RoomScene.h"

#include <QtMath>

#include <limits>

namespace {

constexpr float Sector = 1024.0f;

struct Box
{
    QVector3D low{std::numeric_limits<float>::max(), std::numeric_limits<float>::max(), std::numeric_limits<float>::max()};
    QVector3D high{-std::numeric_limits<float>::max(), -std::numeric_limits<float>::max(), -std::numeric_limits<float>::max()};
    bool empty = true;

    void add(const QVector3D& p)
    {
        low = QVector3D(qMin(low.x(), p.x()), qMin(low.y(), p.y()), qMin(low.z(), p.z()));
        high = QVector3D(qMax(high.x(), p.x()), qMax(high.y(), p.y()), qMax(high.z(), p.z()));
        empty = false;
    }

    RoomScene::Bounds bounds() const
    {
        if (empty)
            return {};
        return {(low + high) / 2, (high - low).length() / 2};
    }
};

// A placed mesh's vertex turned about the vertical as the level turns it and
// moved to where the room puts it.
QVector3D placedVertex(const LevelGeometry::StaticMesh& placed, const LevelGeometry::Vertex& v)
{
    const double angle = placed.rotation * (2 * M_PI / 65536.0);
    const double c = std::cos(angle), s = std::sin(angle);
    const double x = v.x * c + v.z * s;
    const double z = v.z * c - v.x * s;
    return RoomScene::toDrawing(qint64(placed.position.x + x), qint64(placed.position.y) + v.y,
                                qint64(placed.position.z + z));
}

} // namespace

QVector3D RoomScene::toDrawing(qint64 x, qint64 y, qint64 z)
{
    // Turned half a turn about x: y comes up and the level is not mirrored.
    return QVector3D(float(x) / Sector, float(-y) / Sector, float(-z) / Sector);
}

RoomScene::RoomScene(const LevelGeometry& geometry)
{
    m_vertices.reserve(size_t(geometry.faceCount()) * 6);
    Box level;
    for (int r = 0; r < geometry.rooms.size(); ++r) {
        const qsizetype before = m_vertices.size();
        addRoom(r, geometry);
        Box room;
        for (size_t i = size_t(before); i < m_vertices.size(); ++i)
            room.add(QVector3D(m_vertices[i].x, m_vertices[i].y, m_vertices[i].z));
        m_roomBounds.append(room.bounds());
        if (!room.empty) {
            level.add(room.low);
            level.add(room.high);
        }
    }
    m_levelBounds = level.bounds();
}

void RoomScene::addRoom(int index, const LevelGeometry& geometry)
{
    const LevelGeometry::Room& room = geometry.rooms[index];
    QList<QVector3D> points;
    points.reserve(room.vertices.size());
    for (const LevelGeometry::Vertex& v : room.vertices)
        points.append(toDrawing(qint64(room.position.x) + v.x, v.y, qint64(room.position.z) + v.z));
    for (int f = 0; f < room.faces.size(); ++f) {
        const LevelGeometry::Face& face = room.faces[f];
        std::array<QVector3D, 4> corners;
        for (int c = 0; c < face.cornerCount; ++c)
            corners[size_t(c)] = points[face.corners[size_t(c)]];
        addFace(corners, face, {index, f, -1, face.texture, {}});
    }
    for (int s = 0; s < room.staticMeshes.size(); ++s) {
        const LevelGeometry::StaticMesh& placed = room.staticMeshes[s];
        const LevelGeometry::Mesh& mesh = geometry.meshes[placed.mesh];
        for (int f = 0; f < mesh.faces.size(); ++f) {
            const LevelGeometry::Face& face = mesh.faces[f];
            std::array<QVector3D, 4> corners;
            for (int c = 0; c < face.cornerCount; ++c)
                corners[size_t(c)] = placedVertex(placed, mesh.vertices[face.corners[size_t(c)]]);
            addFace(corners, face, {index, f, s, face.texture, {}});
        }
    }
}

// A quad as the two triangles 0-1-2 and 0-2-3, a triangle as itself.
void RoomScene::addFace(const std::array<QVector3D, 4>& corners, const LevelGeometry::Face& face, const FaceRef& ref)
{
    static constexpr int QuadOrder[6] = {0, 1, 2, 0, 2, 3};
    const auto id = quint32(m_faces.size());
    const int used = face.cornerCount == 3 ? 3 : 6;
    QVector3D centre;
    for (int i = 0; i < face.cornerCount; ++i)
        centre += corners[size_t(i)];
    for (int i = 0; i < used; ++i) {
        const int c = QuadOrder[i];
        const QVector3D& p = corners[size_t(c)];
        m_vertices.push_back({p.x(), p.y(), p.z(), face.texture, quint8(c), 0, id});
    }
    FaceRef placed = ref;
    placed.centre = centre / float(face.cornerCount);
    m_faces.append(placed);
}

std::optional<int> RoomScene::nearestFaceUsing(int texture, const QVector3D& point) const
{
    std::optional<int> nearest;
    float best = std::numeric_limits<float>::max();
    for (int i = 0; i < m_faces.size(); ++i) {
        if (m_faces[i].texture != texture)
            continue;
        const float distance = (m_faces[i].centre - point).lengthSquared();
        if (distance < best) {
            best = distance;
            nearest = i;
        }
    }
    return nearest;
}
