#include "BenchBitmap.h"

#include <QImage>
#include <QTemporaryDir>

#include <cstdio>

QString BenchBitmap::write(const QTemporaryDir& dir, int tiles, const char* figure)
{
    QImage image(256, tiles * 256, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < 256; ++x)
            line[x] = qRgb((x * 7 + y) & 0xFF, (y * 3) & 0xFF, (x ^ y) & 0xFF);
    }
    const QString path = dir.filePath(QStringLiteral("tiles.bmp"));
    if (!image.save(path, "BMP")) {
        std::fprintf(stderr, "%s: the bitmap could not be written\n", figure);
        return {};
    }
    return path;
}
