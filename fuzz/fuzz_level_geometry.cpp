// Reads the room geometry of arbitrary bytes as a level of either game.
// Besides crashes, hangs and sanitizer reports it aborts on geometry that
// breaks what drawing relies on: every face corner names one of its room's or
// mesh's vertices, every placement names a mesh that was read, and nothing
// skipped goes unsaid.

#include "level/LevelGeometry.h"

#include <QBuffer>
#include <QByteArray>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

void require(bool condition)
{
    if (!condition)
        std::abort();
}

void requireFacesInside(const QList<LevelGeometry::Face>& faces, qsizetype vertexCount)
{
    for (const LevelGeometry::Face& face : faces) {
        require(face.cornerCount == 3 || face.cornerCount == 4);
        require(face.texture <= 0x7FFF);
        for (int c = 0; c < face.cornerCount; ++c)
            require(face.corners[size_t(c)] < vertexCount);
    }
}

void check(const LevelGeometry& geometry)
{
    for (const LevelGeometry::Room& room : geometry.rooms) {
        requireFacesInside(room.faces, room.vertices.size());
        for (const LevelGeometry::StaticMesh& placed : room.staticMeshes)
            require(placed.mesh >= 0 && placed.mesh < geometry.meshes.size());
    }
    for (const LevelGeometry::Mesh& mesh : geometry.meshes)
        requireFacesInside(mesh.faces, mesh.vertices.size());
    require((geometry.skippedFaces + geometry.skippedStaticMeshes > 0) == !geometry.notes.isEmpty());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size));
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::ReadOnly))
        return 0;
    for (LevelWalk::Game game : {LevelWalk::Game::TR2, LevelWalk::Game::TR3})
        check(LevelGeometry::ofDevice(buffer, game));
    return 0;
}
