#include "demo/DemoLevel.h"

#include "demo/DemoColor.h"
#include "demo/DemoLiquids.h"
#include "demo/DemoPalette.h"
#include "demo/DemoSpriteArt.h"
#include "demo/DemoSurfaces.h"
#include "demo/DemoTile16Encoder.h"
#include "list/LevelListExtractor.h"
#include "common/FileIdentity.h"
#include "common/ImageFile.h"
#include "common/ReplacingFile.h"
#include "synthetic/SyntheticGeometry.h"
#include "synthetic/SyntheticMeshSet.h"
#include "synthetic/SyntheticScene.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

namespace {

constexpr int WallTile = 0;
constexpr int AnimationTile = 1;
constexpr int SpriteTile = 2;
constexpr int SceneryTile = 3;
constexpr int Square = DemoSurfaces::Size;

// Object IDs of the sprite sequences.
constexpr qint32 FlameId = 160;
constexpr qint32 CoinId = 161;
constexpr qint32 SmallMedipackId = 162;
constexpr qint32 LargeMedipackId = 163;
constexpr qint32 KeyId = 164;
constexpr qint32 AmmoId = 165;
constexpr qint32 SmokeId = 166;
constexpr qint32 PlantId = 167;
constexpr qint32 CrystalId = 168;
constexpr qint32 ReedsId = 169;
constexpr qint32 FirId = 170;
constexpr qint32 SparkleId = 171;

using Surface = QRgb (*)(int u, int v);
using Stand = DemoAtlas::Stand;

QRect square(int column, int row)
{
    return QRect(column * Square, row * Square, Square, Square);
}

// count cells of one size side by side from origin, step pixels apart.
QList<QRect> cellsInRow(QPoint origin, QSize size, int count, int step)
{
    QList<QRect> cells;
    for (int i = 0; i < count; ++i)
        cells.append(QRect(origin + QPoint(i * step, 0), size));
    return cells;
}

DemoAtlas::Paint framePainter(QRgb (*paint)(int, int, int), int frame)
{
    return [paint, frame](int u, int v) { return paint(frame, u, v); };
}

// Halves of a square cut along a diagonal, corners clockwise. A triangle's
// paint counts from its bounding box, which is the square itself.
std::array<QPoint, 3> upperLeftHalf(const QRect& s)
{
    return {s.topLeft(), s.topRight(), s.bottomLeft()};
}

std::array<QPoint, 3> lowerRightHalf(const QRect& s)
{
    return {s.topRight(), s.bottomRight(), s.bottomLeft()};
}

std::array<QPoint, 3> lowerLeftHalf(const QRect& s)
{
    return {s.topLeft(), s.bottomRight(), s.bottomLeft()};
}

bool fail(FileError* error, const FileError& failure)
{
    if (error)
        *error = failure;
    return false;
}

// Object textures by the order they are drawn: the wall squares row by row
// (0-15), water (16-19) and lava (20-22) frames, the triangles (23-28) and
// the frieze (29).
namespace Texture {
constexpr quint16 StoneBlocks = 0, Bricks = 1, Planks = 2, FloorTiles = 3, Cobbles = 5, Sand = 6, MossyStone = 7,
                  TreadPlate = 8, Marble = 9, Grass = 10, RoofTiles = 12, Carpet = 13, Crate = 15, Water = 16,
                  Lava = 20, StoneGrass = 23, GrassStone = 24, RoofPlanks = 25, PlanksRoof = 26, Bricks45 = 27,
                  Frieze = 29;
}
// The first scenery sprite: after the flame, the coin, four pickups and the smoke.
constexpr quint16 PlantSprite = DemoSpriteArt::FlameFrames + DemoSpriteArt::CoinFrames + 4 + DemoSpriteArt::SmokeFrames;

// Three rooms side by side built of the wall squares, each a floor with
// walls round it and a low pyramid of triangles; the second places the crate.
// The grate, the fence, the ice and the fence triangle are left unused, so
// texture usage finds some of each.
constexpr quint32 CrateKind = 1;

SyntheticRoom roomOf(qint32 x, const QByteArray& geometry, qint16 portals, qint16 sectorsZ, qint16 sectorsX,
                     qint16 lights)
{
    SyntheticRoom room = SyntheticRoom::holding(geometry);
    room.header = SyntheticScene::roomHeader(x * SyntheticScene::Sector, 0);
    room.portals = portals;
    room.sectorsZ = sectorsZ;
    room.sectorsX = sectorsX;
    room.lights = lights;
    return room;
}

QList<SyntheticRoom> demoRooms()
{
    using namespace Texture;
    using Scene = SyntheticScene;
    SyntheticRoom crateRoom = roomOf(5,
                                     Scene::roomOf(4, 6, {Grass, Carpet, Water, Grass, Lava, TreadPlate}, {RoofTiles, TreadPlate},
                                                   {RoofPlanks, quint16(PlanksRoof | SyntheticGeometry::DoubleSided)}),
                                     2, 6, 4, 2);
    crateRoom.staticMeshes = 1;
    crateRoom.placements = Scene::placement(6 * Scene::Sector, 0, 4 * Scene::Sector + 512, 0x2000, CrateKind);
    return {
        roomOf(0, Scene::roomOf(4, 4, {FloorTiles, Cobbles, Sand, Cobbles}, {StoneBlocks, Bricks, MossyStone},
                                {StoneGrass, GrassStone}, {PlantSprite}),
               1, 4, 4, 1),
        crateRoom,
        roomOf(10, Scene::roomOf(3, 3, {Planks, Marble}, {Frieze}), 1, 3, 3, 1),
    };
}

// A crate that two objects share and a little roof lit by vertex lights.
SyntheticMeshSet demoMeshes()
{
    using namespace Texture;
    SyntheticMeshSet meshes;
    const quint32 crate = meshes.addPointed(SyntheticScene::cubeMesh(Crate));
    meshes.point(crate);
    meshes.addPointed(SyntheticGeometry::mesh(6, -6, {RoofTiles, RoofTiles}, {Bricks45}));
    return meshes;
}

} // namespace

