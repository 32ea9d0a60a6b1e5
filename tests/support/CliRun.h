#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QProcessEnvironment>
#include <QStringList>

// One run of brindle-cli (the program BRINDLE_CLI names) to its end: the
// exit status (-1 when it crashed or hung) and both outputs.
struct CliRun
{
    int exitCode = -1;
    QByteArray out;
    QByteArray err;

    QJsonObject json() const;

    static CliRun of(const QStringList& arguments,
                     const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment());
};
