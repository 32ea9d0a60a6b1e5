#include "demo/DemoColor.h"

#include <QtGlobal>

#include <cmath>

namespace {

int channel(double value)
{
    return int(std::floor(qBound(0.0, value, 255.0) + 0.5));
}

} // namespace

QRgb DemoColor::rgb(double red, double green, double blue)
{
    return qRgb(channel(red), channel(green), channel(blue));
}

QRgb DemoColor::scaled(QRgb colour, double factor)
{
    return rgb(qRed(colour) * factor, qGreen(colour) * factor, qBlue(colour) * factor);
}

QRgb DemoColor::mix(QRgb a, QRgb b, double t)
{
    const double s = qBound(0.0, t, 1.0);
    return rgb(qRed(a) + (qRed(b) - qRed(a)) * s, qGreen(a) + (qGreen(b) - qGreen(a)) * s,
               qBlue(a) + (qBlue(b) - qBlue(a)) * s);
}

QRgb DemoColor::ramp(std::initializer_list<QRgb> stops, double t)
{
    if (stops.size() == 1)
        return *stops.begin();
    const double position = qBound(0.0, t, 1.0) * double(stops.size() - 1);
    const int below = qMin(int(position), int(stops.size()) - 2);
    const QRgb* first = stops.begin() + below;
    return mix(first[0], first[1], position - below);
}
