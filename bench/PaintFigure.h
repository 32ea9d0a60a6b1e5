#pragma once

#include "BenchFigure.h"

// One full paint of the bitmap view (an 800 x 600 viewport over a 32-tile
// bitmap at zoom 4, scrolled to the middle) with 5,000 outlines and their
// numbers drawn: its time in milliseconds (paint_ms), or that time divided
// by the same paint with nothing drawn (paint_ratio). A paint should touch
// only what is visible, so the outlines cost little.
class PaintFigure : public BenchFigure
{
public:
    enum class Kind { Milliseconds, Ratio };

    explicit PaintFigure(Kind kind) : m_kind(kind) {}

    QString name() const override;
    QString unit() const override;
    std::optional<double> measure() override;

private:
    static constexpr int Outlines = 5000;
    static constexpr int Repetitions = 40;
    Kind m_kind;
};
