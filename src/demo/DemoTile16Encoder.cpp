#include "demo/DemoTile16Encoder.h"

#include <QImage>
#include <QtEndian>

quint16 DemoTile16Encoder::pixel(QRgb colour, QRgb seeThrough)
{
    if ((colour & RGB_MASK) == (seeThrough & RGB_MASK))
        return 0;
    return quint16(0x8000 | (qRed(colour) >> 3) << 10 | (qGreen(colour) >> 3) << 5 | (qBlue(colour) >> 3));
}

QByteArray DemoTile16Encoder::encode(const QImage& bitmap, QRgb seeThrough)
{
    const QImage rgb = bitmap.convertToFormat(QImage::Format_RGB32);
    QByteArray words(qsizetype(rgb.width()) * rgb.height() * 2, '\0');
    char* out = words.data();
    for (int y = 0; y < rgb.height(); ++y) {
        const QRgb* line = reinterpret_cast<const QRgb*>(rgb.constScanLine(y));
        for (int x = 0; x < rgb.width(); ++x, out += 2)
            qToLittleEndian(pixel(line[x], seeThrough), out);
    }
    return words;
}
