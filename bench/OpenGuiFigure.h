#pragma once

#include "BenchFigure.h"

// open_gui_ms: File, Open List of the 20,000-texture list in a shown main
// window, from the menu to the filled views and index lists, its bitmap
// loaded; in milliseconds.
class OpenGuiFigure : public BenchFigure
{
public:
    QString name() const override { return QStringLiteral("open_gui_ms"); }
    QString unit() const override { return QStringLiteral("ms"); }
    std::optional<double> measure() override;

private:
    static constexpr int Repetitions = 10;
};