DemoLevel::DemoLevel()
    : m_atlas(TileCount)
{
    drawWallTile();
    drawAnimationTile();
    drawSpriteTiles();
}

// Sixteen wall and floor squares; the grate and the fence are see-through.
void DemoLevel::drawWallTile()
{
    const Surface surfaces[4][4] = {
        {DemoSurfaces::stoneBlocks, DemoSurfaces::bricks, DemoSurfaces::planks, DemoSurfaces::floorTiles},
        {DemoSurfaces::grate, DemoSurfaces::cobbles, DemoSurfaces::sand, DemoSurfaces::mossyStone},
        {DemoSurfaces::treadPlate, DemoSurfaces::marble, DemoSurfaces::grass, DemoSurfaces::chainLinkFence},
        {DemoSurfaces::roofTiles, DemoSurfaces::carpet, DemoSurfaces::ice, DemoSurfaces::crate},
    };
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            m_atlas.addQuad(WallTile, square(column, row), surfaces[row][column]);
    }
}

// Water and lava frames in rows, each cycle one animation range; below them
// triangles and one wide frieze.
void DemoLevel::drawAnimationTile()
{
    QList<int> water;
    for (int frame = 0; frame < DemoLiquids::WaterFrames; ++frame)
        water.append(m_atlas.addQuad(AnimationTile, square(frame, 0), framePainter(DemoLiquids::water, frame)));
    QList<int> lava;
    for (int frame = 0; frame < DemoLiquids::LavaFrames; ++frame)
        lava.append(m_atlas.addQuad(AnimationTile, square(frame, 1), framePainter(DemoLiquids::lava, frame)));
    m_atlas.addAnimationRange(water);
    m_atlas.addAnimationRange(lava);

    m_atlas.addTriangle(AnimationTile, upperLeftHalf(square(0, 2)), DemoSurfaces::stoneBlocks);
    m_atlas.addTriangle(AnimationTile, lowerRightHalf(square(0, 2)), DemoSurfaces::grass);
    m_atlas.addTriangle(AnimationTile, upperLeftHalf(square(1, 2)), DemoSurfaces::roofTiles);
    m_atlas.addTriangle(AnimationTile, lowerRightHalf(square(1, 2)), DemoSurfaces::planks);
    m_atlas.addTriangle(AnimationTile, lowerLeftHalf(square(2, 2)), DemoSurfaces::bricks);
    m_atlas.addTriangle(AnimationTile, upperLeftHalf(square(3, 2)), DemoSurfaces::chainLinkFence);
    m_atlas.addQuad(AnimationTile, QRect(0, 3 * Square, 2 * Square, Square), DemoSurfaces::frieze);
}

