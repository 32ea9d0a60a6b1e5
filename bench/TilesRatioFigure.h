#pragma once

#include "ReadRatioFigure.h"

// Writing the bitmap of a level's 32 texture tiles next to reading the
// level's bytes once: converting and writing the 16-bit tiles as a 24-bit
// bitmap should cost a small multiple of one read. Each run writes a new
// bitmap, as New List does beside a level; replacing one also costs the
// file system's freeing of the old.
class TilesRatioFigure : public ReadRatioFigure
{
public:
    QString name() const override { return QStringLiteral("tiles_ratio"); }

protected:
    const char* jobName() const override { return "bitmap"; }
    bool writeLevel(const QString& path, QString* error) const override;
    bool run(const QString& path, const QString& dir) override;
    void tidy(const QString& dir) override;

private:
    static QString bitmapPath(const QString& dir);

    static constexpr int Tiles = 32;
};
