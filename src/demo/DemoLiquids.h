#pragma once

#include <QRgb>

// The animated surfaces: frame f of a cycle of n shifts every wave and every
// noise lattice by f/n of its period, so showing the frames in order (and
// the first after the last) moves the surface on without a jump.
class DemoLiquids
{
public:
    static constexpr int Size = 64;
    static constexpr int WaterFrames = 4;
    static constexpr int LavaFrames = 3;

    static QRgb water(int frame, int u, int v);
    static QRgb lava(int frame, int u, int v);
};
