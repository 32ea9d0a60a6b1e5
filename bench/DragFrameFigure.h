#pragma once

#include "BenchFigure.h"

// One mouse move of a drag that draws a texture's rectangle on the bitmap
// while the object texture page is adding: from the move event to the
// repainted view, in milliseconds. The view is 800 x 600 at zoom 4 over a
// 32-tile bitmap, scrolled to the middle, with 5,000 outlines and their
// numbers drawn. The budget is half a 60 Hz frame.
class DragFrameFigure : public BenchFigure
{
public:
    QString name() const override { return QStringLiteral("drag_frame_ms"); }
    QString unit() const override { return QStringLiteral("ms"); }
    std::optional<double> measure() override;

private:
    static constexpr int Outlines = 5000;
    static constexpr int Moves = 60;
    static constexpr int Zoom = 4;
    static constexpr int Tiles = 32;
};
