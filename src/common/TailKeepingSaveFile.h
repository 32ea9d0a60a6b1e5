#pragma once

#include <QSaveFile>
#include <QString>

// Replaces a file the way a positional rewrite from offset 0 would leave it,
// but crash-safe: the new bytes go to a temporary file beside the old one,
// the old file's bytes beyond the new end are carried over after them, and
// only a complete file is renamed over the old. If anything fails the old
// file is untouched.
class TailKeepingSaveFile
{
public:
    explicit TailKeepingSaveFile(const QString& path);

    bool open();
    bool write(const char* data, qint64 length);
    bool write(const QByteArray& data) { return write(data.constData(), data.size()); }
    qint64 written() const { return m_written; }

    bool commit();

    QString errorString() const { return m_error; }

private:
    bool carryOldTail();
    bool failWith(const QString& error);

    QString m_path;
    QSaveFile m_file;
    qint64 m_written = 0;
    QString m_error;
};
