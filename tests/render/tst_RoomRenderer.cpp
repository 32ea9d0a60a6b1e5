#include "list/ListDocument.h"
#include "list/m_TextureList.h"
#include "render/ListTextures.h"
#include "render/OffscreenRooms.h"
#include "render/RoomScene.h"
#include "render/TextureTable.h"
#include "render/TileLayers.h"
#include "support/ListFixture.h"
#include "synthetic/SyntheticScene.h"

#include <QBuffer>
#include <QTest>
#include <QUndoStack>

using Scene = SyntheticScene;

namespace {

const QSize ViewSize(320, 240);

LevelGeometry geometryOf(const Scene& scene)
{
    QByteArray bytes = scene.level(LevelVersion::Game::TR2).build();
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return LevelGeometry::ofDevice(buffer, LevelWalk::Game::TR2);
}

// Tiles keep five bits a channel: a colour comes back within 8 of itself.
bool near(QRgb drawn, QColor expected)
{
    return qAbs(qRed(drawn) - expected.red()) <= 8 && qAbs(qGreen(drawn) - expected.green()) <= 8
        && qAbs(qBlue(drawn) - expected.blue()) <= 8;
}

QString colourText(QRgb colour)
{
    return QColor(colour).name();
}

} // namespace

// One room of 3 x 3 floor squares with walls and a cube, drawn from the
// camera that frames it; every test sets the textures and tiles it needs.
class tst_RoomRenderer : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void quadLandsWithItsTexture_data();
    void quadLandsWithItsTexture();
    void seeThroughTexelIsCut_data();
    void seeThroughTexelIsCut();
    void pickFindsNothingOnTheBackground();
    void highlightTintsExactlyItsFaces();
    void editedRectangleChangesOnlyItsFaces();
    void undoBringsThePictureBack();
    void blendedTextureAddsToWhatLiesBehind();
    void tilesTakeNoMoreThanTheBitmap();

private:
    QImage draw() { return m_view->render(m_camera); }
    void useTextures(const QList<ObjectTexture>& textures, const QSet<int>& highlighted = {});
    void useBitmap(const QImage& bitmap);
    QPoint pixelOfFace(int face) const;
    QList<int> facesUsing(int texture) const;
    void verifyChangedExactlyWhere(const QImage& before, const QImage& after, int texture);

    Scene m_scene{1, 3, 12};
    RoomScene m_rooms;
    RoomCamera m_camera;
    std::unique_ptr<OffscreenRooms> m_view;
};

void tst_RoomRenderer::initTestCase()
{
    m_view = std::make_unique<OffscreenRooms>(ViewSize);
    QString why;
    if (!m_view->create(&why))
        QSKIP(qPrintable(why));
    m_rooms = RoomScene(geometryOf(m_scene));
    QCOMPARE(m_rooms.faces().size(), 9 + 12 + 6);
    m_view->makeCurrent();
    m_view->renderer().setScene(m_rooms);
    const RoomScene::Bounds bounds = m_rooms.levelBounds();
    m_camera = RoomCamera::framing(bounds.centre, bounds.radius);
}

void tst_RoomRenderer::init()
{
    useTextures(m_scene.objectTextures());
    useBitmap(m_scene.bitmap());
}

void tst_RoomRenderer::useTextures(const QList<ObjectTexture>& textures, const QSet<int>& highlighted)
{
    m_view->makeCurrent();
    m_view->renderer().setTextures(TextureTable::build(textures, {}, highlighted));
}

void tst_RoomRenderer::useBitmap(const QImage& bitmap)
{
    m_view->makeCurrent();
    m_view->renderer().setTiles(TileLayers(bitmap));
}

QPoint tst_RoomRenderer::pixelOfFace(int face) const
{
    const std::optional<QPointF> at = m_camera.project(m_rooms.faces()[face].centre, ViewSize);
    return at ? at->toPoint() : QPoint(-1, -1);
}

QList<int> tst_RoomRenderer::facesUsing(int texture) const
{
    QList<int> faces;
    for (int f = 0; f < m_rooms.faces().size(); ++f) {
        if (m_rooms.faces()[f].texture == texture)
            faces.append(f);
    }
    return faces;
}

// Every pixel that changed shows a face using texture, and every pixel of
// such a face changed.
void tst_RoomRenderer::verifyChangedExactlyWhere(const QImage& before, const QImage& after, int texture)
{
    const QList<int> faces = m_view->faceNumbers(m_camera);
    const QList<int> using_ = facesUsing(texture);
    int changed = 0;
    for (int y = 0; y < ViewSize.height(); ++y) {
        for (int x = 0; x < ViewSize.width(); ++x) {
            const int face = faces[y * ViewSize.width() + x];
            const bool differs = before.pixel(x, y) != after.pixel(x, y);
            const bool uses = face >= 0 && using_.contains(face);
            if (differs != uses)
                QFAIL(qPrintable(QStringLiteral("pixel %1,%2 (face %3) %4").arg(x).arg(y).arg(face).arg(
                    differs ? "changed" : "did not change")));
            changed += differs;
        }
    }
    QVERIFY(changed > 0);
}

void tst_RoomRenderer::quadLandsWithItsTexture_data()
{
    QTest::addColumn<int>("face");
    // Floor squares are faces 0 to 8, row by row (the cube stands on 4); 9
    // to 20 the walls, four at a time round the room; the cube's last, its top 23.
    for (int face : {0, 2, 6, 8})
        QTest::addRow("floor %d", face) << face;
    QTest::newRow("far wall") << 11;
    QTest::newRow("cube top") << 9 + 12 + 2;
}

