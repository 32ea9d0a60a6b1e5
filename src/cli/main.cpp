#include "cli/CommandLine.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include <memory>

namespace {

// The platform's and the drivers' chatter (no runtime folder, a missing
// extension) is not the tool's to say: errors stay one line of its own.
void quietUnlessSerious(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        qt_message_output(type, context, message);
}

// Only render draws, and drawing needs a QGuiApplication. Its platform is
// the offscreen one unless the user chose another: it makes an OpenGL
// context wherever a display is reachable and never aborts where none is.
std::unique_ptr<QCoreApplication> applicationFor(int& argc, char* argv[])
{
    if (argc > 1 && qstrcmp(argv[1], "render") == 0) {
        if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        qInstallMessageHandler(quietUnlessSerious);
        return std::make_unique<QGuiApplication>(argc, argv);
    }
    return std::make_unique<QCoreApplication>(argc, argv);
}

} // namespace

int main(int argc, char* argv[])
{
    const std::unique_ptr<QCoreApplication> app = applicationFor(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("brindle-cli"));
    QCoreApplication::setApplicationVersion(QStringLiteral(BRINDLE_VERSION));
    return CommandLine().run(QCoreApplication::arguments());
}
