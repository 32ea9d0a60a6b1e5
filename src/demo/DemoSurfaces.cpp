#include "demo/DemoSurfaces.h"

#include "demo/DemoColor.h"
#include "demo/DemoNoise.h"

#include <QtGlobal>

#include <cmath>
#include <utility>

namespace {

double grain(int u, int v, int cell, quint32 seed)
{
    return DemoNoise::fractal(u, v, cell, DemoSurfaces::Size, seed);
}

double fleck(int u, int v, quint32 seed)
{
    return DemoNoise::unit(u, v, seed);
}

// Broad, soft undulation without fine grain: for veins and cracks that should
// run as unbroken lines.
double swirl(int u, int v, quint32 seed)
{
    return 0.65 * DemoNoise::smooth(u, v, 32, DemoSurfaces::Size, seed)
        + 0.35 * DemoNoise::smooth(u, v, 16, DemoSurfaces::Size, seed + 1);
}

} // namespace

QRgb DemoSurfaces::bevelled(QRgb colour, bool litEdge, bool shadedEdge)
{
    if (litEdge)
        return DemoColor::scaled(colour, 1.2);
    if (shadedEdge)
        return DemoColor::scaled(colour, 0.7);
    return colour;
}

QRgb DemoSurfaces::metal(int u, int v, quint32 seed)
{
    const QRgb steel = DemoColor::scaled(qRgb(104, 110, 118), 0.9 + 0.2 * grain(u, v, 16, seed));
    const double rust = grain(u, v, 8, seed + 7);
    return rust > 0.7 ? DemoColor::mix(steel, qRgb(132, 72, 38), (rust - 0.7) * 2.5) : steel;
}

// Running-bond ashlar: 32 x 16 blocks, each row shifted by half a block.
QRgb DemoSurfaces::stoneBlocks(int u, int v)
{
    const int row = v / 16;
    const int shifted = (u + (row % 2) * 16) % Size;
    const int column = shifted / 32;
    const int bx = shifted % 32;
    const int by = v % 16;
    if (bx < 2 || by < 2)
        return DemoColor::scaled(qRgb(74, 70, 64), 0.85 + 0.3 * fleck(u, v, 11));
    const double tint = 0.86 + 0.24 * DemoNoise::unit(column, row, 12);
    const QRgb stone = DemoColor::scaled(qRgb(150, 144, 130), tint * (0.78 + 0.4 * grain(u, v, 16, 13)));
    return bevelled(stone, bx == 2 || by == 2, bx == 31 || by == 15);
}

QRgb DemoSurfaces::bricks(int u, int v)
{
    const int row = v / 8;
    const int shifted = (u + (row % 2) * 8) % Size;
    const int bx = shifted % 16;
    const int by = v % 8;
    if (bx == 0 || by == 0)
        return DemoColor::scaled(qRgb(176, 170, 156), 0.9 + 0.15 * fleck(u, v, 21));
    const double tint = 0.8 + 0.35 * DemoNoise::unit(shifted / 16, row, 22);
    const QRgb brick = DemoColor::scaled(qRgb(156, 66, 42), tint * (0.85 + 0.25 * grain(u, v, 8, 23)));
    return bevelled(brick, false, by == 7);
}

// Vertical boards of 16 pixels whose ends fall at different heights.
QRgb DemoSurfaces::planks(int u, int v)
{
    const int board = u / 16;
    const int x = u % 16;
    const int along = (v + board * 23) % Size;
    if (x == 0 || along == 0)
        return qRgb(52, 32, 18);
    const bool nail = (along == 3 || along == 4) && (x == 3 || x == 4 || x == 12 || x == 13);
    if (nail)
        return along == 3 ? qRgb(150, 150, 156) : qRgb(82, 82, 88);
    const double lines = DemoNoise::wave(x * 0.16 + 2.5 * grain(u, v, 32, 31) + board * 0.37);
    const double tint = 0.9 + 0.2 * DemoNoise::unit(board, 0, 32);
    const QRgb wood = DemoColor::mix(qRgb(112, 70, 36), qRgb(176, 122, 70), 0.5 + 0.5 * lines);
    return bevelled(DemoColor::scaled(wood, tint), x == 1, x == 15);
}

