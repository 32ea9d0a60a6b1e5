#include "WalkBytes.h"

#include <QBuffer>

C_LevelInfo walkBytes(const QByteArray& bytes)
{
    QByteArray data = bytes;
    QBuffer buffer(&data);
    buffer.open(QIODevice::ReadOnly);
    C_LevelInfo info;
    info.WalkDevice(buffer);
    return info;
}
