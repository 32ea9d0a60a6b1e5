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
    QString filePath(const QString& name) const;

    // Writes bytes to name (inside the folder unless absolute), creating the
    // folders it needs, and returns its path; "" when it could not be written.
    QString write(const QString& name, const QByteArray& bytes) const;

    // The whole file; empty when it cannot be read.
    static QByteArray read(const QString& path);

private:
    QTemporaryDir m_dir;
};
