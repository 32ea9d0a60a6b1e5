// Writes the seed corpus of fuzz_tile_bitmap into the folder given: small
// BMPs and PNGs of one, two and three tiles (monochrome, palette, grey,
// colour, alpha), some painted over the level's tiles, and hostile ones:
// a height its bytes cannot hold, a wrong width, cut copies, no image.

#include "CorpusWriter.h"
#include "common/ImageFile.h"

#include <QBuffer>
#include <QImage>
#include <QtEndian>

namespace {

constexpr int Side = 256;

QImage gradient(int tiles, QImage::Format format)
{
    QImage image(Side, tiles * Side, QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < Side; ++x)
            image.setPixel(x, y, qRgba(x, y & 0xFF, (x ^ y) & 0xFF, (x + y) & 0xFF));
    return image.convertToFormat(format);
}

QImage mono(int tiles)
{
    QImage image(Side, tiles * Side, QImage::Format_Mono);
    image.fill(1);
    for (int y = 0; y < image.height(); y += 3)
        image.setPixel(y % Side, y, 0);
    return image;
}

} // namespace

int main(int argc, char** argv)
{
    const QByteArray monoBmp = ImageFile::encode(mono(2), "BMP");
    QByteArray tallBmp = monoBmp;
    qToLittleEndian<qint32>(Side * 4096, tallBmp.data() + 22);
    QByteArray topDownBmp = ImageFile::encode(mono(1), "BMP");
    qToLittleEndian<qint32>(-Side, topDownBmp.data() + 22);
    const QByteArray alphaPng = ImageFile::encode(gradient(2, QImage::Format_ARGB32), "PNG");
    QByteArray tallPng = alphaPng;
    qToBigEndian<quint32>(Side * 65536, tallPng.data() + 20);
    return CorpusWriter::run(argc, argv,
                             {{"bmp_mono_2", monoBmp},
                              {"bmp_mono_top_down", topDownBmp},
                              {"bmp_mono_3", ImageFile::encode(mono(3), "BMP")},
                              {"bmp_tall_claim", tallBmp},
                              {"bmp_narrow", ImageFile::encode(QImage(128, Side, QImage::Format_Mono), "BMP")},
                              {"bmp_cut", monoBmp.left(monoBmp.size() / 3)},
                              {"png_alpha_2", alphaPng},
                              {"png_rgb_3", ImageFile::encode(gradient(3, QImage::Format_RGB32), "PNG")},
                              {"png_grey_2", ImageFile::encode(gradient(2, QImage::Format_Grayscale8), "PNG")},
                              {"png_palette_2", ImageFile::encode(gradient(2, QImage::Format_Indexed8), "PNG")},
                              {"png_one_tile", ImageFile::encode(gradient(1, QImage::Format_RGB32), "PNG")},
                              {"png_tall_claim", tallPng},
                              {"png_cut", alphaPng.left(alphaPng.size() / 2)},
                              {"not_an_image", QByteArray("GIF89a, or anything else")}});
}