QRgb DemoSurfaces::floorTiles(int u, int v)
{
    const int x = u % 16;
    const int y = v % 16;
    if (x == 0 || y == 0)
        return qRgb(92, 86, 78);
    const bool light = (u / 16 + v / 16) % 2 == 0;
    const QRgb glaze = light ? qRgb(226, 210, 170) : qRgb(180, 94, 58);
    const QRgb tile = DemoColor::scaled(glaze, 0.9 + 0.14 * grain(u, v, 16, 41));
    return bevelled(tile, x == 1 || y == 1, x == 15 || y == 15);
}

// A frame with bars every 14 pixels; see-through between the bars.
QRgb DemoSurfaces::grate(int u, int v)
{
    const bool frame = u < 4 || v < 4 || u >= 60 || v >= 60;
    const int across = (u - 4) % 14;
    const int down = (v - 4) % 14;
    if (!frame && across >= 4 && down >= 4)
        return DemoColor::SeeThrough;
    const bool rivet = frame && (u % 20 == 2) && (v % 20 == 2);
    if (rivet)
        return qRgb(196, 200, 206);
    const QRgb bar = metal(u, v, 51);
    if (frame)
        return bevelled(bar, u == 0 || v == 0, u == 63 || v == 63);
    return bevelled(bar, across == 0 || down == 0, across == 3 || down == 3);
}

// Rounded stones around jittered points, four to a row.
QRgb DemoSurfaces::cobbles(int u, int v)
{
    constexpr int Cell = 16;
    constexpr int Points = Size / Cell;
    double nearest = 1e9;
    double second = 1e9;
    int stone = 0;
    for (int cy = v / Cell - 1; cy <= v / Cell + 1; ++cy) {
        for (int cx = u / Cell - 1; cx <= u / Cell + 1; ++cx) {
            const int wx = (cx + Points) % Points;
            const int wy = (cy + Points) % Points;
            const double px = cx * Cell + 3 + 10 * DemoNoise::unit(wx, wy, 61);
            const double py = cy * Cell + 3 + 10 * DemoNoise::unit(wx, wy, 62);
            const double d = std::sqrt((u + 0.5 - px) * (u + 0.5 - px) + (v + 0.5 - py) * (v + 0.5 - py));
            if (d < nearest) {
                second = nearest;
                nearest = d;
                stone = wy * Points + wx;
            } else if (d < second) {
                second = d;
            }
        }
    }
    if (second - nearest < 1.8)
        return DemoColor::scaled(qRgb(58, 52, 46), 0.85 + 0.3 * fleck(u, v, 63));
    const QRgb colour = DemoColor::mix(qRgb(132, 128, 120), qRgb(150, 116, 84), DemoNoise::unit(stone, 0, 64));
    const double roundness = 1.2 - 0.5 * qMin(1.0, nearest / 11.0);
    return DemoColor::scaled(colour, roundness * (0.85 + 0.2 * grain(u, v, 8, 65)));
}

QRgb DemoSurfaces::sand(int u, int v)
{
    const double ripple = DemoNoise::wave(v / 16.0 + 0.8 * grain(u, v, 32, 71));
    const double shade = 0.9 + 0.1 * grain(u, v, 8, 72) + 0.07 * ripple;
    const QRgb colour = DemoColor::scaled(qRgb(216, 186, 128), shade);
    return fleck(u, v, 73) > 0.96 ? DemoColor::scaled(colour, 0.7) : colour;
}

