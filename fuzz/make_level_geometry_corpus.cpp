// Writes the seed corpus of fuzz_level_geometry into the folder given: small
// TR2 and TR3 levels of known rooms with static meshes placed; faces past
// their vertices and textures; placements of missing static meshes and
// pointers past the mesh data; hostile counts; and cut copies.

#include "CorpusWriter.h"
#include "synthetic/SyntheticGeometry.h"
#include "synthetic/SyntheticMeshSet.h"
#include "synthetic/SyntheticScene.h"

namespace {

using Game = LevelVersion::Game;
using Field = SyntheticField;
using Geometry = SyntheticGeometry;
using Scene = SyntheticScene;

// Tiles would make the seeds large and reach nothing of the geometry.
SyntheticLevel rooms(Game game)
{
    SyntheticLevel level = Scene(2, 2, 6).level(game);
    level.setTileCount(0);
    return level;
}

SyntheticLevel hostileFaces(Game game)
{
    SyntheticLevel level = rooms(game);
    const QByteArray data = Geometry()
                                .points({{0, 0, 0}, {1024, 0, 0}, {0, 0, 1024}}, Geometry::RoomVertexSize)
                                .faceList({{{0, 1, 2, 3}, 1}, {{0, 1, 2, 0}, 6}}, 4)
                                .faceList({{{0, 1, 2}, Geometry::DoubleSided | 2}, {{0, 1, 900}, 1}}, 3)
                                .count(0)
                                .bytes();
    QList<SyntheticRoom> laid = level.rooms();
    laid.append(SyntheticRoom::holding(data));
    laid.append(SyntheticRoom::holding(Geometry().count(-1).faceList({{{0, 0, 0, 0}, 1}}, 4).count(2000).bytes()));
    level.setRooms(laid);
    return level;
}

SyntheticLevel hostilePlacements(Game game)
{
    SyntheticLevel level = rooms(game);
    QList<SyntheticRoom> laid = level.rooms();
    laid.first().staticMeshes = 3;
    laid.first().placements = Scene::placement(0, 0, 0, 0, 99) + Scene::placement(0, 0, 0, 0, Scene::CubeKind)
                            + Scene::placement(0, 0, 0, 0, 8);
    level.setRooms(laid);
    SyntheticMeshSet meshes;
    meshes.addPointed(Scene::cubeMesh());
    meshes.point(3);
    meshes.point(0xFFFFFFFF);
    meshes.applyTo(level);
    level.setBlock(Field::StaticMeshes, Scene::staticKind(Scene::CubeKind, 1) + Scene::staticKind(8, 2)
                                            + Scene::staticKind(9, 40));
    return level;
}

SyntheticLevel claiming(Game game, Field field, quint32 raw)
{
    SyntheticLevel level = rooms(game);
    level.overrideCount(field, raw);
    return level;
}

QList<CorpusWriter::Seed> seeds()
{
    const SyntheticLevel tr2 = rooms(Game::TR2);
    const QByteArray tr2Bytes = tr2.build();
    return {
        {"tr2_rooms", tr2Bytes},
        {"tr3_rooms", rooms(Game::TR3).build()},
        {"tr2_hostile_faces", hostileFaces(Game::TR2).build()},
        {"tr3_hostile_faces", hostileFaces(Game::TR3).build()},
        {"tr2_hostile_placements", hostilePlacements(Game::TR2).build()},
        {"tr3_hostile_placements", hostilePlacements(Game::TR3).build()},
        {"tr2_static_meshes_ffffffff", claiming(Game::TR2, Field::StaticMeshes, 0xFFFFFFFF).build()},
        {"tr3_mesh_data_ffffffff", claiming(Game::TR3, Field::MeshData, 0xFFFFFFFF).build()},
        {"tr2_cut_in_second_room", tr2Bytes.left(tr2.layout().rooms[1] + 60)},
        {"tr2_cut_in_meshes", tr2Bytes.left(tr2.layout().at(Field::MeshData) + 30)},
    };
}

} // namespace

int main(int argc, char** argv)
{
    return CorpusWriter::run(argc, argv, seeds());
}
