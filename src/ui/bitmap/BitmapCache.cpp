#include "ui/bitmap/BitmapCache.h"

#include "common/FileKind.h"
#include "level/TilePixelEncoder.h"

#include <QDir>
#include <QFileInfo>
#include <QImageReader>

BitmapCache::Entry& BitmapCache::Last()
{
    static Entry entry;
    return entry;
}

QImage BitmapCache::Load(const QString& fileName, QString* error)
{
    const QFileInfo info(fileName);
    Entry& last = Last();
    if (!last.image.isNull() && last.fileName == info.absoluteFilePath() && last.modified == info.lastModified()
        && last.size == info.size())
        return last.image;

    QString cause;
    QImage image;
    if (!info.exists()) {
        cause = QStringLiteral("the file does not exist");
    } else if (const QString refusal = FileKind::refusal(fileName); !refusal.isEmpty()) {
        // Refused before the reader opens it, which would block on a FIFO.
        cause = refusal;
    } else {
        QImageReader reader(fileName);
        reader.setAutoTransform(false);
        if (!reader.read(&image)) {
            cause = reader.error() == QImageReader::UnsupportedFormatError
                        ? QStringLiteral("it is not a bitmap this program can read")
                        : reader.errorString();
        }
    }
    if (image.isNull()) {
        if (error)
            *error = QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(fileName), cause);
        return {};
    }
    showSeeThroughAsMagenta(image);
    // Opaque 32-bit pixels paint fastest.
    image = image.convertToFormat(QImage::Format_RGB32);
    last = Entry{info.absoluteFilePath(), info.lastModified(), info.size(), image};
    return image;
}

// A PNG's see-through pixels are shown as a BMP of tiles shows them, in
// magenta, by the rule that insertion reads them by.
void BitmapCache::showSeeThroughAsMagenta(QImage& image)
{
    if (!image.hasAlphaChannel())
        return;
    image.convertTo(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        QRgb* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            row[x] = TilePixelEncoder::shownColour(row[x], true);
    }
}

void BitmapCache::Clear()
{
    Last() = Entry{};
}
