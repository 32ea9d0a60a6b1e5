#include "ZoomMemoryFigure.h"

#include "BenchBitmap.h"
#include "ResidentMemory.h"
#include "ui/bitmap/ucScrollPic.h"
#include "ui/bitmap/ucScrollPicCanvas.h"

#include <QPainter>
#include <QScrollBar>
#include <QTemporaryDir>

#include <cstdio>

namespace {

void PaintMiddle(ucScrollPic& view, QImage& target)
{
    view.VScroll1()->setValue(view.VScroll1()->maximum() / 2);
    QPainter painter(&target);
    view.Picture1()->paintView(painter, target.rect());
}

} // namespace

std::optional<double> ZoomMemoryFigure::measure()
{
    QTemporaryDir dir;
    const QString bitmap = BenchBitmap::write(dir, 32, "zoom_memory_mb");
    if (bitmap.isEmpty())
        return std::nullopt;
    ucScrollPic view;
    view.resize(817, 617);
    if (!view.LoadOnePicture(bitmap))
        return std::nullopt;
    QImage target(view.Picture1()->size(), QImage::Format_RGB32);
    PaintMiddle(view, target);
    const qint64 before = ResidentMemory::bytes();
    if (before < 0) {
        std::fprintf(stderr, "zoom_memory_mb: resident memory cannot be read on this system\n");
        return std::nullopt;
    }
    for (int zoom = 2; zoom <= 16; ++zoom) {
        view.setZoomFactor(zoom);
        PaintMiddle(view, target);
    }
    return double(ResidentMemory::bytes() - before) / (1024.0 * 1024.0);
}
