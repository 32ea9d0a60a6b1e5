#include "UsageRatioFigure.h"

#include "synthetic/SyntheticGeometry.h"
#include "synthetic/SyntheticLevel.h"
#include "synthetic/SyntheticMeshSet.h"
#include "level/TextureUsage.h"

#include <cstdio>

bool UsageRatioFigure::writeLevel(const QString& path, QString* error) const
{
    SyntheticLevel level(LevelVersion::Game::TR3);
    level.setObjectTextures(QList<ObjectTexture>(ObjectTextures));
    level.setAnimatedTextures({{textures(8, 1), textures(8, 2)}});
    addRooms(level);
    addMeshes(level);
    const qint64 rest = qMax<qint64>(0, LevelBytes - level.layout().length);
    level.setCount(SyntheticField::FloorData, rest / 2);
    level.setCount(SyntheticField::DemoData, rest % 2);
    return level.writeTo(path, error);
}

bool UsageRatioFigure::run(const QString& path, const QString&)
{
    FileError error;
    const std::optional<TextureUsage> usage = TextureUsage::ofLevel(path, &error);
    if (!usage)
        std::fprintf(stderr, "usage_ratio: %s\n", qPrintable(error.text()));
    return usage && !usage->polygons.isEmpty() && !usage->objects.isEmpty();
}

void UsageRatioFigure::addRooms(SyntheticLevel& level)
{
    QList<SyntheticRoom> rooms;
    for (int r = 0; r < Rooms; ++r) {
        rooms.append(SyntheticRoom::holding(SyntheticGeometry::room(
            RoomVertices, textures(RoomFaces, r), textures(RoomFaces, r + 1), textures(RoomSprites, r))));
    }
    level.setRooms(rooms);
}

// Even meshes have normals, odd ones vertex lights.
void UsageRatioFigure::addMeshes(SyntheticLevel& level)
{
    SyntheticMeshSet meshes;
    for (int m = 0; m < Meshes; ++m) {
        const qint16 normals = m % 2 == 0 ? MeshVertices : -MeshVertices;
        meshes.point(meshes.addPointed(SyntheticGeometry::mesh(MeshVertices, normals, textures(MeshFaces, m),
                                                                textures(MeshFaces, m + 7))));
    }
    meshes.applyTo(level);
}

// count texture fields spread over the object textures, one in five double-sided.
QList<quint16> UsageRatioFigure::textures(int count, int seed)
{
    QList<quint16> fields(count);
    for (int i = 0; i < count; ++i) {
        const auto texture = quint16((seed * 7919 + i * 31) % ObjectTextures);
        fields[i] = i % 5 == 0 ? quint16(texture | SyntheticGeometry::DoubleSided) : texture;
    }
    return fields;
}
