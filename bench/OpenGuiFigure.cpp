#include "OpenGuiFigure.h"

#include "BenchBitmap.h"
#include "BenchList.h"
#include "BenchPrompts.h"
#include "DurationSamples.h"
#include "ui/common/EditorState.h"
#include "list/ListDocument.h"
#include "ui/main/frmMain.h"

#include <QAction>
#include <QApplication>
#include <QTemporaryDir>

#include <cstdio>

std::optional<double> OpenGuiFigure::measure()
{
    const QByteArray figure = name().toLatin1();
    const BenchList::Shape shape = m_size == Size::Max ? BenchList::Max : BenchList::Large;
    QTemporaryDir dir;
    if (!BenchList::write(dir, qint64(2) * 1024 * 1024, figure.constData(), shape)
        || BenchBitmap::write(dir, 16, figure.constData()).isEmpty())
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
    if (prompts.messages > 0 || state.lsvObjects.count() != shape.objectTextures + 2
        || !window.document().IsBitmapLoaded()) {
        std::fprintf(stderr, "%s: the list did not open whole (%s)\n", figure.constData(),
                     qPrintable(prompts.lastMessage));
        return std::nullopt;
    }
    return samples.median() / 1e6;
}
