#include "RoomsFigure.h"

#include "DurationSamples.h"
#include "level/LevelGeometry.h"
#include "list/ListDocument.h"
#include "list/m_TextureList.h"
#include "render/ListTextures.h"
#include "render/OffscreenRooms.h"
#include "render/RoomScene.h"
#include "render/TextureTable.h"
#include "render/TileLayers.h"
#include "synthetic/SyntheticScene.h"

#include <QTemporaryDir>

#include <cstdio>

namespace {

const QSize ViewSize(1280, 720);

// Rows of the document filled from records, as a list made from the level holds them.
void fillDocument(ListDocument& document, const QList<ObjectTexture>& textures)
{
    std::vector<TextureEntry> rows;
    for (int i = 0; i < textures.size(); ++i)
        rows.push_back(TextureEntry{textures[i], i, 3});
    document.tables().textures.assign(std::move(rows));
}

} // namespace

QString RoomsFigure::name() const
{
    switch (m_kind) {
    case Kind::Frame: return QStringLiteral("rooms_frame_ms");
    case Kind::Pick: return QStringLiteral("rooms_pick_ms");
    case Kind::Update: return QStringLiteral("rooms_update_ms");
    case Kind::Open: return QStringLiteral("rooms_open_ms");
    case Kind::TileMemory: break;
    }
    return QStringLiteral("rooms_tile_memory_ratio");
}

QString RoomsFigure::unit() const
{
    return m_kind == Kind::TileMemory ? QStringLiteral("ratio") : QStringLiteral("ms");
}

std::optional<double> RoomsFigure::measure()
{
    const SyntheticScene scene(Rooms, Side, Textures);
    QTemporaryDir dir;
    const QString levelPath = dir.filePath(QStringLiteral("rooms.tr2"));
    QString why;
    if (!scene.level(LevelVersion::Game::TR2).writeTo(levelPath, &why)) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(name()), qPrintable(why));
        return std::nullopt;
    }
    const QImage bitmap = scene.bitmap();
    std::optional<OffscreenRooms> made;
    std::optional<RoomScene> rooms;
    RoomCamera camera;
    DurationSamples open;
    // From nothing to the first frame: the context and its shaders too.
    const auto openLevel = [&] {
        made.reset();
        made.emplace(ViewSize);
        if (!made->create(&why))
            return false;
        OffscreenRooms& view = *made;
        const std::optional<LevelGeometry> geometry = LevelGeometry::ofLevel(levelPath);
        rooms.emplace(*geometry);
        view.makeCurrent();
        view.renderer().setScene(*rooms);
        view.renderer().setTiles(TileLayers(bitmap));
        view.renderer().setTextures(TextureTable::build(scene.objectTextures()));
        const RoomScene::Bounds bounds = rooms->levelBounds();
        camera = RoomCamera::framing(bounds.centre, bounds.radius);
        view.draw(camera);
        return true;
    };
    for (int i = 0; i < (m_kind == Kind::Open ? Samples : 1); ++i) {
        if (!open.time(openLevel)) {
            std::fprintf(stderr, "%s: %s\n", qPrintable(name()), qPrintable(why));
            return std::nullopt;
        }
    }
    OffscreenRooms& view = *made;

    switch (m_kind) {
    case Kind::Open:
        return open.median() / 1e6;
    case Kind::TileMemory:
        return double(view.renderer().tileBytes()) / (double(bitmap.width()) * bitmap.height() * 3);
    case Kind::Frame: {
        DurationSamples frames;
        for (int i = 0; i < Samples; ++i)
            frames.time([&] { view.draw(camera); });
        return frames.median() / 1e6;
    }
    case Kind::Pick: {
        DurationSamples picks;
        std::optional<int> face;
        // The middle face of the level, which the rooms' order puts near the middle of the view.
        const int middle = int(rooms->faces().size() / 2);
        const QPoint pixel = camera.project(rooms->faces()[middle].centre, ViewSize).value_or(QPointF()).toPoint();
        for (int i = 0; i < Samples; ++i)
            face = picks.time([&] { return view.pick(camera, pixel); });
        if (!face) {
            std::fprintf(stderr, "rooms_pick_ms: no face in the middle of the view\n");
            return std::nullopt;
        }
        return picks.median() / 1e6;
    }
    case Kind::Update:
        break;
    }
    ListDocument document;
    fillDocument(document, scene.objectTextures());
    DurationSamples updates;
    for (int i = 0; i < Samples; ++i) {
        const TextureEntry& entry = document.tables().textures.at(2 + i);
        ObjectTexture moved = entry.record;
        moved.setColumn(ObjectTexture::XColumn(0), i);
        updates.time([&] {
            document.EditTexture(entry.number, moved);
            view.makeCurrent();
            view.renderer().setTextures(TextureTable::build(ListTextures::of(document).textures));
            view.draw(camera);
        });
    }
    return updates.median() / 1e6;
}
