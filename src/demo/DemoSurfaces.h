#pragma once

#include <QRgb>

// The demo's wall and floor materials: each gives the colour of pixel (u, v)
// of a 64 x 64 square (the frieze: 128 x 64). All but the frieze and the
// fence repeat without a seam when squares are laid side by side. Grate and
// fence leave DemoColor::SeeThrough between their bars.
class DemoSurfaces
{
public:
    static constexpr int Size = 64;

    static QRgb stoneBlocks(int u, int v);
    static QRgb bricks(int u, int v);
    static QRgb planks(int u, int v);
    static QRgb floorTiles(int u, int v);
    static QRgb grate(int u, int v);
    static QRgb cobbles(int u, int v);
    static QRgb sand(int u, int v);
    static QRgb mossyStone(int u, int v);
    static QRgb treadPlate(int u, int v);
    static QRgb marble(int u, int v);
    static QRgb grass(int u, int v);
    static QRgb chainLinkFence(int u, int v);
    static QRgb roofTiles(int u, int v);
    static QRgb carpet(int u, int v);
    static QRgb ice(int u, int v);
    static QRgb crate(int u, int v);
    static QRgb frieze(int u, int v);

private:
    static QRgb bevelled(QRgb colour, bool litEdge, bool shadedEdge);
    static QRgb metal(int u, int v, quint32 seed);
};
