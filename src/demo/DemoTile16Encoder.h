#pragma once

#include <QByteArray>
#include <QRgb>

class QImage;

// A bitmap's pixels as a level's 16-bit texture tiles: one little-endian word
// per pixel, row after row, so the tiles stacked in the bitmap follow one
// another. Bit 15 is set on every pixel except the see-through colour, then
// come five bits each of red, green and blue.
class DemoTile16Encoder
{
public:
    static quint16 pixel(QRgb colour, QRgb seeThrough);
    static QByteArray encode(const QImage& bitmap, QRgb seeThrough);
};
