#include "common/ImageMessageCatcher.h"

#include <QFile>
#include <QMutex>
#include <QMutexLocker>

#include <cstdio>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

// A message is said once however many rows repeat it, and a few are enough
// to tell why.
constexpr qsizetype KeptMessages = 3;

struct Caught
{
    QMutex mutex;
    QStringList messages;
    QtMessageHandler previous = nullptr;
};

Caught& caught()
{
    static Caught state;
    return state;
}

} // namespace

ImageMessageCatcher::ImageMessageCatcher()
{
    Caught& state = caught();
    QMutexLocker lock(&state.mutex);
    state.messages.clear();
    state.previous = qInstallMessageHandler(&ImageMessageCatcher::handle);
    captureStandardError();
}

ImageMessageCatcher::~ImageMessageCatcher()
{
    releaseStandardError();
    Caught& state = caught();
    QMutexLocker lock(&state.mutex);
    qInstallMessageHandler(state.previous);
    state.previous = nullptr;
}

void ImageMessageCatcher::captureStandardError()
{
#ifdef Q_OS_UNIX
    std::fflush(stderr);
    FILE* file = std::tmpfile();
    if (!file)
        return;
    m_capture = ::dup(::fileno(file));
    std::fclose(file);
    m_savedStandardError = ::dup(STDERR_FILENO);
    if (m_capture < 0 || m_savedStandardError < 0 || ::dup2(m_capture, STDERR_FILENO) < 0) {
        releaseStandardError();
        return;
    }
#endif
}

// Standard error back where it was, with what else was said meanwhile.
void ImageMessageCatcher::releaseStandardError()
{
#ifdef Q_OS_UNIX
    std::fflush(stderr);
    const QStringList lines = m_savedStandardError >= 0 ? capturedLines() : QStringList();
    if (m_savedStandardError >= 0) {
        ::dup2(m_savedStandardError, STDERR_FILENO);
        ::close(m_savedStandardError);
    }
    if (m_capture >= 0)
        ::close(m_capture);
    m_savedStandardError = -1;
    m_capture = -1;
    for (const QString& line : lines) {
        if (!isLibraryLine(line))
            std::fprintf(stderr, "%s\n", QFile::encodeName(line).constData());
    }
#endif
}

QStringList ImageMessageCatcher::capturedLines() const
{
    QStringList lines;
#ifdef Q_OS_UNIX
    if (m_capture < 0)
        return lines;
    std::fflush(stderr);
    struct stat status {};
    if (::fstat(m_capture, &status) != 0 || status.st_size <= 0)
        return lines;
    // A few lines say why; a library that says more is cut off here.
    constexpr qint64 Kept = 4096;
    QByteArray said(qMin<qint64>(status.st_size, Kept), '\0');
    const ssize_t got = ::pread(m_capture, said.data(), size_t(said.size()), 0);
    said.truncate(qMax<ssize_t>(got, 0));
    for (const QByteArray& line : said.split('\n')) {
        if (!line.trimmed().isEmpty())
            lines.append(QString::fromLocal8Bit(line.trimmed()));
    }
#endif
    return lines;
}

bool ImageMessageCatcher::isLibraryLine(const QString& line)
{
    return line.startsWith(QLatin1String("libpng"));
}

QStringList ImageMessageCatcher::messages() const
{
    QStringList said;
    for (const QString& line : capturedLines()) {
        if (isLibraryLine(line) && !said.contains(line))
            said.append(line);
    }
    Caught& state = caught();
    QMutexLocker lock(&state.mutex);
    for (const QString& message : state.messages) {
        if (!said.contains(message))
            said.append(message);
    }
    return said.mid(0, KeptMessages);
}

QString ImageMessageCatcher::withMessages(const QString& why) const
{
    const QStringList said = messages();
    if (said.isEmpty())
        return why;
    return QStringLiteral("%1 (%2)").arg(why, said.join(QStringLiteral("; ")));
}

bool ImageMessageCatcher::isFromImageReading(const QMessageLogContext& context, const QString& message)
{
    const QLatin1String category(context.category ? context.category : "");
    return category.startsWith(QLatin1String("qt.gui.imageio")) || isLibraryLine(message)
           || message.startsWith(QLatin1String("QImage"));
}

void ImageMessageCatcher::handle(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    Caught& state = caught();
    if (isFromImageReading(context, message)) {
        QMutexLocker lock(&state.mutex);
        if (state.messages.size() < KeptMessages && !state.messages.contains(message.trimmed()))
            state.messages.append(message.trimmed());
        return;
    }
    if (state.previous)
        state.previous(type, context, message);
    else
        qt_message_output(type, context, message);
}
