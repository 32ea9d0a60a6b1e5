#pragma once

#include <QtGlobal>

// The count fields of a level outside its rooms, in TR2 file order. TR3 keeps
// the same order except that its object texture count follows the animated
// textures, just before the items.
enum class SyntheticField {
    TileCount,
    RoomCount,
    FloorData,
    MeshData,
    MeshPointers,
    Animations,
    StateChanges,
    AnimDispatches,
    AnimCommands,
    MeshTrees,
    Frames,
    Moveables,
    StaticMeshes,
    ObjectTextures,
    SpriteTextures,
    SpriteSequences,
    Cameras,
    SoundSources,
    Boxes,
    Overlaps,
    AnimatedTextures,
    Items,
    CinematicFrames,
    DemoData,
    SoundDetails,
    SampleIndices,
};

inline constexpr int SyntheticFieldCount = int(SyntheticField::SampleIndices) + 1;
