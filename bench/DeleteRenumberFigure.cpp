#include "DeleteRenumberFigure.h"

#include "BenchList.h"
#include "DurationSamples.h"
#include "level/TextureUsage.h"
#include "list/C_ListInfo.h"
#include "list/ListDocument.h"

#include <QTemporaryDir>
#include <QUndoStack>

#include <cstdio>

std::optional<double> DeleteRenumberFigure::measure()
{
    QTemporaryDir dir;
    constexpr BenchList::Shape shape{32768, 2000, 4, 4096, 500};
    if (!BenchList::write(dir, qint64(4) * 1024 * 1024, "delete_renumber_ms", shape))
        return std::nullopt;
    ListDocument document;
    C_ListInfo list;
    if (document.views().openList(list, BenchList::listPath(dir)) != C_ListInfo::Success) {
        std::fprintf(stderr, "delete_renumber_ms: cannot open the list\n");
        return std::nullopt;
    }
    document.setLevelFileName(BenchList::levelPath(dir));
    if (!document.LevelUsage()) {
        std::fprintf(stderr, "delete_renumber_ms: cannot read the level's usage\n");
        return std::nullopt;
    }

    DurationSamples samples;
    qint64 faces = 0;
    for (int i = 0; i < Repetitions; ++i) {
        bool deleted = false;
        samples.time([&] {
            const TextureUsage* usage = document.LevelUsage();
            faces = usage->roomFaces.at(0) + usage->meshFaces.at(0) + usage->roomFaces.from(1)
                  + usage->meshFaces.from(1);
            deleted = document.DeleteTexture(0);
        });
        const ListRows& details = document.views().lsvAnimDetails;
        if (!deleted || document.views().lsvAnims.count() != shape.ranges || details.subItem(0, 1) != u"0") {
            std::fprintf(stderr, "delete_renumber_ms: the ranges did not follow the deletion\n");
            return std::nullopt;
        }
        document.undoStack()->undo();
    }
    if (faces < 0)
        return std::nullopt;
    return samples.median() / 1e6;
}
