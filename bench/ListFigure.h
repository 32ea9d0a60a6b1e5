#pragma once

#include "BenchFigure.h"

#include <QString>

// Opening or saving the large list of BenchList, in milliseconds: reading the
// file and filling the six list view models, or writing the models back.
class ListFigure : public BenchFigure
{
public:
    enum class Job { Open, Save };

    explicit ListFigure(Job job) : m_job(job) {}

    QString name() const override;
    QString unit() const override { return QStringLiteral("ms"); }
    std::optional<double> measure() override;

private:
    static constexpr int Repetitions = 20;
    Job m_job;
};
