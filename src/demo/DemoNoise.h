#pragma once

#include <QtGlobal>

// Deterministic noise and waves for the demo's procedural drawing. Only
// integer mixing and the four basic floating-point operations are used, so
// the demo bitmap comes out the same on every run and every machine.
class DemoNoise
{
public:
    static quint32 hash(int x, int y, quint32 seed);
    // hash scaled to [0, 1).
    static double unit(int x, int y, quint32 seed);

    // Value noise in [0, 1] with a lattice point every cell pixels, repeating
    // every period pixels (a multiple of cell), so a square of period pixels
    // drawn from it repeats without a seam.
    static double smooth(double x, double y, int cell, int period, quint32 seed);

    // Octaves of smooth noise from cell pixels down to 2, each half as strong
    // as the one before, stretched so that most values spread over [0, 1].
    static double fractal(double x, double y, int cell, int period, quint32 seed);

    // A sine-like wave in [-1, 1] with one period per unit of turns, built from
    // two parabolas.
    static double wave(double turns);
};
