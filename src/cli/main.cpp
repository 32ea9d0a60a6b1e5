#include "cli/CommandLine.h"

#include <QCoreApplication>

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("brindle-cli"));
    QCoreApplication::setApplicationVersion(QStringLiteral(BRINDLE_VERSION));
    return CommandLine().run(QCoreApplication::arguments());
}
