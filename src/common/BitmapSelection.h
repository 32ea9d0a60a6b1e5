#pragma once

// A left-button drag on the bitmap view in bitmap pixels. The view reports
// zoomed picture coordinates; each is divided by the zoom toward minus
// infinity. The bitmap is one tile wide, so the end's X is held to 0..256
// and its Y to no less than 0; the end is then held inside the tile the drag
// started in, so a rectangle never spans two tiles.
struct BitmapSelection
{
    static constexpr int TileSize = 256;

    int x1 = 0;
    int y1 = 0;
    int x2 = 0;
    int y2 = 0;
    int tile = 0;

    static BitmapSelection FromView(float X1, float Y1, float X2, float Y2, int zoom);
};
