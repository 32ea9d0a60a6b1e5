#include "PaintFigure.h"

#include "BenchBitmap.h"
#include "DurationSamples.h"
#include "ui/bitmap/ucScrollPic.h"
#include "ui/bitmap/ucScrollPicCanvas.h"

#include <QPainter>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QStyle>
#include <QTemporaryDir>

#include <cstdio>

namespace {

double MedianPaintNs(const ucScrollPicCanvas& canvas, int repetitions)
{
    QImage target(canvas.size(), QImage::Format_RGB32);
    DurationSamples samples;
    for (int i = 0; i < repetitions; ++i) {
        QPainter painter(&target);
        samples.time([&] {
            canvas.paintView(painter, target.rect());
            painter.end();
        });
    }
    return samples.median();
}

void DrawOutlines(ucScrollPic& view, int count, int zoom)
{
    QRandomGenerator random(7);
    for (int i = 0; i < count; ++i) {
        const int x = random.bounded(0, 224), y = random.bounded(0, view.PictureHeight() - 32);
        const int w = random.bounded(8, 32), h = random.bounded(8, 32);
        view.DrawContour(x * zoom, y * zoom, (x + w) * zoom, (y + h) * zoom, Qt::yellow);
        view.PutText((x + w / 2) * zoom, (y + h / 2) * zoom, QString::number(i), Qt::yellow);
    }
}

} // namespace

QString PaintFigure::name() const
{
    return m_kind == Kind::Ratio ? QStringLiteral("paint_ratio") : QStringLiteral("paint_ms");
}

QString PaintFigure::unit() const
{
    return m_kind == Kind::Ratio ? QStringLiteral("ratio") : QStringLiteral("ms");
}

std::optional<double> PaintFigure::measure()
{
    const QByteArray figure = name().toLatin1();
    QTemporaryDir dir;
    const QString bitmap = BenchBitmap::write(dir, 32, figure.constData());
    if (bitmap.isEmpty())
        return std::nullopt;

    ucScrollPic view;
    const int bar = view.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    view.resize(800 + bar, 600 + bar);
    if (!view.LoadOnePicture(bitmap)) {
        std::fprintf(stderr, "%s: %s\n", figure.constData(), qPrintable(view.ErrorString()));
        return std::nullopt;
    }
    const int zoom = 4;
    view.setZoomFactor(zoom);
    view.VScroll1()->setValue(view.VScroll1()->maximum() / 2);
    view.HScroll1()->setValue(view.HScroll1()->maximum() / 2);

    const double plain = MedianPaintNs(*view.Picture1(), Repetitions);
    DrawOutlines(view, Outlines, zoom);
    const double drawn = MedianPaintNs(*view.Picture1(), Repetitions);
    if (m_kind == Kind::Milliseconds)
        return drawn / 1e6;
    return plain > 0 ? drawn / plain : std::optional<double>();
}
