#pragma once

#include "BenchFigure.h"

#include <memory>
#include <vector>

// Every figure brindle-bench knows, in the order it runs them. A new figure
// is one class in its own file and one line in BenchFigures.cpp.
std::vector<std::unique_ptr<BenchFigure>> allBenchFigures();
