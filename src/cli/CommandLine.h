#pragma once

#include <QStringList>
#include <QTextStream>

// brindle-cli: the core's jobs for scripts and for people without a display.
// Each command reads its arguments, does its job and returns the exit status.
class CommandLine
{
public:
    enum Exit {
        Done = 0,
        WrongUsage = 1,
        InputUnreadable = 2,
        VersionMismatch = 3,
    };

    CommandLine();

    int run(const QStringList& arguments);

    QTextStream& out() { return m_out; }
    QTextStream& err() { return m_err; }

    // One line on standard error naming the file and the cause.
    int fail(Exit status, const QString& file, const QString& cause);
    int usageError(const QString& message);

    static QString usage();

private:
    QTextStream m_out;
    QTextStream m_err;
};
