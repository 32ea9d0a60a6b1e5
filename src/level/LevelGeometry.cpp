#include "level/LevelGeometry.h"

#include "level/BinaryReader.h"
#include "level/GeometryBlocks.h"
#include "level/GeometryCursor.h"
#include "level/ObjectTexture.h"
#include "level/ReadTableRecords.h"
#include "level/WalkedLevelFile.h"

#include <QHash>
#include <QtEndian>

#include <limits>

namespace {

using Face = LevelGeometry::Face;
using Vertex = LevelGeometry::Vertex;

constexpr int StaticPlacementSize = 20; // x, y, z, rotation, two intensities, static mesh number
constexpr int StaticKindSize = 32;      // number, mesh, two boxes, flags

quint16 wordAt(QByteArrayView bytes, qint64 at)
{
    return qFromLittleEndian<quint16>(bytes.data() + at);
}

qint16 shortAt(QByteArrayView bytes, qint64 at)
{
    return qFromLittleEndian<qint16>(bytes.data() + at);
}

qint32 longAt(QByteArrayView bytes, qint64 at)
{
    return qFromLittleEndian<qint32>(bytes.data() + at);
}

QString faces(int n)
{
    return n == 1 ? QStringLiteral("1 face") : QStringLiteral("%1 faces").arg(n);
}

// The faces of one room or mesh, checked against its vertices and the
// level's textures; what fails is counted by cause.
class FaceList
{
public:
    FaceList(qint64 vertexCount, qint64 textureCount)
        : m_vertexCount(vertexCount)
        , m_textureCount(textureCount)
    {
    }

    qint64 read(GeometryCursor& cursor, int corners, QList<Face>& out, qint64 limit)
    {
        const int recordSize = corners * 2 + 2;
        const GeometryCursor::List list = cursor.list(recordSize, limit);
        const qint64 present = list.present(recordSize);
        for (qint64 i = 0; i < present; ++i)
            take(list.records.sliced(i * recordSize, recordSize), corners, out);
        return present;
    }

    int skipped() const { return m_pastVertex + m_pastTexture; }

    void note(const QString& owner, const QString& ownerKind, QStringList& notes) const
    {
        if (m_pastVertex > 0)
            notes.append(QStringLiteral("%1: %2 skipped: vertex past the %3's %4")
                             .arg(owner, faces(m_pastVertex), ownerKind)
                             .arg(m_vertexCount));
        if (m_pastTexture > 0)
            notes.append(QStringLiteral("%1: %2 skipped: texture past the level's %3")
                             .arg(owner, faces(m_pastTexture))
                             .arg(m_textureCount));
    }

private:
    void take(QByteArrayView record, int corners, QList<Face>& out)
    {
        Face face;
        face.cornerCount = quint8(corners);
        for (int c = 0; c < corners; ++c)
            face.corners[c] = wordAt(record, c * 2);
        const quint16 texture = wordAt(record, corners * 2);
        face.texture = texture & GeometryCursor::FaceTextureMask;
        face.doubleSided = (texture & ~GeometryCursor::FaceTextureMask) != 0;
        for (int c = 0; c < corners; ++c) {
            if (face.corners[c] >= m_vertexCount) {
                ++m_pastVertex;
                return;
            }
        }
        if (face.texture >= m_textureCount) {
            ++m_pastTexture;
            return;
        }
        out.append(face);
    }

    qint64 m_vertexCount;
    qint64 m_textureCount;
    int m_pastVertex = 0;
    int m_pastTexture = 0;
};

QList<Vertex> readVertices(GeometryCursor& cursor, int recordSize)
{
    const GeometryCursor::List list = cursor.list(recordSize);
    QList<Vertex> vertices;
    vertices.reserve(list.present(recordSize));
    for (qint64 i = 0; i < list.present(recordSize); ++i) {
        const qint64 at = i * recordSize;
        vertices.append({shortAt(list.records, at), shortAt(list.records, at + 2), shortAt(list.records, at + 4)});
    }
    return vertices;
}

// Reads every room, then the meshes its placements name, each once.
class GeometryReader
{
public:
    GeometryReader(BinaryReader& reader, const LevelWalk::Result& walk)
        : m_reader(reader)
        , m_walk(walk)
        , m_meshData(GeometryBlocks::blockBytes(reader, walk.meshData))
        , m_meshPointers(GeometryBlocks::meshPointers(GeometryBlocks::blockBytes(reader, walk.meshPointers)))
        , m_faceBudget(GeometryBlocks::meshFaceBudget(m_meshData))
    {
        // A level cut before its textures' count cannot tell which numbers are past them.
        const bool texturesCounted = walk.objectTexture.offset > 0 && reader.available(walk.objectTexture.offset) >= 4;
        m_textureCount = texturesCounted
                           ? PresentRecordCount(reader, walk.objectTexture, ObjectTexture::Size)
                           : qint64(GeometryCursor::FaceTextureMask) + 1;
        readStaticKinds();
    }

    LevelGeometry read()
    {
        for (qsizetype i = 0; i < m_walk.roomData.size(); ++i)
            m_geometry.rooms.append(readRoom(int(i)));
        return m_geometry;
    }

private:
    void readStaticKinds()
    {
        const qint64 count = PresentRecordCount(m_reader, m_walk.staticMeshes, StaticKindSize);
        const QByteArray table = m_reader.bytes(m_walk.staticMeshes.offset + 4, count * StaticKindSize);
        for (qint64 i = 0; i < count; ++i)
            m_kinds.insert(quint32(longAt(table, i * StaticKindSize)), wordAt(table, i * StaticKindSize + 4));
    }

