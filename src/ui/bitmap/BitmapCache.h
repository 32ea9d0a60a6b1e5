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
    // names the file and the cause. A bitmap is decoded only within the
    // bounds TileBitmapReader::decodeRefusal sets. A file that holds fewer
    // rows than it claims is shown as the reader pads it, and cut says why
    // it is cut; it is emptied for a whole file.
    static QImage Load(const QString& fileName, QString* error = nullptr, QString* cut = nullptr);
    static void Clear();

private:
    struct Entry
    {
        QString fileName;
        QDateTime modified;
        qint64 size = -1;
        QImage image;
        QString cut;
    };
    static QImage Decode(const QString& fileName, QString& cause, QString& cut);
    static Entry& Last();
    static void showSeeThroughAsMagenta(QImage& image);
};
