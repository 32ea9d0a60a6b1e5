#include "demo/DemoNoise.h"

#include <cmath>

namespace {

int wrapped(int value, int period)
{
    return ((value % period) + period) % period;
}

double smoothStep(double t)
{
    return t * t * (3.0 - 2.0 * t);
}

} // namespace

quint32 DemoNoise::hash(int x, int y, quint32 seed)
{
    quint32 h = seed * 0x9E3779B1u;
    h ^= quint32(x) * 0x85EBCA77u;
    h = (h << 13) | (h >> 19);
    h ^= quint32(y) * 0xC2B2AE3Du;
    h ^= h >> 16;
    h *= 0x7FEB352Du;
    h ^= h >> 15;
    h *= 0x846CA68Bu;
    h ^= h >> 16;
    return h;
}

double DemoNoise::unit(int x, int y, quint32 seed)
{
    return (hash(x, y, seed) >> 8) / double(1u << 24);
}

double DemoNoise::smooth(double x, double y, int cell, int period, quint32 seed)
{
    const int points = period / cell;
    const double gx = x / cell;
    const double gy = y / cell;
    const int x0 = int(std::floor(gx));
    const int y0 = int(std::floor(gy));
    const double tx = smoothStep(gx - x0);
    const double ty = smoothStep(gy - y0);
    const auto at = [&](int dx, int dy) {
        return unit(wrapped(x0 + dx, points), wrapped(y0 + dy, points), seed);
    };
    const double top = at(0, 0) + (at(1, 0) - at(0, 0)) * tx;
    const double bottom = at(0, 1) + (at(1, 1) - at(0, 1)) * tx;
    return top + (bottom - top) * ty;
}

double DemoNoise::fractal(double x, double y, int cell, int period, quint32 seed)
{
    double sum = 0.0;
    double weight = 1.0;
    double total = 0.0;
    for (int size = cell; size >= 2; size /= 2, weight /= 2.0, ++seed) {
        sum += smooth(x, y, size, period, seed) * weight;
        total += weight;
    }
    // Summed octaves crowd around the middle; spread them out again.
    const double stretched = 0.5 + (sum / total - 0.5) * 2.2;
    return stretched < 0.0 ? 0.0 : (stretched > 1.0 ? 1.0 : stretched);
}

double DemoNoise::wave(double turns)
{
    const double f = turns - std::floor(turns);
    if (f < 0.5)
        return 16.0 * f * (0.5 - f);
    return -16.0 * (f - 0.5) * (1.0 - f);
}
