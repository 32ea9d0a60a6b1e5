#include "common/BitmapSelection.h"

#include <QtGlobal>

#include <cmath>

namespace {

// Whole bitmap pixels, with the view's coordinates bounded first so that no
// drag far outside the picture can overflow.
int PixelOf(float zoomed, int zoom)
{
    const double pixel = std::floor(double(zoomed) / zoom);
    return int(qBound(-1e9, std::isfinite(pixel) ? pixel : 0.0, 1e9));
}

int FloorDiv(int value, int divisor)
{
    return int(std::floor(double(value) / divisor));
}

} // namespace

BitmapSelection BitmapSelection::FromView(float X1, float Y1, float X2, float Y2, int zoom)
{
    zoom = qMax(1, zoom);
    BitmapSelection s;
    s.x1 = PixelOf(X1, zoom);
    s.y1 = PixelOf(Y1, zoom);
    s.x2 = qBound(0, PixelOf(X2, zoom), TileSize);
    s.y2 = qMax(0, PixelOf(Y2, zoom));
    s.tile = FloorDiv(s.y1, TileSize);
    const int endTile = FloorDiv(s.y2, TileSize);
    if (endTile > s.tile)
        s.y2 = s.tile * TileSize + TileSize;
    else if (endTile < s.tile)
        s.y2 = s.tile * TileSize;
    return s;
}
