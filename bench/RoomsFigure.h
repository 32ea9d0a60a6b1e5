#pragma once

#include "BenchFigure.h"

// The Rooms view on the largest test level: 150 rooms of 10 x 10 sectors
// with walls and a cube each (21,900 faces), 256 textures over 16 tiles,
// drawn offscreen at 1280 x 720 on whatever OpenGL the display gives (Mesa's
// software renderer under Xvfb here).
//   rooms_frame_ms   one frame of every room, drawn and finished
//   rooms_pick_ms    the face under a pixel read back, in the middle of the view
//   rooms_update_ms  an edit of one texture's rectangle through the list
//                    document to the next finished frame
//   rooms_open_ms    the context made and its shaders built, the level's
//                    geometry read, its buffers, tiles and texture table
//                    uploaded and the first frame finished
//   rooms_tile_memory_ratio  the tile array's bytes over the bitmap's (24-bit)
class RoomsFigure : public BenchFigure
{
public:
    enum class Kind { Frame, Pick, Update, Open, TileMemory };

    explicit RoomsFigure(Kind kind) : m_kind(kind) {}

    QString name() const override;
    QString unit() const override;
    std::optional<double> measure() override;

private:
    static constexpr int Rooms = 150;
    static constexpr int Side = 10;
    static constexpr int Textures = 256;
    static constexpr int Samples = 15;

    Kind m_kind;
};
