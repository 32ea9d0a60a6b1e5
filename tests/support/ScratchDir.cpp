#include "support/ScratchDir.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

ScratchDir::ScratchDir()
    : m_dir(QDir::tempPath() + QStringLiteral("/brindle-test-XXXXXX"))
{
}

QString ScratchDir::filePath(const QString& name) const
{
    return QDir(m_dir.path()).filePath(name);
}

QString ScratchDir::write(const QString& name, const QByteArray& bytes) const
{
    const QString path = filePath(name);
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    const bool written = file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size();
    return written ? path : QString();
}

QByteArray ScratchDir::read(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
