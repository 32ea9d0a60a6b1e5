#include "demo/DemoSpriteArt.h"

#include "demo/DemoColor.h"
#include "demo/DemoNoise.h"

#include <QtGlobal>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

namespace {

using Shape = std::function<bool(int u, int v)>;

// True for a pixel of the shape that touches a pixel outside it.
bool onOutline(const Shape& inside, int u, int v)
{
    return !inside(u - 1, v) || !inside(u + 1, v) || !inside(u, v - 1) || !inside(u, v + 1);
}

bool inBox(int u, int v, int left, int top, int right, int bottom)
{
    return u >= left && u <= right && v >= top && v <= bottom;
}

// Brighter towards the middle of a cylinder seen from the side.
double cylinderShade(double across)
{
    return 1.15 - 0.55 * across * across;
}

// A leaf or blade from a base point along a direction, widest at its middle.
struct Leaf
{
    double baseU;
    double baseV;
    double dirU;
    double dirV;
    double length;
    double width;

    // Whether (u, v) lies on the leaf; across is its signed distance from the midrib.
    bool contains(double u, double v, double* across) const
    {
        const double pu = u - baseU;
        const double pv = v - baseV;
        const double along = pu * dirU + pv * dirV;
        *across = pu * dirV - pv * dirU;
        if (along < 0 || along > length)
            return false;
        const double t = along / length;
        return std::abs(*across) <= width * 4.0 * t * (1.0 - t) + 0.3;
    }
};

QRgb leafColour(double across, double width, quint32 seed, int u, int v)
{
    if (std::abs(across) < 0.6)
        return qRgb(40, 94, 34);
    const QRgb side = across > 0 ? qRgb(70, 146, 54) : qRgb(104, 182, 76);
    return DemoColor::scaled(side, 0.85 + 0.2 * DemoNoise::unit(u, v, seed) - 0.1 * std::abs(across) / width);
}

constexpr int Bayer4[4][4] = {{0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}};

} // namespace

// A tongue of fire, round at its foot, whose turbulence rises 16 pixels a frame.
QRgb DemoSpriteArt::flame(int frame, int u, int v)
{
    const int w = FlameCell.width();
    const int h = FlameCell.height();
    const double height = (h - 3 - v) / double(h - 6); // 0 at the foot, 1 at the tip
    if (height < 0.0 || height > 1.0)
        return DemoColor::SeeThrough;
    const double sway = 0.22 * height * DemoNoise::wave(height * 1.1 + double(frame) / FlameFrames);
    const double x = (u + 0.5 - w / 2.0) / 22.0 - sway;
    const double foot = (height - 0.25) / 0.25;
    const double halfWidth = height < 0.25 ? std::sqrt(qMax(0.0, 1.0 - foot * foot)) : (1.0 - height) / 0.75;
    const double turbulence = DemoNoise::fractal(u, v + 16 * frame, 8, 64, 301);
    const double heat = 1.0 - std::abs(x) / qMax(halfWidth, 0.01) - 0.9 * height * (turbulence - 0.35);
    if (heat <= 0.0)
        return DemoColor::SeeThrough;
    return DemoColor::ramp({qRgb(168, 26, 8), qRgb(236, 92, 18), qRgb(252, 176, 36), qRgb(255, 238, 130),
                            qRgb(255, 252, 226)},
                           qMin(1.0, heat * 1.2) * (1.0 - 0.45 * height));
}

// A gold coin turning about its upright axis, 22.5 degrees a frame.
QRgb DemoSpriteArt::coin(int frame, int u, int v)
{
    constexpr double Radius = 13.5;
    const double facing = std::abs(DemoNoise::wave(frame / 16.0 + 0.25));
    const double halfWidth = qMax(1.6, Radius * facing);
    const double dx = u + 0.5 - CoinCell.width() / 2.0;
    const double dy = v + 0.5 - CoinCell.height() / 2.0;
    const double reach = (dx / halfWidth) * (dx / halfWidth) + (dy / Radius) * (dy / Radius);
    if (reach > 1.0)
        return DemoColor::SeeThrough;
    const double light = 1.12 - 0.22 * dy / Radius - 0.12 * dx / halfWidth;
    if (reach > 0.7 || halfWidth < 3.0)
        return DemoColor::scaled(qRgb(184, 128, 24), light);
    const double faceU = dx / halfWidth * Radius;
    const double emblem = std::abs(faceU) / 6.5 + std::abs(dy) / 8.5;
    if (emblem <= 1.0 && emblem > 0.7)
        return DemoColor::scaled(qRgb(176, 122, 22), light);
    if (emblem <= 0.35)
        return DemoColor::scaled(qRgb(255, 236, 150), light);
    return DemoColor::scaled(qRgb(238, 190, 54), light);
}

