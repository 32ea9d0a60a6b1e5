#include "DragFrameFigure.h"

#include "BenchBitmap.h"
#include "BenchPrompts.h"
#include "DurationSamples.h"
#include "ui/bitmap/ucScrollPic.h"
#include "ui/bitmap/ucScrollPicCanvas.h"
#include "ui/common/EditorState.h"
#include "ui/main/frmMain.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPushButton>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QStyle>
#include <QTemporaryDir>

#include <cstdio>

namespace {

void DrawOutlines(ucScrollPic& view, int count, int zoom)
{
    QRandomGenerator random(17);
    for (int i = 0; i < count; ++i) {
        const int x = random.bounded(0, 224), y = random.bounded(0, view.PictureHeight() - 32);
        const int w = random.bounded(8, 32), h = random.bounded(8, 32);
        view.DrawContour(x * zoom, y * zoom, (x + w) * zoom, (y + h) * zoom, Qt::yellow);
        view.PutText((x + w / 2) * zoom, (y + h / 2) * zoom, QString::number(i), Qt::yellow);
    }
}

void SendMouse(QWidget* widget, QEvent::Type type, QPoint at, Qt::MouseButtons held)
{
    QMouseEvent event(type, QPointF(at), widget->mapToGlobal(QPointF(at)),
                      type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, held, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

} // namespace

std::optional<double> DragFrameFigure::measure()
{
    QTemporaryDir dir;
    const QString bitmap = BenchBitmap::write(dir, Tiles, "drag_frame_ms");
    if (bitmap.isEmpty())
        return std::nullopt;

    BenchPrompts prompts;
    frmMain window(&prompts);
    EditorState& state = window.state();
    ucScrollPic& view = *state.picture();
    const int bar = view.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    view.setFixedSize(800 + bar, 600 + bar);
    window.resize(window.sizeHint().expandedTo(QSize(1400, 1000)));
    window.show();
    QApplication::processEvents();
    window.document().setBitmapFileName(bitmap);
    window.LoadBitmap();
    if (!window.document().IsBitmapLoaded()) {
        std::fprintf(stderr, "drag_frame_ms: the bitmap could not be shown\n");
        return std::nullopt;
    }
    // A list is open: Add is live.
    window.document().setListOpen(true);
    window.findChild<QScrollBar*>(QStringLiteral("hscrlZoom"))->setValue(Zoom);
    view.VScroll1()->setValue(view.VScroll1()->maximum() / 2);
    DrawOutlines(view, Outlines, Zoom);
    auto* add = window.findChild<QPushButton*>(QStringLiteral("cmdAdd"));
    add->setEnabled(true);
    add->click();
    QApplication::processEvents();

    ucScrollPicCanvas* canvas = view.Picture1();
    SendMouse(canvas, QEvent::MouseButtonPress, QPoint(100, 100), Qt::LeftButton);
    QApplication::processEvents();
    DurationSamples moves;
    for (int i = 0; i < Moves; ++i) {
        // Back and forth across most of the view: the rectangle grows and shrinks.
        const QPoint to(300 + (i % 2) * 400 - i, 200 + (i % 2) * 300 - i);
        moves.time([&] {
            SendMouse(canvas, QEvent::MouseMove, to, Qt::LeftButton);
            QApplication::processEvents();
        });
    }
    SendMouse(canvas, QEvent::MouseButtonRelease, QPoint(100, 100), Qt::NoButton);
    if (canvas->editOutline().isEmpty()) {
        std::fprintf(stderr, "drag_frame_ms: the drag drew no rectangle\n");
        return std::nullopt;
    }
    return moves.median() / 1e6;
}
