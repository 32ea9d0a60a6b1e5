#include "list/ListDocument.h"
#include "render/ListTextures.h"
#include "render/RoomCamera.h"
#include "render/RoomScene.h"
#include "render/TextureTable.h"
#include "render/TileLayers.h"
#include "support/ListFixture.h"
#include "synthetic/SyntheticScene.h"

#include <QBuffer>
#include <QTest>

using Scene = SyntheticScene;

namespace {

LevelGeometry::Face quad(quint16 texture)
{
    return {{0, 1, 2, 3}, 4, texture, false};
}

// A level of one room, its corner at (2048, 0, 1024), with one quad
// (texture 3), one triangle (texture 5), and a one-quad mesh placed twice.
LevelGeometry smallLevel(quint16 rotation)
{
    LevelGeometry geometry;
    LevelGeometry::Room room;
    room.position = {2048, 0, 1024};
    room.vertices = {{0, 0, 0}, {1024, 0, 0}, {1024, 0, 1024}, {0, -1024, 1024}};
    room.faces = {quad(3), {{0, 1, 2, 0}, 3, 5, false}};
    LevelGeometry::Mesh mesh;
    mesh.vertices = {{512, 0, 0}, {0, 0, 512}, {-512, 0, 0}, {0, 0, -512}};
    mesh.faces = {quad(7)};
    geometry.meshes = {mesh};
    room.staticMeshes = {{{4096, 0, 4096}, rotation, 1, 0}, {{0, 0, 0}, 0, 1, 0}};
    geometry.rooms = {room};
    return geometry;
}

} // namespace

// What the renderer is given, checked without drawing: faces laid out as
// triangles in drawing units, the texture table, the tile layers, the camera.
class tst_RoomScene : public QObject
{
    Q_OBJECT

private slots:
    void facesBecomeTriangles()
    {
        const RoomScene scene(smallLevel(0));
        // The quad as two triangles, the triangle as one, each placed quad as two.
        QCOMPARE(scene.vertices().size(), size_t(6 + 3 + 6 + 6));
        QCOMPARE(scene.faces().size(), 4);
        const RoomScene::FaceRef& mesh = scene.faces()[2];
        QCOMPARE(mesh.staticMesh, 0);
        QCOMPARE(mesh.texture, quint16(7));
        // Every vertex names its face and its corner of the texture: quads 0-1-2 and 0-2-3.
        QList<int> corners;
        for (size_t i = 0; i < 6; ++i) {
            QCOMPARE(scene.vertices()[i].face, 0u);
            corners.append(scene.vertices()[i].corner);
        }
        QCOMPARE(corners, (QList<int>{0, 1, 2, 0, 2, 3}));
        QCOMPARE(scene.vertices()[6].face, 1u);
    }

    void levelUnitsBecomeDrawingUnits()
    {
        const RoomScene scene(smallLevel(0));
        // y up and z turned, so the level is neither upside down nor mirrored.
        const RoomScene::DrawVertex& far = scene.vertices()[5]; // corner 3: (0, -1024, 1024) in the room
        QCOMPARE(QVector3D(far.x, far.y, far.z), QVector3D(2, 1, -2));
        QCOMPARE(scene.faces()[0].centre, QVector3D(2.5f, 0.25f, -1.5f));
    }

    void placedMeshesTurnAsTheRoomSays_data()
    {
        QTest::addColumn<quint16>("rotation");
        QTest::addColumn<QVector3D>("firstCorner");
        // The mesh's (512, 0, 0) about the vertical, placed at (4096, 0, 4096).
        QTest::newRow("none") << quint16(0) << QVector3D(4.5f, 0, -4);
        QTest::newRow("quarter") << quint16(0x4000) << QVector3D(4, 0, -3.5f);
        QTest::newRow("half") << quint16(0x8000) << QVector3D(3.5f, 0, -4);
    }

    void placedMeshesTurnAsTheRoomSays()
    {
        QFETCH(quint16, rotation);
        QFETCH(QVector3D, firstCorner);
        const RoomScene scene(smallLevel(rotation));
        const RoomScene::DrawVertex& first = scene.vertices()[9];
        QVERIFY(qFuzzyCompare(QVector3D(first.x, first.y, first.z) + QVector3D(1, 1, 1), firstCorner + QVector3D(1, 1, 1)));
    }

    void nearestFaceUsingATexture()
    {
        const RoomScene scene(smallLevel(0));
        QCOMPARE(scene.nearestFaceUsing(7, QVector3D(4, 0, -4)), std::optional<int>(2));
        QCOMPARE(scene.nearestFaceUsing(7, QVector3D(0, 0, 0)), std::optional<int>(3));
        QCOMPARE(scene.nearestFaceUsing(9, QVector3D()), std::nullopt);
    }

    void boundsHoldEveryFace()
    {
        const RoomScene scene(smallLevel(0));
        const RoomScene::Bounds bounds = scene.levelBounds();
        for (const RoomScene::DrawVertex& v : scene.vertices())
            QVERIFY((QVector3D(v.x, v.y, v.z) - bounds.centre).length() <= bounds.radius + 1e-4f);
        QCOMPARE(RoomScene().levelBounds().radius, 0.0f);
    }

    void cornersTakeTheFarSideOfAPixel_data()
    {
        QTest::addColumn<int>("pixel");
        QTest::addColumn<int>("subPixel");
        QTest::addColumn<float>("edge");
        QTest::newRow("low edge, byte 1") << 64 << 1 << 64.0f;
        QTest::newRow("high edge, byte 255") << 127 << 255 << 128.0f;
        QTest::newRow("byte 127") << 127 << 127 << 127.0f;
        QTest::newRow("byte 128") << 127 << 128 << 128.0f;
        QTest::newRow("last pixel of the tile") << 255 << 255 << 256.0f;
    }