// A puff that rises, grows and thins out over its frames.
QRgb DemoSpriteArt::smoke(int frame, int u, int v)
{
    const double radius = 8.0 + 3.6 * frame;
    const double dx = u + 0.5 - SmokeCell.width() / 2.0;
    const double dy = v + 0.5 - (SmokeCell.height() / 2.0 + 6.0 - 2.0 * frame);
    const double billow = DemoNoise::fractal(u, v + 6 * frame, 8, 64, 311);
    const double reach = std::sqrt(dx * dx + dy * dy) / radius + 0.4 * (billow - 0.5);
    if (reach > 1.0)
        return DemoColor::SeeThrough;
    const double thinning = frame * 0.12 * (0.4 + reach);
    if (Bayer4[v % 4][u % 4] / 16.0 < thinning)
        return DemoColor::SeeThrough;
    const double grey = 206.0 - 70.0 * reach + 8.0 * frame - 30.0 * dy / radius * 0.3;
    return DemoColor::rgb(grey, grey, grey + 8.0);
}

// A white box with a red cross on its front and a lighter lid.
QRgb DemoSpriteArt::medipack(int u, int v, QSize cell, bool handle)
{
    const int left = 3;
    const int right = cell.width() - 4;
    const int top = handle ? 10 : 4;
    const int bottom = cell.height() - 3;
    const int lidBottom = top + (bottom - top) / 4;
    const Shape body = [&](int x, int y) {
        const bool inHandle = handle && inBox(x, y, cell.width() / 2 - 9, 3, cell.width() / 2 + 8, top)
            && !inBox(x, y, cell.width() / 2 - 5, 6, cell.width() / 2 + 4, top);
        return inBox(x, y, left, top, right, bottom) || inHandle;
    };
    if (!body(u, v))
        return DemoColor::SeeThrough;
    if (onOutline(body, u, v))
        return qRgb(70, 70, 76);
    if (v < top)
        return qRgb(60, 62, 70);
    if (v <= lidBottom)
        return v == lidBottom ? qRgb(150, 150, 156) : qRgb(246, 246, 244);
    const int centreU = (left + right) / 2;
    const int centreV = (lidBottom + bottom) / 2;
    const int arm = (bottom - lidBottom) / 5;
    const int span = (bottom - lidBottom) / 2 - 2;
    const bool cross = (std::abs(u - centreU) <= arm && std::abs(v - centreV) <= span)
        || (std::abs(v - centreV) <= arm && std::abs(u - centreU) <= span);
    if (cross)
        return DemoColor::scaled(qRgb(206, 30, 36), 1.05 - 0.2 * (v - lidBottom) / double(bottom - lidBottom));
    return DemoColor::scaled(qRgb(226, 226, 222), 1.02 - 0.18 * (v - lidBottom) / double(bottom - lidBottom));
}

QRgb DemoSpriteArt::smallMedipack(int u, int v)
{
    return medipack(u, v, SmallMedipackCell, false);
}

QRgb DemoSpriteArt::largeMedipack(int u, int v)
{
    return medipack(u, v, LargeMedipackCell, true);
}

