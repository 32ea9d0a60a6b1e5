#include "ZoomMemoryFigure.h"

#include "BenchBitmap.h"
#include "ui/bitmap/ucScrollPic.h"
#include "ui/bitmap/ucScrollPicCanvas.h"

#include <QFile>
#include <QPainter>
#include <QScrollBar>
#include <QTemporaryDir>

#include <cstdio>
#include <unistd.h>

namespace {

// Resident memory in bytes, from the kernel's own count; -1 where unknown.
qint64 ResidentBytes()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        return -1;
    const QList<QByteArray> fields = statm.readAll().split(' ');
    if (fields.size() < 2)
        return -1;
    return fields[1].toLongLong() * sysconf(_SC_PAGESIZE);
}

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
    const qint64 before = ResidentBytes();
    if (before < 0) {
        std::fprintf(stderr, "zoom_memory_mb: resident memory cannot be read on this system\n");
        return std::nullopt;
    }
    for (int zoom = 2; zoom <= 16; ++zoom) {
        view.setZoomFactor(zoom);
        PaintMiddle(view, target);
    }
    return double(ResidentBytes() - before) / (1024.0 * 1024.0);
}
