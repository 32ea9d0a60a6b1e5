// Reads arbitrary bytes as a list file into the six views, writes the views
// back and reads that again: no input may crash, hang or allocate beyond
// what its bytes hold.
#include "C_ListInfo.h"
#include "ListViewSet.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>

namespace {

qint16 openList(C_ListInfo& list, const QString& path, ListViewSet& views)
{
    const qint16 status = list.Init(path, QString(), QString(), &views.lsvTextures, &views.lsvAnims,
                                    &views.lsvAnimDetails, &views.lsvSprites, &views.lsvSequences,
                                    &views.lsvSequenceDetails);
    return status == C_ListInfo::Success ? list.GetAllListContents() : status;
}

} // namespace

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
    if (openList(list, input, views) != C_ListInfo::Success)
        return 0;

    const QString rewritten = dir.filePath(QStringLiteral("rewritten.trt"));
    QFile::remove(rewritten);
    C_ListInfo copy;
    copy.Init(rewritten, input, list.BitMapName(), &views.lsvTextures, &views.lsvAnims, &views.lsvAnimDetails,
              &views.lsvSprites, &views.lsvSequences, &views.lsvSequenceDetails);
    if (copy.PutAllListContents() != C_ListInfo::Success)
        return 0;
    ListViewSet again;
    C_ListInfo reread;
    openList(reread, rewritten, again);
    return 0;
}
