#include "BenchFigures.h"

#include "WalkRatioFigure.h"

std::vector<std::unique_ptr<BenchFigure>> allBenchFigures()
{
    std::vector<std::unique_ptr<BenchFigure>> figures;
    figures.push_back(std::make_unique<WalkRatioFigure>());
    return figures;
}
