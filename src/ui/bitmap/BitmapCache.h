#pragma once

#include <QDateTime>
#include <QImage>
#include <QString>

// Decoded texture bitmaps, shared by every view that shows one: a file is
// decoded once and handed out again while it is unchanged on disk, so a
// redraw that reloads the bitmap costs no decoding, and the bitmap view and
// both previews hold one copy of the pixels between them.
class BitmapCache
{
public:
    // The decoded bitmap, or a null image with error set to one line that
    // names the file and the cause.
    static QImage Load(const QString& fileName, QString* error = nullptr);
    static void Clear();

private:
    struct Entry
    {
        QString fileName;
        QDateTime modified;
        qint64 size = -1;
        QImage image;
    };
    static Entry& Last();
    static void showSeeThroughAsMagenta(QImage& image);
};
