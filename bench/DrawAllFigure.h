#pragma once

#include "BenchFigure.h"

// Draw with every checklist row ticked, on a list of 5,000 object textures
// and 1,000 sprites at zoom 4: both Draw buttons pressed (each builds its
// draw list and redraws every outline) and the one paint of an 800 x 600
// viewport that follows. Its time in milliseconds (draw_all_ms), or that
// time divided by the paint alone in the same run (draw_all_ratio); and the
// time with the most a level can address, 32,768 object textures and 4,096
// sprites (draw_all_max_ms).
class DrawAllFigure : public BenchFigure
{
public:
    enum class Kind { Milliseconds, Ratio, MaxMilliseconds };

    explicit DrawAllFigure(Kind kind) : m_kind(kind) {}

    QString name() const override;
    QString unit() const override;
    std::optional<double> measure() override;

private:
    int ObjectTextures() const { return m_kind == Kind::MaxMilliseconds ? 32768 : 5000; }
    int Sprites() const { return m_kind == Kind::MaxMilliseconds ? 4096 : 1000; }
    static constexpr int Tiles = 32;
    static constexpr int Zoom = 4;
    static constexpr int Repetitions = 15;
    Kind m_kind;
};
