// Writes the seed corpus of fuzz_level_walk into the folder given: small
// synthetic TR2 and TR3 levels, hostile variants and truncated ones. Trailing
// zeros are dropped, since the walk reads bytes past the end as zeros anyway;
// that keeps most seeds near 2 KB. Only the few with counts behind the 8 KB
// light map are longer; they also let the fuzzer grow inputs that far.

#include "CorpusWriter.h"
#include "synthetic/SyntheticLevel.h"

namespace {

using Game = LevelVersion::Game;
using Field = SyntheticField;

SyntheticLevel tables(Game game)
{
    SyntheticLevel level(game);
    QList<ObjectTexture> objects(5);
    for (int i = 0; i < objects.size(); ++i)
        objects[i].bytes.fill(quint8(0x10 + i));
    level.setObjectTextures(objects);
    SpriteTexture sprite;
    sprite.tile = 1;
    sprite.width = 0x0F00;
    level.setSpriteTextures({sprite, sprite, sprite});
    SpriteSequence sequence;
    sequence.objectId = 190;
    sequence.setNumber(3);
    level.setSpriteSequences({sequence, sequence});
    AnimatedTextureBlock animated;
    animated.ranges = {{0, 1, 2}, {3, 4}};
    level.setAnimatedTextures(animated);
    return level;
}

SyntheticLevel rooms(Game game)
{
    SyntheticLevel level = tables(game);
    level.setRooms({{4, 1, 2, 2, 1, 1, false}, {}, {1, 0, 1, 3, 0, 2, false}, {0, 2, 1, 1, 1, 0, false}});
    return level;
}

SyntheticLevel everyBlock(Game game)
{
    SyntheticLevel level = rooms(game);
    int n = 0;
    for (Field field : {Field::FloorData, Field::MeshData, Field::MeshPointers, Field::Animations,
                        Field::StateChanges, Field::AnimDispatches, Field::AnimCommands, Field::MeshTrees,
                        Field::Frames, Field::Moveables, Field::StaticMeshes, Field::Cameras,
                        Field::SoundSources, Field::Boxes, Field::Overlaps, Field::Items})
        level.setCount(field, ++n);
    return level;
}

// The count field holds value as the level's signed 32 bits (its low 16 for
// a 16-bit field), with nothing behind it.
SyntheticLevel claiming(Game game, Field field, qint64 value)
{
    SyntheticLevel level = tables(game);
    level.overrideCount(field, quint32(value));
    return level;
}

SyntheticLevel withRoom(Game game, const SyntheticRoom& room)
{
    SyntheticLevel level = tables(game);
    level.setRooms({{2, 0, 1, 1, 0, 0, false}, room});
    return level;
}

SyntheticLevel withCount(Game game, Field field, qint64 count)
{
    SyntheticLevel level = tables(game);
    level.setCount(field, count);
    return level;
}

SyntheticLevel versioned(quint32 version)
{
    SyntheticLevel level = tables(Game::TR2);
    level.setVersion(version);
    return level;
}

QList<CorpusWriter::Seed> seeds()
{
    const QByteArray tr2 = tables(Game::TR2).build();
    const QByteArray tr3 = tables(Game::TR3).build();
    const qint64 tr2Objects = tables(Game::TR2).layout().objectTexture();
    const qint64 tr3Objects = tables(Game::TR3).layout().objectTexture();
    return {
        {"tr2_empty", SyntheticLevel(Game::TR2).build()},
        {"tr3_empty", SyntheticLevel(Game::TR3).build()},
        {"tr2_tables", tr2},
        {"tr3_tables", tr3},
        {"tr2_rooms", rooms(Game::TR2).build()},
        {"tr3_rooms", rooms(Game::TR3).build()},
        {"tr2_every_block", everyBlock(Game::TR2).build()},
        {"tr3_every_block", everyBlock(Game::TR3).build()},
        {"tr2_room_64x64_sectors", withRoom(Game::TR2, {0, 0, 64, 64, 0, 0, true}).build()},
        {"tr3_room_negative_portals", withRoom(Game::TR3, {0, -3, 0, 0, 0, 0, true}).build()},
        {"tr2_room_data_words_-1", withRoom(Game::TR2, {0xFFFFFFFF, 0, 0, 0, 0, 0, true}).build()},
        {"tr3_room_data_words_2147483647", withRoom(Game::TR3, {0x7FFFFFFF, 0, 0, 0, 0, 0, true}).build()},
        {"tr3_room_1365_lights", withRoom(Game::TR3, {0, 0, 0, 0, 1365, 0, true}).build()},
        {"tr2_room_count_8000", claiming(Game::TR2, Field::RoomCount, 0x8000).build()},
        {"tr2_object_textures_-1", claiming(Game::TR2, Field::ObjectTextures, -1).build()},
        {"tr3_object_textures_-1", claiming(Game::TR3, Field::ObjectTextures, -1).build()},
        {"tr2_sprite_textures_-100", claiming(Game::TR2, Field::SpriteTextures, -100).build()},
        {"tr3_animated_textures_-2147483648", claiming(Game::TR3, Field::AnimatedTextures, -2147483648).build()},
        {"tr2_floor_data_-900", claiming(Game::TR2, Field::FloorData, -900).build()},
        {"tr3_mesh_data_-1000", claiming(Game::TR3, Field::MeshData, -1000).build()},
        {"tr2_tiles_-1", claiming(Game::TR2, Field::TileCount, -1).build()},
        {"tr2_tiles_10922", claiming(Game::TR2, Field::TileCount, 10922).build()},
        {"tr2_tiles_10923", claiming(Game::TR2, Field::TileCount, 10923).build()},
        {"tr3_tiles_16384", claiming(Game::TR3, Field::TileCount, 16384).build()},
        {"tr3_boxes_10000000", claiming(Game::TR3, Field::Boxes, 0x10000000).build()},
        {"tr2_boxes_-1", claiming(Game::TR2, Field::Boxes, -1).build()},
        {"tr3_sound_details_ffff0000", claiming(Game::TR3, Field::SoundDetails, 0xFFFF0000).build()},
        {"tr2_cinematic_frames_-2048", withCount(Game::TR2, Field::CinematicFrames, -2048).build()},
        {"tr3_demo_data_-8000", withCount(Game::TR3, Field::DemoData, -8000).build()},
        {"tr1", versioned(LevelVersion::TR1).build()},
        {"unknown_version", versioned(0x12345678).build()},
        {"tr2_cut_in_object_textures", tr2.left(tr2Objects + 30)},
        {"tr3_cut_in_object_texture_count", tr3.left(tr3Objects + 1)},
        {"tr3_version_cut", tr3.left(3)},
    };
}

} // namespace

int main(int argc, char** argv)
{
    return CorpusWriter::run(argc, argv, seeds());
}