// A gold key: a ring, a shaft and two teeth.
QRgb DemoSpriteArt::key(int u, int v)
{
    const Shape shape = [](int x, int y) {
        const double dx = x + 0.5 - 13.0;
        const double dy = y + 0.5 - 14.0;
        const double r2 = dx * dx + dy * dy;
        const bool ring = r2 <= 11.0 * 11.0 && r2 > 5.0 * 5.0;
        const bool shaft = inBox(x, y, 22, 11, 53, 16);
        const bool teeth = inBox(x, y, 42, 17, 45, 24) || inBox(x, y, 49, 17, 52, 21);
        return ring || shaft || teeth;
    };
    if (!shape(u, v))
        return DemoColor::SeeThrough;
    if (onOutline(shape, u, v))
        return qRgb(118, 80, 14);
    const bool lit = !shape(u, v - 2) || !shape(u - 2, v);
    return lit ? qRgb(255, 232, 128) : qRgb(226, 178, 46);
}

// Three shotgun shells standing side by side.
QRgb DemoSpriteArt::ammo(int u, int v)
{
    constexpr std::array<int, 3> Lefts{4, 17, 30};
    for (const int left : Lefts) {
        const int right = left + 9;
        const bool roundedTop = v < 7 && (u == left || u == right);
        if (!inBox(u, v, left, 5, right, 37) || roundedTop)
            continue;
        const double across = (u + 0.5 - (left + right + 1) / 2.0) / 5.0;
        if (u == left || u == right || v == 5 || v == 37)
            return qRgb(60, 28, 20);
        if (v >= 29)
            return DemoColor::scaled(v == 29 ? qRgb(150, 112, 40) : qRgb(216, 174, 72), cylinderShade(across));
        return DemoColor::scaled(qRgb(186, 38, 34), cylinderShade(across));
    }
    return DemoColor::SeeThrough;
}

// A round bush of long leaves in a clay pot.
QRgb DemoSpriteArt::plant(int u, int v)
{
    const Shape pot = [](int x, int y) {
        if (inBox(x, y, 14, 84, 57, 90))
            return true;
        const int inset = (y - 91) / 3;
        return y >= 91 && y <= 109 && x >= 19 + inset && x <= 52 - inset;
    };
    if (pot(u, v)) {
        if (onOutline(pot, u, v) || v == 90)
            return qRgb(92, 40, 24);
        return DemoColor::scaled(qRgb(192, 98, 58), cylinderShade((u + 0.5 - 36.0) / 22.0));
    }
    static constexpr std::array<Leaf, 8> Leaves{{
        {36, 86, -0.94, -0.34, 34, 6},
        {36, 86, 0.94, -0.34, 34, 6},
        {36, 86, -0.77, -0.64, 48, 7},
        {36, 86, 0.77, -0.64, 48, 7},
        {36, 86, -0.45, -0.89, 62, 8},
        {36, 86, 0.45, -0.89, 62, 8},
        {36, 86, -0.16, -0.99, 76, 8},
        {36, 86, 0.2, -0.98, 70, 8},
    }};
    for (auto leaf = Leaves.rbegin(); leaf != Leaves.rend(); ++leaf) {
        double across = 0;
        if (leaf->contains(u + 0.5, v + 0.5, &across))
            return leafColour(across, leaf->width, 321, u, v);
    }
    return DemoColor::SeeThrough;
}

// A faceted blue crystal standing on its lower point.
QRgb DemoSpriteArt::crystal(int u, int v)
{
    constexpr double Top = 2.0;
    constexpr double Girdle = 24.0;
    constexpr double Tip = 69.0;
    constexpr double HalfWidth = 17.0;
    const double dx = u + 0.5 - CrystalCell.width() / 2.0;
    const double y = v + 0.5;
    if (y < Top || y > Tip)
        return DemoColor::SeeThrough;
    const bool upper = y <= Girdle;
    const double reach = upper ? HalfWidth * (y - Top) / (Girdle - Top) : HalfWidth * (Tip - y) / (Tip - Girdle);
    if (std::abs(dx) > reach)
        return DemoColor::SeeThrough;
    if (std::abs(dx) > reach - 1.2 || std::abs(y - Girdle) < 0.6)
        return qRgb(22, 66, 128);
    if (std::abs(dx) < 0.6)
        return qRgb(220, 250, 255);
    if (upper)
        return dx < 0 ? qRgb(168, 236, 252) : qRgb(92, 198, 240);
    return dx < 0 ? qRgb(58, 160, 222) : qRgb(30, 108, 188);
}

