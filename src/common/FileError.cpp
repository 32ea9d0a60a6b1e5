#include "common/FileError.h"

#include "common/ShownName.h"

#include <QDir>
#include <QStringList>

FileError::FileError(const QString& file, const QString& what, const QString& why)
    : m_file(file)
    , m_what(what)
    , m_why(why)
{
}

QString FileError::cannotRead()
{
    return QStringLiteral("cannot be read");
}

QString FileError::cannotWrite()
{
    return QStringLiteral("cannot be written");
}

QString FileError::cannotInsert()
{
    return QStringLiteral("cannot be inserted");
}

QString FileError::cannotReceive()
{
    return QStringLiteral("cannot receive the list");
}

FileError FileError::reading(const QString& file, const QString& why)
{
    return {file, cannotRead(), why};
}

FileError FileError::writing(const QString& file, const QString& why)
{
    return {file, cannotWrite(), why};
}

QString FileError::text() const
{
    if (!failed())
        return {};
    QStringList parts;
    for (const QString& part : {ShownName::of(QDir::toNativeSeparators(m_file)), m_what, m_why}) {
        if (!part.isEmpty())
            parts.append(part);
    }
    return parts.join(QStringLiteral(": "));
}
