#pragma once

#include "BenchFigure.h"

// open_list_memory_mb: how much resident memory grows when a shown main
// window opens the 20,000-texture list (its bitmap a single tile, so the
// figure is the list's): rows, index lists and draw checklists together.
class OpenListMemoryFigure : public BenchFigure
{
public:
    QString name() const override { return QStringLiteral("open_list_memory_mb"); }
    QString unit() const override { return QStringLiteral("MB"); }
    std::optional<double> measure() override;
    bool needsOwnProcess() const override { return true; }
};
