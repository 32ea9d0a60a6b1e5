#include "support/CliRun.h"

#include <QJsonDocument>
#include <QProcess>

QJsonObject CliRun::json() const
{
    return QJsonDocument::fromJson(out).object();
}

CliRun CliRun::of(const QStringList& arguments, const QProcessEnvironment& environment)
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(qEnvironmentVariable("BRINDLE_CLI"), arguments);
    CliRun run;
    if (!process.waitForFinished(60000))
        return run;
    run.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    run.out = process.readAllStandardOutput();
    run.err = process.readAllStandardError();
    return run;
}
