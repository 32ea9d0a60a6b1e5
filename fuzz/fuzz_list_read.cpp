// Reads arbitrary bytes as a list file into the six views, writes the views
// back and reads that again: no input may crash, hang or allocate beyond
// what its bytes hold.
#include "list/C_ListInfo.h"
#include "list/ListViewSet.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static QTemporaryDir dir;
    const QString input = dir.filePath(QStringLiteral("input.trt"));
    {
        QFile file(input);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            return 0;
        file.write(reinterpret_cast<const char*>(data), qint64(size));
    }
    ListViewSet views;
    C_ListInfo list;
    if (views.openList(list, input) != C_ListInfo::Success)
        return 0;

    const QString rewritten = dir.filePath(QStringLiteral("rewritten.trt"));
    QFile::remove(rewritten);
    C_ListInfo copy;
    views.initList(copy, rewritten, input, list.BitMapName());
    if (copy.PutAllListContents() != C_ListInfo::Success)
        return 0;
    ListViewSet again;
    C_ListInfo reread;
    again.openList(reread, rewritten);
    return 0;
}
