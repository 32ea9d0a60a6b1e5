#include "demo/DemoAtlas.h"

#include "demo/DemoColor.h"

namespace {

// The byte before each pixel coordinate marks which edge of the texture the
// corner lies on: 1 on the low edge, 255 on the high edge.
quint8 edgeMark(int coordinate, int highEdge)
{
    return coordinate == highEdge ? 255 : 1;
}

void setCorner(ObjectTexture& record, int corner, const QPoint& at, const QRect& bounds)
{
    record.setColumn(ObjectTexture::XColumn(corner), at.x());
    record.setColumn(ObjectTexture::YColumn(corner), at.y());
    record.setColumn(ObjectTexture::XHiColumn(corner), edgeMark(at.x(), bounds.right()));
    record.setColumn(ObjectTexture::YHiColumn(corner), edgeMark(at.y(), bounds.bottom()));
}

ObjectTexture textureRecord(int tile, bool transparent)
{
    ObjectTexture record;
    record.setColumn(ObjectTexture::TileColumn, tile);
    record.setColumn(ObjectTexture::TransColumn, transparent ? 1 : 0);
    return record;
}

qint64 edgeFunction(const QPoint& a, const QPoint& b, const QPoint& p)
{
    return qint64(b.x() - a.x()) * (p.y() - a.y()) - qint64(b.y() - a.y()) * (p.x() - a.x());
}

// Inclusive of the edges, whichever way round the corners go.
bool insideTriangle(const std::array<QPoint, 3>& t, const QPoint& p)
{
    const qint64 e0 = edgeFunction(t[0], t[1], p);
    const qint64 e1 = edgeFunction(t[1], t[2], p);
    const qint64 e2 = edgeFunction(t[2], t[0], p);
    return (e0 >= 0 && e1 >= 0 && e2 >= 0) || (e0 <= 0 && e1 <= 0 && e2 <= 0);
}

QRect boundsOf(const std::array<QPoint, 3>& corners)
{
    QRect bounds(corners[0], corners[0]);
    for (const QPoint& corner : corners)
        bounds = bounds.united(QRect(corner, corner));
    return bounds;
}

// Pixel corners x1..x2 are stored as (x2 - x1) * 256 + 255.
quint16 spanField(int pixels)
{
    return quint16((pixels - 1) * 256 + 255);
}

} // namespace

DemoAtlas::DemoAtlas(int tiles)
    : m_image(TileSize, TileSize * tiles, QImage::Format_RGB32)
{
    m_image.fill(DemoColor::SeeThrough);
    // Fixed, so the saved bitmap does not depend on the display's resolution.
    m_image.setDotsPerMeterX(2835);
    m_image.setDotsPerMeterY(2835);
}

QRect DemoAtlas::onBitmap(int tile, const QRect& cell) const
{
    return cell.translated(0, tile * TileSize);
}

bool DemoAtlas::paintCell(int tile, const QRect& cell, const Paint& paint)
{
    const QRect target = onBitmap(tile, cell);
    bool seeThrough = false;
    for (int v = 0; v < target.height(); ++v) {
        QRgb* line = reinterpret_cast<QRgb*>(m_image.scanLine(target.top() + v));
        for (int u = 0; u < target.width(); ++u) {
            const QRgb colour = paint(u, v);
            line[target.left() + u] = colour;
            seeThrough = seeThrough || colour == DemoColor::SeeThrough;
        }
    }
    return seeThrough;
}

int DemoAtlas::addQuad(int tile, const QRect& cell, const Paint& paint)
{
    const bool transparent = paintCell(tile, cell, paint);
    ObjectTexture record = textureRecord(tile, transparent);
    setCorner(record, 0, cell.topLeft(), cell);
    setCorner(record, 1, cell.topRight(), cell);
    setCorner(record, 2, cell.bottomRight(), cell);
    setCorner(record, 3, cell.bottomLeft(), cell);
    m_objectTextures.append(record);
    return int(m_objectTextures.size() - 1);
}

int DemoAtlas::addTriangle(int tile, const std::array<QPoint, 3>& corners, const Paint& paint)
{
    const QRect bounds = boundsOf(corners);
    const QRect target = onBitmap(tile, bounds);
    bool transparent = false;
    for (int y = bounds.top(); y <= bounds.bottom(); ++y) {
        QRgb* line = reinterpret_cast<QRgb*>(m_image.scanLine(target.top() + y - bounds.top()));
        for (int x = bounds.left(); x <= bounds.right(); ++x) {
            if (!insideTriangle(corners, QPoint(x, y)))
                continue;
            const QRgb colour = paint(x - bounds.left(), y - bounds.top());
            line[x] = colour;
            transparent = transparent || colour == DemoColor::SeeThrough;
        }
    }
    ObjectTexture record = textureRecord(tile, transparent);
    for (int corner = 0; corner < 3; ++corner)
        setCorner(record, corner, corners[size_t(corner)], bounds);
    m_objectTextures.append(record);
    return int(m_objectTextures.size() - 1);
}

void DemoAtlas::addAnimationRange(const QList<int>& textures)
{
    AnimatedTextureBlock::Range range;
    for (const int texture : textures)
        range.append(quint16(texture));
    m_animatedTextures.ranges.append(range);
}

QRect DemoAtlas::drawnBox(int tile, const QRect& cell) const
{
    const QRect target = onBitmap(tile, cell);
    QRect box;
    for (int y = target.top(); y <= target.bottom(); ++y) {
        const QRgb* line = reinterpret_cast<const QRgb*>(m_image.constScanLine(y));
        for (int x = target.left(); x <= target.right(); ++x) {
            if (line[x] != DemoColor::SeeThrough)
                box = box.united(QRect(x - target.left(), y - target.top(), 1, 1));
        }
    }
    return box;
}

SpriteTexture DemoAtlas::spriteRecord(int tile, const QRect& box, Stand stand) const
{
    SpriteTexture record;
    record.tile = quint16(tile);
    record.x = quint8(box.left());
    record.y = quint8(box.top());
    record.width = spanField(box.width());
    record.height = spanField(box.height());
    const int halfWidth = box.width() * WorldUnitsPerPixel / 2;
    const int height = box.height() * WorldUnitsPerPixel;
    record.left = qint16(-halfWidth);
    record.right = qint16(halfWidth);
    record.top = qint16(stand == Stand::OnFloor ? -height : -height / 2);
    record.bottom = qint16(stand == Stand::OnFloor ? 0 : height / 2);
    return record;
}

void DemoAtlas::addSpriteSequence(qint32 objectId, int tile, const QList<QRect>& cells, const FramePaint& paint,
                                  Stand stand)
{
    QRect frameBox;
    for (qsizetype frame = 0; frame < cells.size(); ++frame) {
        const int number = int(frame);
        paintCell(tile, cells[frame], [&](int u, int v) { return paint(number, u, v); });
        frameBox = frameBox.united(drawnBox(tile, cells[frame]));
    }
    SpriteSequence sequence;
    sequence.objectId = objectId;
    sequence.setNumber(int(cells.size()));
    sequence.first = qint16(m_spriteTextures.size());
    for (const QRect& cell : cells)
        m_spriteTextures.append(spriteRecord(tile, frameBox.translated(cell.topLeft()), stand));
    m_spriteSequences.append(sequence);
}

void DemoAtlas::addSprite(qint32 objectId, int tile, const QRect& cell, const Paint& paint, Stand stand)
{
    addSpriteSequence(objectId, tile, {cell}, [&](int, int u, int v) { return paint(u, v); }, stand);
}