void tst_RoomRenderer::quadLandsWithItsTexture()
{
    QFETCH(int, face);
    const QImage image = draw();
    const QPoint pixel = pixelOfFace(face);
    QVERIFY(QRect(QPoint(), ViewSize).contains(pixel));
    QCOMPARE(m_view->pick(m_camera, pixel), std::optional<int>(face));
    const int texture = m_rooms.faces()[face].texture;
    QVERIFY2(near(image.pixel(pixel), Scene::colorOf(texture)),
             qPrintable(colourText(image.pixel(pixel)) + " for " + Scene::colorOf(texture).name()));
}

void tst_RoomRenderer::seeThroughTexelIsCut_data()
{
    QTest::addColumn<QColor>("key");
    QTest::newRow("magenta") << QColor(Qt::magenta);
    QTest::newRow("alpha below 128") << QColor(10, 200, 30, 127);
}

void tst_RoomRenderer::seeThroughTexelIsCut()
{
    QFETCH(QColor, key);
    const int face = 0; // a corner of the floor, nothing behind it but the background
    const int texture = m_rooms.faces()[face].texture;
    const QPoint pixel = pixelOfFace(face);
    QCOMPARE(m_view->pick(m_camera, pixel), std::optional<int>(face));

    // The whole of the texture's square see-through.
    QImage bitmap = m_scene.bitmap().convertToFormat(QImage::Format_ARGB32);
    const int cell = texture % 16;
    for (int y = 0; y < Scene::CellSize; ++y) {
        for (int x = 0; x < Scene::CellSize; ++x)
            bitmap.setPixelColor(cell % 4 * Scene::CellSize + x, texture / 16 * 256 + cell / 4 * Scene::CellSize + y, key);
    }
    useBitmap(bitmap);
    const QImage image = draw();
    QVERIFY(!near(image.pixel(pixel), Scene::colorOf(texture)));
    QCOMPARE(image.pixel(pixel), m_view->renderer().background.rgb());
    QCOMPARE(m_view->pick(m_camera, pixel), std::nullopt);
}

void tst_RoomRenderer::pickFindsNothingOnTheBackground()
{
    const QImage image = draw();
    QCOMPARE(image.pixel(0, 0), m_view->renderer().background.rgb());
    QCOMPARE(m_view->pick(m_camera, QPoint(0, 0)), std::nullopt);
    QCOMPARE(m_view->pick(m_camera, QPoint(-1, 5)), std::nullopt);
    QCOMPARE(m_view->pick(m_camera, QPoint(ViewSize.width(), 5)), std::nullopt);
}

void tst_RoomRenderer::highlightTintsExactlyItsFaces()
{
    const QImage plain = draw();
    const int texture = m_rooms.faces()[0].texture;
    useTextures(m_scene.objectTextures(), {texture});
    verifyChangedExactlyWhere(plain, draw(), texture);
}

void tst_RoomRenderer::editedRectangleChangesOnlyItsFaces()
{
    const QImage before = draw();
    QList<ObjectTexture> edited = m_scene.objectTextures();
    // The walls' rectangle moved onto the square of texture 5.
    const int walls = Scene::WallTexture;
    for (int c = 0; c < 4; ++c) {
        edited[walls].setColumn(ObjectTexture::XColumn(c), edited[5].column(ObjectTexture::XColumn(c)));
        edited[walls].setColumn(ObjectTexture::YColumn(c), edited[5].column(ObjectTexture::YColumn(c)));
    }
    useTextures(edited);
    verifyChangedExactlyWhere(before, draw(), walls);
}

void tst_RoomRenderer::undoBringsThePictureBack()
{
    ListDocument document;
    ListFixture fixture;
    fixture.objectTextures = m_scene.objectTextures();
    fixture.fill(document.views());
    const auto drawDocument = [this, &document] {
        useTextures(ListTextures::of(document).textures);
        return draw();
    };
    const QImage original = drawDocument();

    const int texture = m_rooms.faces()[0].texture;
    const TextureEntry& entry = document.tables().textures.at(texture);
    ObjectTexture moved = entry.record;
    moved.setColumn(ObjectTexture::XColumn(0), 200);
    moved.setColumn(ObjectTexture::XColumn(3), 200);
    QVERIFY(document.EditTexture(entry.number, moved));
    const QImage edited = drawDocument();
    QVERIFY(edited != original);

    document.undoStack()->undo();
    QCOMPARE(drawDocument(), original);
    document.undoStack()->redo();
    QCOMPARE(drawDocument(), edited);
}

void tst_RoomRenderer::blendedTextureAddsToWhatLiesBehind()
{
    QList<ObjectTexture> textures = m_scene.objectTextures();
    const int face = 0;
    const int texture = m_rooms.faces()[face].texture;
    textures[texture].setColumn(ObjectTexture::TransColumn, TextureTable::BlendedAttribute);
    useTextures(textures);
    const QPoint pixel = pixelOfFace(face);
    // Seen from above the corner square has nothing behind it but the background.
    const QColor background = m_view->renderer().background;
    const QColor own = Scene::colorOf(texture);
    const QColor sum(qMin(255, background.red() + own.red()), qMin(255, background.green() + own.green()),
                     qMin(255, background.blue() + own.blue()));
    const QRgb drawn = draw().pixel(pixel);
    QVERIFY2(near(drawn, sum), qPrintable(colourText(drawn) + " for " + sum.name()));
}

void tst_RoomRenderer::tilesTakeNoMoreThanTheBitmap()
{
    const QImage bitmap = m_scene.bitmap();
    QVERIFY(m_view->renderer().tileBytes() <= qint64(bitmap.width()) * bitmap.height() * 3 * 11 / 10);
    QCOMPARE(m_view->renderer().tileBytes(), qint64(256) * 256 * 2 * m_scene.tileCount());
}

QTEST_MAIN(tst_RoomRenderer)
#include "tst_RoomRenderer.moc"
