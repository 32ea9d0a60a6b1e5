// Writes the seed corpus of fuzz_texture_usage into the folder given: small
// synthetic TR2 and TR3 levels whose rooms and meshes have faces, shared
// meshes, vertex lights, double-sided faces, sequences and animated ranges;
// hostile counts and pointers; and cut copies.

#include "CorpusWriter.h"
#include "synthetic/SyntheticGeometry.h"
#include "synthetic/SyntheticLevel.h"
#include "synthetic/SyntheticMeshSet.h"

namespace {

using Game = LevelVersion::Game;
using Field = SyntheticField;
using Geometry = SyntheticGeometry;

SyntheticMeshSet meshes()
{
    SyntheticMeshSet set;
    const quint32 shared = set.addPointed(Geometry::mesh(3, 3, {1, 2}, {3}));
    set.addPointed(Geometry::mesh(2, -2, {Geometry::DoubleSided | 4}, {}));
    set.addPointed(Geometry::mesh(1, 0, {}, {5, 6}));
    set.point(shared);
    return set;
}

SyntheticLevel geometry(Game game)
{
    SyntheticLevel level(game);
    level.setRooms({SyntheticRoom::holding(Geometry::room(3, {7, Geometry::DoubleSided | 8}, {9}, {1, 2})),
                    SyntheticRoom::holding(Geometry::room(1, {}, {10}, {}))});
    meshes().applyTo(level);
    level.setObjectTextures(QList<ObjectTexture>(14));
    level.setSpriteTextures(QList<SpriteTexture>(6));
    level.setSpriteSequences({{1, -2, 3}, {2, -1, 0}});
    level.setAnimatedTextures({{{11, 12}, {13}}});
    return level;
}

// Room data whose counts claim more than its words: negative, past the end.
SyntheticLevel hostileRoom(Game game)
{
    SyntheticLevel level = geometry(game);
    const QByteArray data = Geometry().count(-5).rectangles({1}, 900).count(2000).bytes();
    level.setRooms({SyntheticRoom::holding(data), level.rooms().first()});
    return level;
}

SyntheticLevel hostilePointers(Game game)
{
    SyntheticLevel level = geometry(game);
    SyntheticMeshSet set = meshes();
    set.point(3);                  // inside the first mesh
    set.point(quint32(set.data().size()));
    set.point(0xFFFFFFFF);
    set.applyTo(level);
    return level;
}

SyntheticLevel claiming(Game game, Field field, quint32 raw)
{
    SyntheticLevel level = geometry(game);
    level.overrideCount(field, raw);
    return level;
}

QList<CorpusWriter::Seed> seeds()
{
    const QByteArray tr2 = geometry(Game::TR2).build();
    const qint64 tr2Meshes = geometry(Game::TR2).layout().at(Field::MeshData);
    return {
        {"tr2_geometry", tr2},
        {"tr3_geometry", geometry(Game::TR3).build()},
        {"tr2_hostile_room", hostileRoom(Game::TR2).build()},
        {"tr3_hostile_room", hostileRoom(Game::TR3).build()},
        {"tr2_hostile_pointers", hostilePointers(Game::TR2).build()},
        {"tr3_hostile_pointers", hostilePointers(Game::TR3).build()},
        {"tr2_mesh_data_ffffffff", claiming(Game::TR2, Field::MeshData, 0xFFFFFFFF).build()},
        {"tr3_mesh_pointers_ffffffff", claiming(Game::TR3, Field::MeshPointers, 0xFFFFFFFF).build()},
        {"tr3_sequences_ffffffff", claiming(Game::TR3, Field::SpriteSequences, 0xFFFFFFFF).build()},
        {"tr2_animated_ffffffff", claiming(Game::TR2, Field::AnimatedTextures, 0xFFFFFFFF).build()},
        {"tr2_cut_in_meshes", tr2.left(tr2Meshes + 40)},
        {"tr2_cut_in_rooms", tr2.left(geometry(Game::TR2).layout().rooms.first() + 40)},
    };
}

} // namespace

int main(int argc, char** argv)
{
    return CorpusWriter::run(argc, argv, seeds());
}
