#pragma once

#include "BenchFigure.h"

// undo_all_ms: 1,000 edits of object textures of the 20,000-texture list,
// all taken back one at a time through Edit, Undo in a shown main window,
// and the repaint that follows; in milliseconds.
class UndoAllFigure : public BenchFigure
{
public:
    QString name() const override { return QStringLiteral("undo_all_ms"); }
    QString unit() const override { return QStringLiteral("ms"); }
    std::optional<double> measure() override;

private:
    static constexpr int Edits = 1000;
    static constexpr int Repetitions = 5;
};