    void cornersTakeTheFarSideOfAPixel()
    {
        QFETCH(int, pixel);
        QFETCH(int, subPixel);
        QFETCH(float, edge);
        ObjectTexture texture;
        texture.setColumn(ObjectTexture::TileColumn, 0x8003); // the top bit is no part of the tile
        texture.setColumn(ObjectTexture::XColumn(2), pixel);
        texture.setColumn(ObjectTexture::XHiColumn(2), subPixel);
        texture.setColumn(ObjectTexture::YColumn(2), pixel);
        texture.setColumn(ObjectTexture::YHiColumn(2), subPixel);
        const auto corner = TextureTable::cornerOf(texture, 2);
        QCOMPARE(corner[0], edge);
        QCOMPARE(corner[1], edge);
        QCOMPARE(corner[2], 3.0f);
    }

    void tableHoldsEveryTextureWhereTheShaderLooks()
    {
        QList<ObjectTexture> textures = Scene(1, 1, 300).objectTextures();
        textures[299].setColumn(ObjectTexture::TransColumn, 2);
        const TextureTable table = TextureTable::build(textures, {}, {299});
        QCOMPARE(table.rows(), 2);
        QCOMPARE(table.textureCount(), 300);
        // Texture 299: row 1, column (299 - 256) * 5; its state texel last.
        const float* texel = table.texels().data() + (size_t(TextureTable::Width) + 43 * 5) * 4;
        QCOMPARE(texel[0], float(textures[299].column(ObjectTexture::XColumn(0))));
        QCOMPARE(texel[2], 18.0f); // tile
        QCOMPARE(texel[16 + 0], 2.0f); // attribute
        QCOMPARE(texel[16 + 1], 1.0f); // highlighted
        QCOMPARE(texel[16 + 2], 1.0f); // present
        QCOMPARE(TextureTable::build({}).rows(), 1);
    }

    void animatedRangesShowTheirNextTexture_data()
    {
        QTest::addColumn<qint64>("frame");
        QTest::addColumn<QList<int>>("shown");
        // Ranges {1, 2, 3} and {5, 4}; texture 0 and 6 in none.
        QTest::newRow("frame 0") << qint64(0) << QList<int>{0, 1, 2, 3, 4, 5, 6};
        QTest::newRow("frame 1") << qint64(1) << QList<int>{0, 2, 3, 1, 5, 4, 6};
        QTest::newRow("frame 2") << qint64(2) << QList<int>{0, 3, 1, 2, 4, 5, 6};
        QTest::newRow("frame 6") << qint64(6) << QList<int>{0, 1, 2, 3, 4, 5, 6};
    }

    void animatedRangesShowTheirNextTexture()
    {
        QFETCH(qint64, frame);
        QFETCH(QList<int>, shown);
        ListDocument document;
        ListFixture fixture;
        fixture.objectTextures = QList<ObjectTexture>(7);
        fixture.animations.ranges = {{1, 2, 3}, {5, 4}, {900}};
        fixture.fill(document.views());
        const ListTextures textures = ListTextures::of(document);
        QCOMPARE(textures.textures.size(), 7);
        QCOMPARE(textures.shownAt(frame), shown);
    }

    void seeThroughTexelsAreCut_data()
    {
        QTest::addColumn<QRgb>("pixel");
        QTest::addColumn<quint16>("texel");
        QTest::newRow("magenta") << qRgb(255, 0, 255) << quint16(0);
        QTest::newRow("alpha 127") << qRgba(255, 255, 255, 127) << quint16(0);
        QTest::newRow("alpha 128") << qRgba(255, 255, 255, 128) << quint16(0xFFFF);
        QTest::newRow("near magenta") << qRgb(255, 8, 255) << quint16(0x8000 | 31 << 10 | 1 << 5 | 31);
        QTest::newRow("black") << qRgb(0, 0, 0) << quint16(0x8000);
    }

    void seeThroughTexelsAreCut()
    {
        QFETCH(QRgb, pixel);
        QFETCH(quint16, texel);
        QCOMPARE(TileLayers::texel(pixel), texel);
    }

    void layersPadALastTileCutShort()
    {
        QImage bitmap(256, 300, QImage::Format_RGB32);
        bitmap.fill(Qt::white);
        const TileLayers layers(bitmap);
        QCOMPARE(layers.count(), 2);
        QCOMPARE(layers.bytes(), qint64(2) * 256 * 256 * 2);
        QCOMPARE(layers.texels()[size_t(299) * 256], quint16(0xFFFF));
        QCOMPARE(layers.texels()[size_t(300) * 256], quint16(0));
    }

    void framingShowsTheWholeSphere()
    {
        const RoomCamera camera = RoomCamera::framing(QVector3D(10, 2, -5), 4);
        const QSize view(640, 480);
        for (const QVector3D& offset : {QVector3D(4, 0, 0), QVector3D(0, 4, 0), QVector3D(0, 0, 4), QVector3D(-4, 0, 0)}) {
            const std::optional<QPointF> at = camera.project(QVector3D(10, 2, -5) + offset, view);
            QVERIFY(at);
            QVERIFY(QRectF(QPointF(), QSizeF(view)).contains(*at));
        }
        QCOMPARE(camera.project(camera.eye() - (camera.target - camera.eye()), view), std::nullopt);
    }
};

QTEST_GUILESS_MAIN(tst_RoomScene)
#include "tst_RoomScene.moc"
