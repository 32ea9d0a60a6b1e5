#include "ScratchDir.h"

#include <QDir>
#include <QFile>

ScratchDir::ScratchDir()
    : m_dir(QDir::tempPath() + QStringLiteral("/brindle-test-XXXXXX"))
{
}

QString ScratchDir::write(const QString& name, const QByteArray& bytes) const
{
    const QString path = filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return {};
    if (file.write(bytes) != bytes.size())
        return {};
    return path;
}
