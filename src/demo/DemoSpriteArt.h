#pragma once

#include <QRgb>
#include <QSize>

// The demo's sprites, each the colour of pixel (u, v) of its cell and
// DemoColor::SeeThrough around the drawing. Animated sprites take the frame
// number; their frames share the cell size.
class DemoSpriteArt
{
public:
    static constexpr QSize FlameCell{64, 64};
    static constexpr int FlameFrames = 4;
    static constexpr QSize CoinCell{32, 32};
    static constexpr int CoinFrames = 8;
    static constexpr QSize SmokeCell{48, 48};
    static constexpr int SmokeFrames = 5;
    static constexpr QSize SmallMedipackCell{48, 40};
    static constexpr QSize LargeMedipackCell{64, 48};
    static constexpr QSize KeyCell{56, 28};
    static constexpr QSize AmmoCell{44, 40};
    static constexpr QSize PlantCell{72, 112};
    static constexpr QSize CrystalCell{40, 72};
    static constexpr QSize ReedsCell{56, 72};
    static constexpr QSize FirCell{88, 120};
    static constexpr QSize SparkleCell{32, 32};
    static constexpr int SparkleFrames = 4;

    static QRgb flame(int frame, int u, int v);
    static QRgb coin(int frame, int u, int v);
    static QRgb smoke(int frame, int u, int v);
    static QRgb smallMedipack(int u, int v);
    static QRgb largeMedipack(int u, int v);
    static QRgb key(int u, int v);
    static QRgb ammo(int u, int v);
    static QRgb plant(int u, int v);
    static QRgb crystal(int u, int v);
    static QRgb reeds(int u, int v);
    static QRgb fir(int u, int v);
    static QRgb sparkle(int frame, int u, int v);

private:
    static QRgb medipack(int u, int v, QSize cell, bool handle);
};
