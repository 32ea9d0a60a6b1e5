#pragma once

#include "BenchFigure.h"

// zoom_memory_mb: how much resident memory grows when the bitmap view goes
// from zoom 1 to zoom 16 on a 32-tile bitmap, painting at each step. The
// zoomed picture is never built, so it should stay near nothing.
class ZoomMemoryFigure : public BenchFigure
{
public:
    QString name() const override { return QStringLiteral("zoom_memory_mb"); }
    QString unit() const override { return QStringLiteral("MB"); }
    std::optional<double> measure() override;
};
