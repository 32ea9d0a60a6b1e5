#include "OpenListMemoryFigure.h"

#include "BenchBitmap.h"
#include "BenchList.h"
#include "BenchPrompts.h"
#include "ResidentMemory.h"
#include "ui/common/EditorState.h"
#include "ui/main/frmMain.h"

#include <QAction>
#include <QApplication>
#include <QTemporaryDir>

#include <cstdio>

std::optional<double> OpenListMemoryFigure::measure()
{
    QTemporaryDir dir;
    if (!BenchList::write(dir, qint64(2) * 1024 * 1024, "open_list_memory_mb")
        || BenchBitmap::write(dir, 1, "open_list_memory_mb").isEmpty())
        return std::nullopt;

    BenchPrompts prompts;
    frmMain window(&prompts);
    window.show();
    QApplication::processEvents();
    const qint64 before = ResidentMemory::bytes();
    if (before < 0) {
        std::fprintf(stderr, "open_list_memory_mb: resident memory cannot be read on this system\n");
        return std::nullopt;
    }
    prompts.fileNames = {BenchList::listPath(dir)};
    window.findChild<QAction*>(QStringLiteral("mnuFileOpen"))->trigger();
    QApplication::processEvents();
    const qint64 after = ResidentMemory::bytes();

    if (prompts.messages > 0 || window.state().lsvObjects.count() != BenchList::ObjectTextures + 2) {
        std::fprintf(stderr, "open_list_memory_mb: the list did not open whole (%s)\n", qPrintable(prompts.lastMessage));
        return std::nullopt;
    }
    return double(after - before) / (1024.0 * 1024.0);
}
