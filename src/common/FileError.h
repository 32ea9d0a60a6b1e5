#pragma once

#include <QString>

// What went wrong in an operation on a file, in the one shape every reader
// and writer reports: what failed ("cannot be written"), on which file, and
// why ("No space left on device"). An error with no cause is no error.
class FileError
{
public:
    FileError() = default;
    FileError(const QString& file, const QString& what, const QString& why);

    // Phrases for what, so that every report of the same failure reads alike.
    static QString cannotRead();   // "cannot be read"
    static QString cannotWrite();  // "cannot be written"
    static QString cannotInsert();  // "cannot be inserted" (a list)
    static QString cannotReceive(); // "cannot receive the list" (a level)

    static FileError reading(const QString& file, const QString& why);
    static FileError writing(const QString& file, const QString& why);

    bool failed() const { return !m_why.isEmpty(); }

    QString file() const { return m_file; }
    QString what() const { return m_what; }
    QString why() const { return m_why; }

    // The one line a user reads, in the command-line tool and in the editor:
    // "FILE: WHAT: WHY", without the parts that are empty, the file named
    // the way the system writes paths.
    QString text() const;

    friend bool operator==(const FileError&, const FileError&) = default;

private:
    QString m_file;
    QString m_what;
    QString m_why;
};
