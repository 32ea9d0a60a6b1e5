#pragma once

#include "common/FileError.h"
#include "common/ReplacingFile.h"

#include <QByteArray>
#include <QImage>
#include <QString>

// An image written as a file of one format (BMP, PNG) through the one
// writer: encoded whole in memory first, since the writer takes bytes and a
// failed encoding must leave the target untouched.
class ImageFile
{
public:
    // The image in format's bytes; empty, with the cause in why, when the
    // image cannot be encoded.
    static QByteArray encode(const QImage& image, const char* format, QString* why = nullptr);

    static bool write(const QImage& image, const QString& path, const char* format,
                      ReplacingFile::Options options, FileError& error);
};
