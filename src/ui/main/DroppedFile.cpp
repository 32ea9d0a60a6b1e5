#include "ui/main/DroppedFile.h"

#include "level/LevelVersion.h"

#include <QFile>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>
#include <QtEndian>

QString DroppedFile::LocalFile(const QMimeData* data)
{
    if (!data || !data->hasUrls())
        return {};
    for (const QUrl& url : data->urls()) {
        if (url.isLocalFile())
            return url.toLocalFile();
    }
    return {};
}

DroppedFile::Kind DroppedFile::KindOf(const QString& path)
{
    const QFileInfo info(path);
    if (!info.isFile())
        return Kind::None;
    if (info.suffix().compare(QLatin1String("trt"), Qt::CaseInsensitive) == 0)
        return Kind::List;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Kind::None;
    const QByteArray head = file.read(4);
    if (head.size() < 4)
        return Kind::None;
    const quint32 version = qFromLittleEndian<quint32>(head.constData());
    return LevelVersion::hasTextureTables(LevelVersion::gameOf(version)) ? Kind::Level : Kind::None;
}
