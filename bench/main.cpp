// brindle-bench: measures Brindle's performance figures and prints each as
// one JSON object per line, {"name": ..., "value": ..., "unit": ...}.
//
//   brindle-bench            every figure
//   brindle-bench NAME...    only the named figures
//   brindle-bench --list     the names

#include "BenchFigures.h"

#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>

#include <cmath>
#include <cstdio>

namespace {

QByteArray jsonString(const QString& text)
{
    const QByteArray array = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return array.mid(1, array.size() - 2); // the string without the brackets around it
}

// Keys in the order readers of the figures expect: name, value, unit.
void printFigure(const BenchFigure& figure, double value)
{
    std::printf("{\"name\": %s, \"value\": %s, \"unit\": %s}\n", jsonString(figure.name()).constData(),
                QByteArray::number(value, 'g', 6).constData(), jsonString(figure.unit()).constData());
    std::fflush(stdout);
}

// The figure measured by this program started again with its name alone;
// what that run prints is passed on.
std::optional<double> measureInOwnProcess(const BenchFigure& figure)
{
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(QCoreApplication::applicationFilePath(), {figure.name()});
    if (!child.waitForFinished(-1) || child.exitStatus() != QProcess::NormalExit || child.exitCode() != 0)
        return std::nullopt;
    const QJsonObject printed = QJsonDocument::fromJson(child.readAllStandardOutput()).object();
    const QJsonValue value = printed.value(QStringLiteral("value"));
    if (!value.isDouble())
        return std::nullopt;
    return value.toDouble();
}

} // namespace

int main(int argc, char** argv)
{
    // The editor's figures paint real widgets; no display is needed for that.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    // The windows it opens remember lists and folders: in Qt's test
    // folders, never in the user's settings.
    QStandardPaths::setTestModeEnabled(true);
    const QStringList wanted = app.arguments().mid(1);
    QStringList unknown = wanted;
    const auto figures = allBenchFigures();

    if (wanted == QStringList{QStringLiteral("--list")}) {
        for (const auto& figure : figures)
            std::printf("%s\n", qPrintable(figure->name()));
        return 0;
    }

    int failures = 0;
    for (const auto& figure : figures) {
        if (!wanted.isEmpty() && !wanted.contains(figure->name()))
            continue;
        unknown.removeAll(figure->name());
        const bool alone = wanted.size() == 1;
        const std::optional<double> value =
            figure->needsOwnProcess() && !alone ? measureInOwnProcess(*figure) : figure->measure();
        if (value && std::isfinite(*value))
            printFigure(*figure, *value);
        else
            ++failures;
    }
    for (const QString& name : unknown) {
        std::fprintf(stderr, "brindle-bench: no figure named %s\n", qPrintable(name));
        ++failures;
    }
    return failures == 0 ? 0 : 1;
}