    LevelGeometry::Room readRoom(int index)
    {
        LevelGeometry::Room room;
        const qint64 header = m_walk.roomHeaders.value(index);
        room.position = {m_reader.i32(header), 0, m_reader.i32(header + 4)};

        const QByteArray data = GeometryBlocks::blockBytes(m_reader, m_walk.roomData[index]);
        GeometryCursor cursor(data);
        room.vertices = readVertices(cursor, GeometryCursor::RoomVertexSize);
        FaceList faces(room.vertices.size(), m_textureCount);
        faces.read(cursor, 4, room.faces, std::numeric_limits<qint64>::max());
        faces.read(cursor, 3, room.faces, std::numeric_limits<qint64>::max());
        const QString owner = QStringLiteral("room %1").arg(index);
        faces.note(owner, QStringLiteral("room"), m_geometry.notes);
        m_geometry.skippedFaces += faces.skipped();

        if (index < m_walk.roomStaticMeshes.size())
            readPlacements(m_walk.roomStaticMeshes[index], owner, room.staticMeshes);
        return room;
    }

    void readPlacements(const TablePosition& list, const QString& owner, QList<LevelGeometry::StaticMesh>& out)
    {
        if (list.number <= 0)
            return;
        const QByteArray records = m_reader.bytes(list.offset + 2, list.size);
        for (qint64 at = 0; at + StaticPlacementSize <= records.size(); at += StaticPlacementSize) {
            LevelGeometry::StaticMesh placed;
            placed.position = {longAt(records, at), longAt(records, at + 4), longAt(records, at + 8)};
            placed.rotation = wordAt(records, at + 12);
            placed.kind = wordAt(records, at + 18);
            const QString refusal = placeMesh(placed);
            if (refusal.isEmpty()) {
                out.append(placed);
            } else {
                ++m_geometry.skippedStaticMeshes;
                m_geometry.notes.append(QStringLiteral("%1: static mesh %2 skipped: %3").arg(owner).arg(placed.kind).arg(refusal));
            }
        }
    }

    // Finds or reads the mesh the placement's kind names; why not, when it cannot.
    QString placeMesh(LevelGeometry::StaticMesh& placed)
    {
        const auto kind = m_kinds.constFind(placed.kind);
        if (kind == m_kinds.cend())
            return QStringLiteral("not among the level's %1 static meshes").arg(m_kinds.size());
        if (*kind >= m_meshPointers.size())
            return QStringLiteral("mesh %1 past the level's %2").arg(*kind).arg(m_meshPointers.size());
        const quint32 offset = m_meshPointers[*kind];
        if (offset >= quint32(m_meshData.size()))
            return QStringLiteral("mesh %1 points past the mesh data").arg(*kind);
        const auto known = m_meshesAt.constFind(offset);
        placed.mesh = known != m_meshesAt.cend() ? *known : readMesh(*kind, offset);
        return {};
    }

    int readMesh(quint16 number, quint32 offset)
    {
        LevelGeometry::Mesh mesh;
        GeometryCursor cursor(m_meshData, offset);
        cursor.skip(GeometryCursor::MeshHeaderSize);
        mesh.vertices = readVertices(cursor, GeometryCursor::MeshVertexSize);
        cursor.skipNormals();
        FaceList faces(mesh.vertices.size(), m_textureCount);
        m_faceBudget -= faces.read(cursor, 4, mesh.faces, qMax<qint64>(0, m_faceBudget));
        m_faceBudget -= faces.read(cursor, 3, mesh.faces, qMax<qint64>(0, m_faceBudget));
        faces.note(QStringLiteral("mesh %1").arg(number), QStringLiteral("mesh"), m_geometry.notes);
        m_geometry.skippedFaces += faces.skipped();

        const int index = int(m_geometry.meshes.size());
        m_geometry.meshes.append(mesh);
        m_meshesAt.insert(offset, index);
        return index;
    }

    BinaryReader& m_reader;
    const LevelWalk::Result& m_walk;
    QByteArray m_meshData;
    QList<quint32> m_meshPointers;
    qint64 m_faceBudget;
    qint64 m_textureCount = 0;
    QHash<quint32, quint16> m_kinds; // static mesh number to its mesh
    QHash<quint32, int> m_meshesAt; // mesh data offset to the mesh read there
    LevelGeometry m_geometry;
};

} // namespace

int LevelGeometry::faceCount() const
{
    int count = 0;
    for (const Room& room : rooms) {
        count += int(room.faces.size());
        for (const StaticMesh& placed : room.staticMeshes)
            count += int(meshes[placed.mesh].faces.size());
    }
    return count;
}

std::optional<LevelGeometry> LevelGeometry::ofLevel(const QString& levelPath, FileError* error)
{
    return WalkedLevelFile::read<LevelGeometry>(levelPath, error, &LevelGeometry::ofWalk);
}

LevelGeometry LevelGeometry::ofDevice(QIODevice& device, LevelWalk::Game game)
{
    BinaryReader reader(device, 512);
    return ofWalk(device, LevelWalk::walk(reader, game));
}

LevelGeometry LevelGeometry::ofWalk(QIODevice& device, const LevelWalk::Result& walk)
{
    BinaryReader reader(device, GeometryBlocks::ReadWindow);
    LevelGeometry geometry = GeometryReader(reader, walk).read();
    geometry.complete = walk.complete && walk.end <= reader.size();
    return geometry;
}
