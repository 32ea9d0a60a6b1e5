#pragma once

#include "BenchFigure.h"

// delete_renumber_ms: texture 0 of a list of 32,768 object textures and 2,000
// animation ranges deleted through the list document, every range entry
// lowered by one in the same step, after the faces naming it and the
// textures after it were counted from the level's usage, already read once
// (as the question before a delete asks); in milliseconds.
class DeleteRenumberFigure : public BenchFigure
{
public:
    QString name() const override { return QStringLiteral("delete_renumber_ms"); }
    QString unit() const override { return QStringLiteral("ms"); }
    std::optional<double> measure() override;

private:
    static constexpr int Repetitions = 7;
};
