#include "level/TileBitmapReader.h"

#include "level/ReadOnlyFile.h"
#include "level/TilePixelEncoder.h"
#include "common/ImageMessageCatcher.h"

#include <QFile>
#include <QImageReader>
#include <QtEndian>

namespace {

constexpr qint64 HeadSize = 64;
constexpr qint64 BmpInfoStart = 14;
constexpr char PngSignature[] = "\x89PNG\r\n\x1a\n";
constexpr qint64 PngSignatureSize = 8;
// Deflate packs at best 258 bytes into two bits and some change: no PNG
// holds more than this many pixel bytes for each byte of its file.
constexpr qint64 DeflateBestRatio = 1032;
// The fewest bytes an RLE row can take: its end-of-line mark.
constexpr qint64 RleRowBytes = 2;

enum BmpCompression : quint32 { Rgb = 0, Rle8 = 1, Rle4 = 2, BitFields = 3 };

template <typename T>
T at(const QByteArray& bytes, qint64 position)
{
    return qFromLittleEndian<T>(bytes.constData() + position);
}

quint32 bigEndianAt(const QByteArray& bytes, qint64 position)
{
    return qFromBigEndian<quint32>(bytes.constData() + position);
}

} // namespace

QImage TileBitmapReader::read(const QString& path, FileError* error, qint64 levelTiles)
{
    QFile file(path);
    FileError openError;
    if (!ReadOnlyFile::open(file, openError)) {
        if (error)
            *error = openError;
        return {};
    }
    QString cause;
    QImage image = read(file, &cause, levelTiles);
    if (image.isNull() && error)
        *error = FileError::reading(path, cause);
    return image;
}

QImage TileBitmapReader::read(QIODevice& device, QString* error, qint64 levelTiles)
{
    const auto fail = [&](const QString& cause) {
        if (error)
            *error = cause;
        return QImage();
    };
    const Claim claim = claimOf(device);
    if (const QString refusal = decodeRefusal(claim, device.size(), levelTiles); !refusal.isEmpty())
        return fail(refusal);
    if (const QString wrongSize = sizeError(claim); !wrongSize.isEmpty())
        return fail(wrongSize);
    if (const QString cut = cutCause(device, claim); !cut.isEmpty())
        return fail(cut);

    const ImageMessageCatcher said;
    QImageReader reader(&device);
    reader.setAutoTransform(false);
    QImage image;
    if (!reader.read(&image))
        return fail(said.withMessages(QStringLiteral("cannot be decoded: %1").arg(reader.errorString())));
    if (image.width() != claim.width || image.height() != claim.height)
        return fail(QStringLiteral("decodes to another size than its header claims"));
    showColours(image);
    return image;
}

TileBitmapReader::Claim TileBitmapReader::claimOf(QIODevice& device)
{
    const QByteArray head = device.peek(HeadSize);
    if (head.startsWith("BM"))
        return bmpClaim(head);
    if (head.startsWith(QByteArray::fromRawData(PngSignature, PngSignatureSize)))
        return pngClaim(head);
    Claim claim;
    claim.error = head.isEmpty() ? QStringLiteral("is empty, not a BMP or PNG image")
                                 : QStringLiteral("is not a BMP or PNG image");
    return claim;
}

QString TileBitmapReader::decodeRefusal(QIODevice& device, qint64 levelTiles)
{
    return decodeRefusal(claimOf(device), device.size(), levelTiles);
}

QString TileBitmapReader::decodeRefusal(const Claim& claim, qint64 fileSize, qint64 levelTiles)
{
    if (!claim.error.isEmpty())
        return claim.error;
    const qint64 tiles = (claim.height + Side - 1) / Side;
    if (tiles > AddressableTiles) {
        return QStringLiteral("is %1 pixels high: its %2 tiles are more than the %3 a level can address")
            .arg(claim.height)
            .arg(tiles)
            .arg(AddressableTiles);
    }
    constexpr qint64 PixelBytes = 4;
    const qint64 decoded = claim.width * claim.height * PixelBytes;
    const qint64 freeBytes = qMax(FreeTiles, levelTiles) * Side * Side * PixelBytes;
    if (decoded > freeBytes && decoded > fileSize * ExpansionFactor) {
        return QStringLiteral("would decode its %1 x %2 pixels to %3 MB, more than %4 times its %5 bytes")
            .arg(claim.width)
            .arg(claim.height)
            .arg(decoded >> 20)
            .arg(ExpansionFactor)
            .arg(fileSize);
    }
    return {};
}

QString TileBitmapReader::cutCause(QIODevice& device)
{
    return cutCause(device, claimOf(device));
}

