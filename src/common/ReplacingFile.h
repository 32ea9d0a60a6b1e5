#pragma once

#include "common/FileError.h"

#include <QFile>
#include <QFlags>
#include <QString>

#include <memory>

class TemporaryNameGuard;

// The one way Brindle writes a file. The bytes go to a temporary file in the
// target's folder that takes the target's place in one step on commit, so a
// crash, a kill or a failed write never leaves half a file where the target
// was, and every other way out (a failure, a destruction without commit, an
// interrupt) leaves no temporary file behind. Where the system offers it
// (Linux), the temporary file has no name until it is complete.
//
// The target is the file a symbolic link leads to; a replaced file keeps its
// permissions. Temporary files that earlier versions left beside the target
// when they were interrupted go once the target is written. Refused, before
// anything is written: a write-protected file, and anything that is not a
// regular file (a folder, a device, a FIFO, a socket), which a replacement
// would take away from what else uses it.
class ReplacingFile
{
public:
    enum Option {
        NoOption = 0,
        // Where the older file is longer than what was written, its bytes
        // beyond the new end are carried over after them: the file ends up
        // exactly as a rewrite in place from its first byte would leave it.
        KeepOlderTail = 0x1,
        // Commit without waiting for the disk: for files the program can
        // write again from their source (a level's tiles), where the wait
        // would cost more than the writing.
        SkipDiskSync = 0x2,
    };
    Q_DECLARE_FLAGS(Options, Option)

    explicit ReplacingFile(const QString& path, Options options = NoOption);
    ~ReplacingFile();
    ReplacingFile(const ReplacingFile&) = delete;
    ReplacingFile& operator=(const ReplacingFile&) = delete;

    bool open();
    // What open() would refuse, found without writing anything: the
    // refusals above, and a folder that takes no new file. For callers that
    // write several files and want all of them or none.
    bool check();
    // Sets aside room for size bytes where the file system can, after
    // open(): a full disk then fails here, before any writing, and the
    // writes that follow go faster. The file still grows only as written.
    bool reserve(qint64 size);
    bool write(const char* data, qint64 length);
    bool write(const QByteArray& data) { return write(data.constData(), data.size()); }
    qint64 written() const { return m_written; }
    bool commit();

    // The first failure, naming the file the user gave.
    FileError error() const { return m_error; }
    QString errorString() const { return m_error.why(); }

private:
    bool resolveTarget();
    bool createTemporary();
    bool createUnnamedTemporary();
    bool createNamedTemporary();
    bool carryOlderTail();
    void keepTargetsOwnership();
    void removeStaleTemporaries() const;
    bool syncToDisk();
    bool takeTargetsPlace();
    bool linkUnnamedTemporary();
    bool failWith(const QString& why);
    bool failWithSystemError();
    void discard();

    QString m_path;
    Options m_options;
    QString m_target;
    QString m_temporaryName; // empty while the temporary file has no name
    std::unique_ptr<TemporaryNameGuard> m_guard;
    QFile m_file;
    bool m_unnamed = false;
    bool m_targetExisted = false;
    QFile::Permissions m_targetPermissions;
    qint64 m_written = 0;
    FileError m_error;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(ReplacingFile::Options)
