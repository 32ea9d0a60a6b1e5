#pragma once

#include <QRgb>

#include <initializer_list>

// Colour arithmetic for the demo's procedural drawing. Every channel is
// clamped and rounded the same way, so a colour computed twice is the same
// colour.
class DemoColor
{
public:
    // The colour the demo bitmap leaves where nothing is drawn; a level shows
    // these pixels as see-through.
    static constexpr QRgb SeeThrough = 0xFFFF00FF;

    static QRgb rgb(double red, double green, double blue);
    static QRgb scaled(QRgb colour, double factor);
    // a at t = 0, b at t = 1.
    static QRgb mix(QRgb a, QRgb b, double t);
    // Evenly spaced stops: the first at t = 0, the last at t = 1.
    static QRgb ramp(std::initializer_list<QRgb> stops, double t);
};
