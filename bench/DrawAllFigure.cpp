#include "DrawAllFigure.h"

#include "BenchBitmap.h"
#include "BenchPrompts.h"
#include "DurationSamples.h"
#include "ui/common/EditorState.h"
#include "level/ObjectTexture.h"
#include "level/SpriteTexture.h"
#include "list/ListDocument.h"
#include "ui/main/frmMain.h"
#include "list/m_SpriteList.h"
#include "list/m_TextureList.h"
#include "ui/bitmap/ucScrollPic.h"
#include "ui/bitmap/ucScrollPicCanvas.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPushButton>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QTemporaryDir>

#include <cstdio>
#include <vector>

namespace {

// Quads with Lo on corner 1, every seventh a triangle, spread over the tiles.
std::vector<TextureEntry> ObjectTextureRows(int count, int tiles)
{
    QRandomGenerator random(11);
    std::vector<TextureEntry> rows;
    rows.reserve(size_t(count));
    for (int i = 0; i < count; ++i) {
        const int x = random.bounded(0, 192), y = random.bounded(0, 192);
        const int w = random.bounded(8, 64), h = random.bounded(8, 64);
        const bool triangle = i % 7 == 0;
        ObjectTexture record;
        record.setColumn(1, random.bounded(0, tiles));
        const int corners[4][4] = {{x, y, 1, 1}, {x + w, y, 255, 1}, {x + w, y + h, 255, 255}, {x, y + h, 1, 255}};
        for (int c = 0; c < (triangle ? 3 : 4); ++c) {
            record.setColumn(3 + 2 * c, corners[c][0]);
            record.setColumn(4 + 2 * c, corners[c][1]);
            record.setColumn(11 + 2 * c, corners[c][2]);
            record.setColumn(12 + 2 * c, corners[c][3]);
        }
        rows.push_back(TextureEntry{record, i, 4});
    }
    return rows;
}

std::vector<SpriteTextureEntry> SpriteRows(int count, int tiles)
{
    QRandomGenerator random(13);
    std::vector<SpriteTextureEntry> rows;
    rows.reserve(size_t(count));
    for (int i = 0; i < count; ++i) {
        SpriteTexture sprite;
        sprite.tile = quint16(random.bounded(0, tiles));
        sprite.x = quint8(random.bounded(0, 200));
        sprite.y = quint8(random.bounded(0, 200));
        sprite.width = quint16(random.bounded(4, 56) * 256 + 255);
        sprite.height = quint16(random.bounded(4, 56) * 256 + 255);
        rows.push_back(SpriteTextureEntry{sprite, i, 4});
    }
    return rows;
}

void Paint(const ucScrollPicCanvas& canvas, QImage& target, DurationSamples& paints)
{
    QPainter painter(&target);
    paints.time([&] {
        canvas.paintView(painter, target.rect());
        painter.end();
    });
}

} // namespace

QString DrawAllFigure::name() const
{
    switch (m_kind) {
    case Kind::Ratio: return QStringLiteral("draw_all_ratio");
    case Kind::MaxMilliseconds: return QStringLiteral("draw_all_max_ms");
    case Kind::Milliseconds: break;
    }
    return QStringLiteral("draw_all_ms");
}

QString DrawAllFigure::unit() const
{
    return m_kind == Kind::Ratio ? QStringLiteral("ratio") : QStringLiteral("ms");
}

std::optional<double> DrawAllFigure::measure()
{
    const QByteArray figure = name().toLatin1();
    QTemporaryDir dir;
    const QString bitmap = BenchBitmap::write(dir, Tiles, figure.constData());
    if (bitmap.isEmpty())
        return std::nullopt;

    BenchPrompts prompts;
    frmMain window(&prompts);
    EditorState& state = window.state();
    window.document().setBitmapFileName(bitmap);
    window.LoadBitmap();
    window.findChild<QScrollBar*>(QStringLiteral("hscrlZoom"))->setValue(Zoom);
    window.document().tables().textures.assign(ObjectTextureRows(ObjectTextures(), Tiles));
    window.document().tables().sprites.assign(SpriteRows(Sprites(), Tiles));
    state.FillTextureIndexLists();
    state.FillSpriteIndexList();
    auto* drawTextures = window.findChild<QPushButton*>(QStringLiteral("cmdDraw"));
    auto* drawSprites = window.findChild<QPushButton*>(QStringLiteral("cmdDrawSprite"));
    const ucScrollPicCanvas& canvas = *state.picture()->Picture1();
    QImage viewport(800, 600, QImage::Format_RGB32);

    DurationSamples whole;
    DurationSamples paints;
    for (int i = 0; i < Repetitions; ++i) {
        whole.time([&] {
            drawTextures->click();
            drawSprites->click();
            Paint(canvas, viewport, paints);
        });
    }
    // Row k of a checklist draws texture k: every texture but number 0.
    if (state.lsvDrawList.count() != ObjectTextures() - 1 || state.lsvSpriteDrawLisr.count() != Sprites() - 1
        || prompts.messages > 0) {
        std::fprintf(stderr, "%s: Draw did not outline every ticked row\n", figure.constData());
        return std::nullopt;
    }
    std::fprintf(stderr, "%s: Draw and paint %.3f ms, paint alone %.3f ms (medians of %d)\n", figure.constData(),
                 whole.median() / 1e6, paints.median() / 1e6, Repetitions);
    if (m_kind != Kind::Ratio)
        return whole.median() / 1e6;
    return paints.median() > 0 ? whole.median() / paints.median() : std::optional<double>();
}
