#include "ui/main/frmMain.h"

#include <QApplication>
#include <QGuiApplication>
#include <QTimer>

#include <cstdio>

int main(int argc, char* argv[])
{
    // Without a display Qt would abort with a page of platform errors; one
    // line says what is wrong.
#if defined(Q_OS_LINUX)
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")
        && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        std::fprintf(stderr, "brindle: no display: set DISPLAY (or run under xvfb-run)\n");
        return 1;
    }
#endif
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Brindle"));
    QApplication::setApplicationVersion(QStringLiteral(BRINDLE_VERSION));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/brindle.svg")));

    frmMain window;
    window.show();
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() > 1) {
        const QString list = arguments.at(1);
        QTimer::singleShot(0, &window, [&window, list] { window.OpenList(list); });
    }
    return app.exec();
}
