#include "BenchFigures.h"

#include "InsertRatioFigure.h"
#include "ListFigure.h"
#include "OpenListRatioFigure.h"
#include "WalkRatioFigure.h"

std::vector<std::unique_ptr<BenchFigure>> allBenchFigures()
{
    std::vector<std::unique_ptr<BenchFigure>> figures;
    figures.push_back(std::make_unique<WalkRatioFigure>());
    figures.push_back(std::make_unique<ListFigure>(ListFigure::Job::Open));
    figures.push_back(std::make_unique<ListFigure>(ListFigure::Job::Save));
    figures.push_back(std::make_unique<OpenListRatioFigure>());
    figures.push_back(std::make_unique<InsertRatioFigure>());
    return figures;
}