QRgb DemoSurfaces::mossyStone(int u, int v)
{
    const QRgb stone = DemoColor::scaled(stoneBlocks((u + 8) % Size, (v + 8) % Size), 0.9);
    const double moss = grain(u, v, 16, 81) + 0.25 * (fleck(u, v, 82) - 0.5);
    if (moss < 0.5)
        return stone;
    const QRgb green = DemoColor::scaled(qRgb(76, 118, 42), 0.8 + 0.4 * fleck(u, v, 83));
    return DemoColor::mix(stone, green, qMin(1.0, (moss - 0.5) * 4.0));
}

// Raised diagonal dashes, alternating direction in 8 x 8 cells.
QRgb DemoSurfaces::treadPlate(int u, int v)
{
    const QRgb steel = DemoColor::scaled(qRgb(128, 134, 142), 0.88 + 0.16 * grain(u, v, 32, 91));
    const int x = u % 8;
    const int y = v % 8;
    if (x < 1 || x > 6 || y < 1 || y > 6)
        return steel;
    const int offset = (u / 8 + v / 8) % 2 == 0 ? x - y : x + y - 7;
    if (offset == 0 || offset == -1)
        return DemoColor::scaled(steel, offset == -1 ? 1.3 : 1.12);
    if (offset == 1)
        return DemoColor::scaled(steel, 0.7);
    return steel;
}

// Slabs of 32 x 32 crossed by dark veins.
QRgb DemoSurfaces::marble(int u, int v)
{
    if (u % 32 == 0 || v % 32 == 0)
        return qRgb(168, 164, 156);
    const double t = (u + v) / 64.0 + 2.0 * swirl(u, v, 101);
    const double vein = std::abs(DemoNoise::wave(t));
    const QRgb stone = DemoColor::scaled(qRgb(234, 230, 220), 0.94 + 0.06 * grain(u, v, 8, 102));
    if (vein < 0.16)
        return DemoColor::mix(stone, qRgb(120, 122, 130), 1.0 - vein / 0.16);
    return stone;
}

QRgb DemoSurfaces::grass(int u, int v)
{
    const int lift = int(DemoNoise::unit(u, 0, 111) * 4);
    const int blade = ((v + lift) % Size) / 3;
    const double t = 0.55 * DemoNoise::unit(u, blade, 112) + 0.45 * grain(u, v, 16, 113);
    const QRgb colour = DemoColor::ramp({qRgb(34, 72, 22), qRgb(70, 128, 38), qRgb(126, 176, 62)}, t);
    return fleck(u, v, 114) > 0.985 ? qRgb(230, 214, 90) : colour;
}

// Diagonal wire mesh under a top rail; see-through between the wires.
QRgb DemoSurfaces::chainLinkFence(int u, int v)
{
    if (v < 5)
        return DemoColor::scaled(qRgb(150, 156, 164), v == 1 ? 1.35 : (v == 4 ? 0.6 : 1.0));
    const int rising = (u + v) % 16;
    const int falling = (u - v + Size) % 16;
    if (rising >= 2 && falling >= 2)
        return DemoColor::SeeThrough;
    const bool shadow = rising == 1 || falling == 1;
    return DemoColor::scaled(qRgb(192, 196, 202), shadow ? 0.72 : 1.0);
}

// Rows of round-ended clay shingles overlapping the row below.
QRgb DemoSurfaces::roofTiles(int u, int v)
{
    const int row = v / 16;
    const int y = v % 16;
    const int x = (u + (row % 2) * 8) % 16;
    const double across = (x + 0.5 - 8.0) / 8.0;
    const double edge = 10.0 + 5.0 * std::sqrt(qMax(0.0, 1.0 - across * across));
    if (y > edge || x == 0)
        return DemoColor::scaled(qRgb(92, 36, 24), 0.9 + 0.2 * fleck(u, v, 121));
    const double curve = 1.0 - 0.35 * std::abs(across);
    const double shade = (0.72 + 0.4 * y / 16.0) * curve * (0.9 + 0.15 * grain(u, v, 8, 122));
    return DemoColor::scaled(qRgb(188, 82, 50), shade);
}

