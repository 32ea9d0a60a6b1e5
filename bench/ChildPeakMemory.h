#pragma once

#include <QStringList>

#include <optional>

// Runs a program to its end and reads the most memory it held resident at
// once, as the kernel counted it for that process alone.
class ChildPeakMemory
{
public:
    // Bytes; nothing when the program could not be run, did not exit 0, or
    // the system does not count a child's peak.
    static std::optional<qint64> run(const QString& program, const QStringList& arguments);
};
