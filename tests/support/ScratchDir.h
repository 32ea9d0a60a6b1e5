#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

// A temporary folder for one test, removed with it, into which files are
// written whole.
class ScratchDir
{
public:
    ScratchDir();

    bool isValid() const { return m_dir.isValid(); }
    QString path() const { return m_dir.path(); }
    QString filePath(const QString& name) const { return m_dir.filePath(name); }

    // Writes bytes to name inside the folder and returns its path; an empty
    // string when the file could not be written.
    QString write(const QString& name, const QByteArray& bytes) const;

private:
    QTemporaryDir m_dir;
};
