#include "common/ImageFile.h"

#include <QBuffer>
#include <QImageWriter>

QByteArray ImageFile::encode(const QImage& image, const char* format, QString* why)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    if (writer.write(image))
        return bytes;
    if (why)
        *why = writer.errorString();
    return {};
}

bool ImageFile::write(const QImage& image, const QString& path, const char* format, ReplacingFile::Options options,
                      FileError& error)
{
    QString why;
    const QByteArray bytes = encode(image, format, &why);
    if (bytes.isEmpty()) {
        error = FileError::writing(path, why);
        return false;
    }
    ReplacingFile file(path, options);
    if (file.open() && file.write(bytes) && file.commit())
        return true;
    error = file.error();
    return false;
}
