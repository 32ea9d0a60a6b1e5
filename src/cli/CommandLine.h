#pragma once

#include "common/FileError.h"

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

    // One line on standard error: the error's own text.
    int fail(Exit status, const FileError& error);
    // One line on standard error about something done that a user should
    // know; the command goes on.
    void note(const QString& text);
    int usageError(const QString& message);

    static QString usage();

private:
    QTextStream m_out;
    QTextStream m_err;
};
