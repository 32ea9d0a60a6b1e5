#include "ResidentMemory.h"

#include <QFile>
#include <QList>

#include <unistd.h>

qint64 ResidentMemory::bytes()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        return -1;
    const QList<QByteArray> fields = statm.readAll().split(' ');
    if (fields.size() < 2)
        return -1;
    return fields[1].toLongLong() * sysconf(_SC_PAGESIZE);
}
