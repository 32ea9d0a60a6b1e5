#pragma once

#include <QString>

#include <optional>

// One figure brindle-bench reports: a name, a unit and a way to measure it.
// A figure that cannot be measured says why on stderr and returns nothing.
class BenchFigure
{
public:
    virtual ~BenchFigure() = default;

    virtual QString name() const = 0;
    virtual QString unit() const = 0;
    virtual std::optional<double> measure() = 0;
    // A figure of resident memory growth reads nothing in a process whose
    // earlier figures left freed memory behind for it to reuse: it is
    // measured in a process of its own when others run beside it.
    virtual bool needsOwnProcess() const { return false; }
};
