#include "ui/bitmap/BitmapCache.h"

#include "common/FileKind.h"

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
    // Opaque 32-bit pixels paint fastest; the bitmaps carry no alpha.
    image = image.convertToFormat(QImage::Format_RGB32);
    last = Entry{info.absoluteFilePath(), info.lastModified(), info.size(), image};
    return image;
}

void BitmapCache::Clear()
{
    Last() = Entry{};
}
