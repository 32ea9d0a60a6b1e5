#pragma once

#include <QString>
#include <QStringList>
#include <QtGlobal>

// While it lives, what Qt's image readers and the image libraries under them
// say ("libpng error: IDAT: Missing PLTE before IDAT", an allocation limit)
// is kept here instead of going to standard error, so that a refusal reads
// as one line that carries their words. Qt's messages come through its
// message handler; libpng writes its errors straight to standard error, so
// on Unix that is led into a file of its own meanwhile. Everything else said
// meanwhile passes on as it would have. One catcher at a time, on the
// thread that reads the image.
class ImageMessageCatcher
{
public:
    ImageMessageCatcher();
    ~ImageMessageCatcher();
    ImageMessageCatcher(const ImageMessageCatcher&) = delete;
    ImageMessageCatcher& operator=(const ImageMessageCatcher&) = delete;

    QStringList messages() const;

    // why, with what the libraries said after it: "cannot be decoded (libpng
    // error: IDAT: Missing PLTE before IDAT)".
    QString withMessages(const QString& why) const;

private:
    void captureStandardError();
    void releaseStandardError();
    QStringList capturedLines() const;
    static bool isLibraryLine(const QString& line);
    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& message);
    static bool isFromImageReading(const QMessageLogContext& context, const QString& message);

    int m_savedStandardError = -1;
    int m_capture = -1;
};
