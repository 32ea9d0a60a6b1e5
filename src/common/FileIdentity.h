#pragma once

#include "common/FileError.h"

#include <QString>
#include <QStringList>

// Which file a path reaches, whatever its spelling: a symbolic link, a hard
// link or a ".." step all reach the same file. Paths are compared by the
// file they reach, never by how they are written, so that an output never
// takes the place of a file the same operation reads.
class FileIdentity
{
public:
    // The file path reaches, following symbolic links; no identity when
    // nothing is there yet.
    static FileIdentity of(const QString& path);

    bool exists() const { return m_exists; }

    // Both reach one existing file.
    bool isSameFile(const FileIdentity& other) const;

    // Refused when output reaches the same file as one of inputs (empty
    // inputs are skipped): "OUTPUT: cannot be written: is the same file as
    // INPUT". No error otherwise.
    static FileError outputRefusal(const QString& output, const QStringList& inputs);

private:
    bool m_exists = false;
    quint64 m_device = 0;
    quint64 m_inode = 0;
    QString m_canonicalPath; // where the system gives no inode
};
