#include "UndoAllFigure.h"

#include "BenchBitmap.h"
#include "BenchList.h"
#include "BenchPrompts.h"
#include "DurationSamples.h"
#include "list/ListDocument.h"
#include "ui/main/frmMain.h"

#include <QAction>
#include <QApplication>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QUndoStack>

#include <cstdio>

namespace {

// Edits random textures: each one's tile goes up by one.
bool EditTextures(ListDocument& document, int edits, QRandomGenerator& random)
{
    const RecordTable<TextureEntry>& textures = document.tables().textures;
    for (int i = 0; i < edits; ++i) {
        const TextureEntry& entry = textures.at(int(random.bounded(textures.count())));
        ObjectTexture edited = entry.record;
        edited.setColumn(ObjectTexture::TileColumn, edited.tile() + 1);
        if (!document.EditTexture(entry.number, edited))
            return false;
    }
    return true;
}

} // namespace

std::optional<double> UndoAllFigure::measure()
{
    QTemporaryDir dir;
    if (!BenchList::write(dir, qint64(2) * 1024 * 1024, "undo_all_ms")
        || BenchBitmap::write(dir, 16, "undo_all_ms").isEmpty())
        return std::nullopt;

    BenchPrompts prompts;
    frmMain window(&prompts);
    window.show();
    prompts.fileNames = {BenchList::listPath(dir)};
    window.findChild<QAction*>(QStringLiteral("mnuFileOpen"))->trigger();
    QApplication::processEvents();
    ListDocument& document = window.document();
    auto* undo = window.findChild<QAction*>(QStringLiteral("mnuEditUndo"));

    QRandomGenerator random(17);
    DurationSamples samples;
    for (int i = 0; i < Repetitions; ++i) {
        if (!EditTextures(document, Edits, random)) {
            std::fprintf(stderr, "undo_all_ms: an edit was refused\n");
            return std::nullopt;
        }
        QApplication::processEvents();
        samples.time([&] {
            for (int edit = 0; edit < Edits; ++edit)
                undo->trigger();
            QApplication::processEvents();
        });
        if (document.undoStack()->canUndo() || document.isModified() || prompts.messages > 0) {
            std::fprintf(stderr, "undo_all_ms: the edits were not all undone\n");
            return std::nullopt;
        }
    }
    return samples.median() / 1e6;
}
