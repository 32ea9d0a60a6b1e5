#pragma once

#include <QByteArray>

// The demo level's 8-bit palette and tiles, so that pixels painted into its
// bitmap find colours to take: a cube of six reds, seven greens and six
// blues after the see-through entry 0, then three greys.
class DemoPalette
{
public:
    // 256 entries of 6-bit red, green and blue.
    static QByteArray palette();

    // The 8-bit tiles that go with 16-bit ones: each pixel the nearest
    // palette entry, 0 where the 16-bit pixel is see-through.
    static QByteArray tiles8(const QByteArray& tiles16, const QByteArray& palette);
};
