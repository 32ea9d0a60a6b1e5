#include "demo/DemoLiquids.h"

#include "demo/DemoColor.h"
#include "demo/DemoNoise.h"

QRgb DemoLiquids::water(int frame, int u, int v)
{
    const double phase = double(frame) / WaterFrames;
    const double x = u / double(Size);
    const double y = v / double(Size);
    const double drift = DemoNoise::fractal(u + frame * Size / WaterFrames, v, 32, Size, 201);
    const double swell = DemoNoise::wave(2 * x + y + phase + 0.3 * drift)
        + DemoNoise::wave(2 * y - x + phase) + 0.6 * DemoNoise::wave(3 * x - 2 * y - phase);
    const double light = (swell + 2.6) / 5.2;
    const double caustic = light * light * light;
    return DemoColor::ramp({qRgb(16, 50, 104), qRgb(30, 92, 156), qRgb(70, 156, 204), qRgb(206, 240, 252)},
                           0.25 * light + 0.75 * caustic + 0.12 * (drift - 0.5));
}

QRgb DemoLiquids::lava(int frame, int u, int v)
{
    const double phase = double(frame) / LavaFrames;
    const double flow = frame * double(Size) / LavaFrames;
    const double x = u / double(Size);
    const double y = v / double(Size);
    const double churn = DemoNoise::fractal(u + 4.0 * DemoNoise::wave(2 * y + phase), v - flow, 16, Size, 211);
    const double pulse = 0.5 + 0.5 * DemoNoise::wave(x + 2 * y - phase);
    const double heat = 0.7 * churn + 0.3 * pulse;
    if (heat < 0.36)
        return DemoColor::scaled(qRgb(58, 20, 12), 0.7 + heat);
    return DemoColor::ramp({qRgb(140, 22, 8), qRgb(226, 90, 16), qRgb(252, 168, 34), qRgb(255, 236, 120)},
                           (heat - 0.36) / 0.5);
}
