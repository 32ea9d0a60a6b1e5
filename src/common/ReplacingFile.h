#pragma once

#include <QFile>
#include <QString>

// Writes a file that a complete one replaces in one step: the bytes go to a
// new file beside the target, renamed over it on commit, so a crash or a
// failed write never leaves half a file where the target was. Unlike
// QSaveFile it does not wait for the disk: for files the program can write
// again from their source (a level's tiles), the wait would cost more than
// the writing.
class ReplacingFile
{
public:
    explicit ReplacingFile(const QString& path);
    ~ReplacingFile();
    ReplacingFile(const ReplacingFile&) = delete;
    ReplacingFile& operator=(const ReplacingFile&) = delete;

    bool open();
    // Sets aside room for size bytes where the file system can, after
    // open(): a full disk then fails here, before any writing, and the
    // writes that follow go faster. The file still grows only as written.
    // Where room cannot be set aside in advance, does nothing.
    bool reserve(qint64 size);
    bool write(const char* data, qint64 length);
    bool write(const QByteArray& data) { return write(data.constData(), data.size()); }
    bool commit();

    QString errorString() const { return m_error; }

private:
    bool failWith(const QString& error);
    bool notOpen();
    void discard();

    QString m_path;
    QFile m_temporary;
    QString m_error;
};