// Tile 2: the flame, the turning coin, the pickups and the smoke puff.
// Tile 3: scenery and a glint.
void DemoLevel::drawSpriteTiles()
{
    m_atlas.addSpriteSequence(FlameId, SpriteTile,
                              cellsInRow({0, 0}, DemoSpriteArt::FlameCell, DemoSpriteArt::FlameFrames, 64),
                              DemoSpriteArt::flame, Stand::OnFloor);
    m_atlas.addSpriteSequence(CoinId, SpriteTile,
                              cellsInRow({0, 72}, DemoSpriteArt::CoinCell, DemoSpriteArt::CoinFrames, 32),
                              DemoSpriteArt::coin, Stand::OnFloor);
    m_atlas.addSprite(SmallMedipackId, SpriteTile, QRect({4, 116}, DemoSpriteArt::SmallMedipackCell),
                      DemoSpriteArt::smallMedipack, Stand::OnFloor);
    m_atlas.addSprite(LargeMedipackId, SpriteTile, QRect({58, 112}, DemoSpriteArt::LargeMedipackCell),
                      DemoSpriteArt::largeMedipack, Stand::OnFloor);
    m_atlas.addSprite(KeyId, SpriteTile, QRect({130, 124}, DemoSpriteArt::KeyCell), DemoSpriteArt::key,
                      Stand::OnFloor);
    m_atlas.addSprite(AmmoId, SpriteTile, QRect({196, 116}, DemoSpriteArt::AmmoCell), DemoSpriteArt::ammo,
                      Stand::OnFloor);
    m_atlas.addSpriteSequence(SmokeId, SpriteTile,
                              cellsInRow({4, 184}, DemoSpriteArt::SmokeCell, DemoSpriteArt::SmokeFrames, 50),
                              DemoSpriteArt::smoke, Stand::Floating);

    m_atlas.addSprite(PlantId, SceneryTile, QRect({8, 8}, DemoSpriteArt::PlantCell), DemoSpriteArt::plant,
                      Stand::OnFloor);
    m_atlas.addSprite(CrystalId, SceneryTile, QRect({96, 32}, DemoSpriteArt::CrystalCell), DemoSpriteArt::crystal,
                      Stand::OnFloor);
    m_atlas.addSprite(ReedsId, SceneryTile, QRect({152, 32}, DemoSpriteArt::ReedsCell), DemoSpriteArt::reeds,
                      Stand::OnFloor);
    m_atlas.addSprite(FirId, SceneryTile, QRect({12, 128}, DemoSpriteArt::FirCell), DemoSpriteArt::fir,
                      Stand::OnFloor);
    m_atlas.addSpriteSequence(SparkleId, SceneryTile,
                              cellsInRow({116, 168}, DemoSpriteArt::SparkleCell, DemoSpriteArt::SparkleFrames, 34),
                              DemoSpriteArt::sparkle, Stand::Floating);
}

QByteArray DemoLevel::tiles16() const
{
    return DemoTile16Encoder::encode(bitmap(), DemoColor::SeeThrough);
}

SyntheticLevel DemoLevel::level() const
{
    SyntheticLevel level(LevelVersion::Game::TR2);
    const QByteArray tiles = tiles16();
    const QByteArray palette = DemoPalette::palette();
    level.setTileCount(TileCount, tiles);
    level.setPalette8(palette);
    level.setTiles8(DemoPalette::tiles8(tiles, palette));
    level.setRooms(demoRooms());
    demoMeshes().applyTo(level);
    level.setBlock(SyntheticField::StaticMeshes, SyntheticScene::staticKind(CrateKind, 0));
    level.setObjectTextures(objectTextures());
    level.setSpriteTextures(spriteTextures());
    level.setSpriteSequences(spriteSequences());
    level.setAnimatedTextures(animatedTextures());
    return level;
}

QString DemoLevel::levelPath(const QString& dir)
{
    return QDir(dir).absoluteFilePath(QStringLiteral("demo.tr2"));
}

QString DemoLevel::bitmapPath(const QString& dir)
{
    return QDir(dir).absoluteFilePath(QStringLiteral("demo.bmp"));
}

QString DemoLevel::listPath(const QString& dir)
{
    return QDir(dir).absoluteFilePath(QStringLiteral("demo.trt"));
}

QStringList DemoLevel::paths(const QString& dir)
{
    return {levelPath(dir), bitmapPath(dir), listPath(dir)};
}

bool DemoLevel::writeBitmap(const QString& path, FileError* error) const
{
    FileError failure;
    if (!ImageFile::write(bitmap(), path, "bmp", ReplacingFile::NoOption, failure))
        return fail(error, failure);
    return true;
}

bool DemoLevel::writeInto(const QString& dir, FileError* error)
{
    const QString folder = QDir(dir).absolutePath();
    const QFileInfo folderInfo(folder);
    if (folderInfo.exists() && !folderInfo.isDir())
        return fail(error, FileError::writing(folder, QStringLiteral("not a folder")));
    std::error_code made;
    std::filesystem::create_directories(QFile::encodeName(folder).toStdString(), made);
    if (made)
        return fail(error, FileError(folder, QStringLiteral("cannot be made a folder"),
                                     QString::fromLocal8Bit(made.message())));
    // All three files or none: each is checked before the first is written.
    const QStringList outputs = paths(folder);
    for (qsizetype i = 0; i < outputs.size(); ++i) {
        ReplacingFile output(outputs[i]);
        if (!output.check())
            return fail(error, output.error());
        if (const FileError same = FileIdentity::outputRefusal(outputs[i], outputs.mid(0, i)); same.failed())
            return fail(error, same);
    }

    const DemoLevel demo;
    QString cause;
    if (!demo.level().writeTo(levelPath(folder), &cause))
        return fail(error, FileError::writing(levelPath(folder), cause));
    if (!demo.writeBitmap(bitmapPath(folder), error))
        return false;
    const LevelListExtractor::Result list =
        LevelListExtractor::Extract(levelPath(folder), bitmapPath(folder), listPath(folder));
    if (list.status != LevelListExtractor::Status::Done)
        return fail(error, list.error);
    return true;
}
