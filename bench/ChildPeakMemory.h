#pragma once

#include <QStringList>

#include <optional>

// Runs a program to its end, its standard output discarded, and reads the
// most memory it held resident at once, as the kernel counted it for that
// process: at least what this process holds when it starts the program.
class ChildPeakMemory
{
public:
    // Bytes; nothing when the program could not be run, did not exit 0, or
    // the system does not count a child's peak.
    static std::optional<qint64> run(const QString& program, const QStringList& arguments);
};
