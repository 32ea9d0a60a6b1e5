#include "OpenGuiFigure.h"

#include "BenchBitmap.h"
#include "BenchList.h"
#include "BenchPrompts.h"
#include "DurationSamples.h"
#include "ui/common/EditorState.h"
#include "ui/main/frmMain.h"

#include <QAction>
#include <QApplication>
#include <QTemporaryDir>

#include <cstdio>

std::optional<double> OpenGuiFigure::measure()
{
    QTemporaryDir dir;
    if (!BenchList::write(dir, qint64(2) * 1024 * 1024, "open_gui_ms")
        || BenchBitmap::write(dir, 16, "open_gui_ms").isEmpty())
        return std::nullopt;

    BenchPrompts prompts;
    frmMain window(&prompts);
    window.show();
    QApplication::processEvents();
    auto* open = window.findChild<QAction*>(QStringLiteral("mnuFileOpen"));

    DurationSamples samples;
    for (int i = 0; i < Repetitions; ++i) {
        prompts.fileNames = {BenchList::listPath(dir)};
        samples.time([&] { open->trigger(); });
        QApplication::processEvents();
    }
    const EditorState& state = window.state();
    if (prompts.messages > 0 || state.lsvObjects.count() != BenchList::ObjectTextures + 2 || !window.document().IsBitmapLoaded()) {
        std::fprintf(stderr, "open_gui_ms: the list did not open whole (%s)\n", qPrintable(prompts.lastMessage));
        return std::nullopt;
    }
    return samples.median() / 1e6;
}