// A woven rug: border bands and diamonds around the centre.
QRgb DemoSurfaces::carpet(int u, int v)
{
    const QRgb red = qRgb(150, 32, 40);
    const QRgb gold = qRgb(216, 174, 66);
    const QRgb navy = qRgb(36, 48, 110);
    const int fromEdge = qMin(qMin(u, v), qMin(Size - 1 - u, Size - 1 - v));
    const double weave = (u + v) % 2 == 0 ? 1.0 : 0.9;
    QRgb colour = red;
    if (fromEdge < 3)
        colour = navy;
    else if (fromEdge < 5)
        colour = gold;
    else {
        const int ring = (std::abs(2 * u - 63) + std::abs(2 * v - 63)) / 2 % 12;
        if (ring < 2)
            colour = gold;
        else if (ring == 6 || ring == 7)
            colour = navy;
    }
    return DemoColor::scaled(colour, weave * (0.92 + 0.1 * fleck(u, v, 131)));
}

QRgb DemoSurfaces::ice(int u, int v)
{
    if (u % 32 == 0 || v % 32 == 0)
        return qRgb(122, 170, 200);
    const QRgb colour = DemoColor::mix(qRgb(150, 198, 226), qRgb(222, 242, 252), grain(u, v, 32, 141));
    const double crack = std::abs(swirl(u, v, 142) - 0.5);
    if (crack < 0.012)
        return qRgb(248, 252, 255);
    return bevelled(colour, u % 32 == 1 || v % 32 == 1, false);
}

// Boards inside a frame with one diagonal brace.
QRgb DemoSurfaces::crate(int u, int v)
{
    const bool frame = u < 7 || v < 7 || u > 56 || v > 56;
    const bool brace = !frame && std::abs(u - (Size - 1 - v)) <= 4;
    const bool nail = (u == 3 || u == 60) && (v == 3 || v == 60);
    if (nail)
        return qRgb(60, 60, 66);
    const double lines = DemoNoise::wave((frame || brace ? u + v : v) * 0.2 + 2.0 * grain(u, v, 32, 151));
    const QRgb light = qRgb(196, 150, 92);
    const QRgb dark = qRgb(146, 102, 56);
    QRgb wood = DemoColor::mix(frame || brace ? dark : light, qRgb(120, 80, 40), 0.25 + 0.2 * lines);
    if (!frame && !brace && (v - 7) % 10 == 0)
        wood = qRgb(86, 56, 30);
    if (frame)
        return bevelled(wood, u == 0 || v == 0, u == 63 || v == 63 || u == 6 || v == 6);
    if (brace)
        return bevelled(wood, u - (Size - 1 - v) == -4, u - (Size - 1 - v) == 4);
    return wood;
}

// A sandstone band of carved quatrefoils, 128 x 64.
QRgb DemoSurfaces::frieze(int u, int v)
{
    const QRgb stone = DemoColor::scaled(qRgb(212, 180, 126), 0.86 + 0.2 * grain(u % Size, v, 16, 161));
    if (v < 8 || v > 55)
        return bevelled(DemoColor::scaled(stone, 0.9), v == 0 || v == 56, v == 7 || v == 63);
    const double dx = (u % 32) + 0.5 - 16.0;
    const double dy = v + 0.5 - 32.0;
    const double radius = std::sqrt(dx * dx + dy * dy);
    if (radius > 12.0 && radius < 14.0)
        return DemoColor::scaled(stone, 0.62);
    double lobe = 1e9;
    for (const auto& [cx, cy] : {std::pair(5.5, 0.0), std::pair(-5.5, 0.0), std::pair(0.0, 5.5), std::pair(0.0, -5.5)})
        lobe = qMin(lobe, (dx - cx) * (dx - cx) + (dy - cy) * (dy - cy));
    if (lobe < 16.0)
        return DemoColor::scaled(stone, dx + dy < 0 ? 1.18 : 1.04);
    if (lobe < 24.0)
        return DemoColor::scaled(stone, 0.58);
    if (radius <= 12.0)
        return DemoColor::scaled(stone, 0.8);
    return stone;
}
