#include "ui/bitmap/BitmapCache.h"

#include "common/FileError.h"
#include "common/FileKind.h"
#include "common/ImageMessageCatcher.h"
#include "level/ReadOnlyFile.h"
#include "level/TileBitmapReader.h"
#include "level/TilePixelEncoder.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>

BitmapCache::Entry& BitmapCache::Last()
{
    static Entry entry;
    return entry;
}

QImage BitmapCache::Load(const QString& fileName, QString* error, QString* cut)
{
    const QFileInfo info(fileName);
    Entry& last = Last();
    if (last.image.isNull() || last.fileName != info.absoluteFilePath() || last.modified != info.lastModified()
        || last.size != info.size()) {
        QString cause;
        QString cutCause;
        QImage image = Decode(fileName, cause, cutCause);
        if (image.isNull()) {
            if (error)
                *error = FileError::reading(fileName, cause).text();
            return {};
        }
        last = Entry{info.absoluteFilePath(), info.lastModified(), info.size(), image, cutCause};
    }
    if (cut)
        *cut = last.cut;
    return last.image;
}

QImage BitmapCache::Decode(const QString& fileName, QString& cause, QString& cut)
{
    QImage image;
    QFile file(fileName);
    if (!QFileInfo::exists(fileName)) {
        cause = QStringLiteral("the file does not exist");
        return {};
    }
    // Refused before the reader opens it, which would block on a FIFO.
    if (const QString refusal = FileKind::refusal(fileName); !refusal.isEmpty()) {
        cause = refusal;
        return {};
    }
    if (FileError openError; !ReadOnlyFile::open(file, openError)) {
        cause = openError.why();
        return {};
    }
    if (const QString refusal = TileBitmapReader::decodeRefusal(file); !refusal.isEmpty()) {
        cause = refusal;
        return {};
    }
    cut = TileBitmapReader::cutCause(file);
    const ImageMessageCatcher said;
    QImageReader reader(&file);
    reader.setAutoTransform(false);
    if (!reader.read(&image)) {
        // A file cut short is named as cut, whatever the decoder made of it.
        cause = said.withMessages(cut.isEmpty() ? QStringLiteral("cannot be decoded: %1").arg(reader.errorString())
                                                : cut);
        return {};
    }
    showSeeThroughAsMagenta(image);
    // Opaque 32-bit pixels paint fastest.
    image.convertTo(QImage::Format_RGB32);
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