// A tuft of reeds, two of them carrying brown seed heads.
QRgb DemoSpriteArt::reeds(int u, int v)
{
    static constexpr std::array<Leaf, 7> Blades{{
        {28, 70, -0.53, -0.85, 56, 3},
        {28, 70, 0.53, -0.85, 56, 3},
        {28, 70, -0.28, -0.96, 64, 3},
        {28, 70, 0.34, -0.94, 62, 3},
        {28, 70, -0.12, -0.99, 66, 1.5},
        {28, 70, 0.14, -0.99, 58, 1.5},
        {28, 70, 0.0, -1.0, 50, 3},
    }};
    const Shape head = [](int x, int y) {
        for (const Leaf& stem : {Blades[4], Blades[5]}) {
            const double pu = x + 0.5 - stem.baseU;
            const double pv = y + 0.5 - stem.baseV;
            const double along = pu * stem.dirU + pv * stem.dirV;
            const double across = pu * stem.dirV - pv * stem.dirU;
            if (along > stem.length * 0.62 && along < stem.length * 0.86 && std::abs(across) <= 2.6)
                return true;
        }
        return false;
    };
    if (head(u, v))
        return onOutline(head, u, v) ? qRgb(70, 40, 20) : qRgb(136, 84, 40);
    for (const Leaf& blade : Blades) {
        double across = 0;
        if (blade.contains(u + 0.5, v + 0.5, &across))
            return leafColour(across, blade.width, 331, u, v);
    }
    return DemoColor::SeeThrough;
}

// A fir of three tiers on a short trunk.
QRgb DemoSpriteArt::fir(int u, int v)
{
    struct Tier
    {
        double apex;
        double base;
        double halfWidth;
    };
    static constexpr std::array<Tier, 3> Tiers{{{3, 44, 20}, {22, 74, 30}, {44, 104, 40}}};
    const double dx = u + 0.5 - FirCell.width() / 2.0;
    const double y = v + 0.5;
    for (auto tier = Tiers.begin(); tier != Tiers.end(); ++tier) {
        const double ragged = std::abs(u % 8 - 4);
        if (y < tier->apex || y > tier->base - ragged)
            continue;
        const double reach = tier->halfWidth * (y - tier->apex) / (tier->base - tier->apex);
        if (std::abs(dx) > reach)
            continue;
        const double depth = (y - tier->apex) / (tier->base - tier->apex);
        const double light = 1.15 - 0.45 * depth - 0.25 * dx / qMax(reach, 1.0);
        return DemoColor::scaled(qRgb(44, 112, 58), light * (0.85 + 0.3 * DemoNoise::unit(u, v, 341)));
    }
    if (std::abs(dx) <= 4.5 && y >= 98 && y <= 117)
        return DemoColor::scaled(qRgb(112, 70, 38), cylinderShade(dx / 4.5));
    return DemoColor::SeeThrough;
}

// A four-pointed glint that grows, turns by 45 degrees and fades again.
QRgb DemoSpriteArt::sparkle(int frame, int u, int v)
{
    static constexpr std::array<double, SparkleFrames> Reach{7.0, 12.0, 15.0, 10.0};
    constexpr double Diagonal = 0.70710678;
    const double x = u + 0.5 - SparkleCell.width() / 2.0;
    const double y = v + 0.5 - SparkleCell.height() / 2.0;
    const bool turned = frame % 2 == 1;
    const double a = turned ? (x + y) * Diagonal : x;
    const double b = turned ? (x - y) * Diagonal : y;
    const double reach = Reach[size_t(frame)];
    const double arm = qMin(std::abs(b), std::abs(a));
    const double taper = qMax(0.0, 1.0 - std::max(std::abs(a), std::abs(b)) / reach);
    const double distance = std::sqrt(a * a + b * b);
    if (taper <= 0.0 || (arm > 3.2 * taper * taper && distance > reach / 6.0))
        return DemoColor::SeeThrough;
    return DemoColor::ramp({qRgb(90, 170, 250), qRgb(200, 236, 255), qRgb(255, 255, 255)},
                           1.2 * (1.0 - distance / reach));
}