QString TileBitmapReader::cutCause(QIODevice& device, const Claim& claim)
{
    if (!claim.error.isEmpty())
        return {};
    if (claim.leastBytes > device.size()) {
        return QStringLiteral("is cut short: it claims %1 pixel rows, more than its %2 bytes hold")
            .arg(claim.height)
            .arg(device.size());
    }
    // Every PNG ends with its empty IEND chunk: length 0, type, checksum.
    static const QByteArray PngEnd = QByteArray::fromHex("0000000049454e44ae426082");
    if (claim.isPng && device.size() >= PngEnd.size()) {
        const qint64 was = device.pos();
        QByteArray tail;
        if (device.seek(device.size() - PngEnd.size()))
            tail = device.read(PngEnd.size());
        device.seek(was);
        if (tail != PngEnd)
            return QStringLiteral("is cut short: it stops before the PNG's end chunk");
    }
    return {};
}

// A BMP's file header, then its info header: the old 12-byte one with 16-bit
// sizes, or one of 40 bytes or more. A negative height stores the rows top
// down.
TileBitmapReader::Claim TileBitmapReader::bmpClaim(const QByteArray& head)
{
    Claim claim;
    if (head.size() < BmpInfoStart + 16) {
        claim.error = QStringLiteral("is cut short in its header");
        return claim;
    }
    const qint64 pixelsAt = at<quint32>(head, 10);
    const quint32 infoSize = at<quint32>(head, BmpInfoStart);
    quint32 bitsPerPixel = 0;
    quint32 compression = Rgb;
    if (infoSize == 12) {
        claim.width = at<quint16>(head, 18);
        claim.height = at<quint16>(head, 20);
        bitsPerPixel = at<quint16>(head, 24);
    } else if (infoSize >= 40 && head.size() >= BmpInfoStart + 40) {
        claim.width = at<qint32>(head, 18);
        claim.height = qAbs(qint64(at<qint32>(head, 22)));
        bitsPerPixel = at<quint16>(head, 28);
        compression = at<quint32>(head, 30);
    } else {
        claim.error = QStringLiteral("has a bitmap header of %1 bytes, which this program does not read").arg(infoSize);
        return claim;
    }
    if (bitsPerPixel == 0 || bitsPerPixel > 32) {
        claim.error = QStringLiteral("claims %1 bits a pixel").arg(bitsPerPixel);
        return claim;
    }
    switch (compression) {
    case Rgb:
    case BitFields:
        claim.leastBytes = pixelsAt + (claim.width * bitsPerPixel + 31) / 32 * 4 * claim.height;
        break;
    case Rle8:
    case Rle4:
        claim.leastBytes = pixelsAt + RleRowBytes * claim.height;
        break;
    default:
        claim.error = QStringLiteral("uses a compression this program does not read");
        break;
    }
    return claim;
}

// The signature, then the IHDR chunk: its length and type, width, height,
// bit depth and colour type. Every row packs at least its filter byte and
// its pixels at the claimed depth.
TileBitmapReader::Claim TileBitmapReader::pngClaim(const QByteArray& head)
{
    Claim claim;
    claim.isPng = true;
    constexpr qint64 Ihdr = PngSignatureSize;
    if (head.size() < Ihdr + 8 + 13 || head.mid(Ihdr + 4, 4) != "IHDR") {
        claim.error = QStringLiteral("is cut short in its header");
        return claim;
    }
    claim.width = bigEndianAt(head, Ihdr + 8);
    claim.height = bigEndianAt(head, Ihdr + 12);
    const int depth = quint8(head[Ihdr + 16]);
    const int colourType = quint8(head[Ihdr + 17]);
    const int channels = colourType == 2 ? 3 : colourType == 4 ? 2 : colourType == 6 ? 4 : 1;
    if (depth == 0 || depth > 16) {
        claim.error = QStringLiteral("claims %1 bits a channel").arg(depth);
        return claim;
    }
    const qint64 rowBytes = 1 + (claim.width * channels * depth + 7) / 8;
    claim.leastBytes = rowBytes * claim.height / DeflateBestRatio;
    return claim;
}

QString TileBitmapReader::sizeError(const Claim& claim)
{
    if (claim.width != Side)
        return QStringLiteral("is %1 pixels wide; texture tiles need 256").arg(claim.width);
    if (claim.height == 0 || claim.height % Side != 0)
        return QStringLiteral("is %1 pixels high, not a whole number of 256-pixel tiles").arg(claim.height);
    return {};
}

void TileBitmapReader::showColours(QImage& image)
{
    const bool hasAlpha = image.hasAlphaChannel();
    if (!hasAlpha) {
        // Every pixel of RGB32 is already opaque, 0xFFrrggbb.
        image.convertTo(QImage::Format_RGB32);
        return;
    }
    image.convertTo(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        QRgb* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            row[x] = TilePixelEncoder::shownColour(row[x], hasAlpha);
    }
}
