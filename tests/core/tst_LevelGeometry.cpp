#include "level/LevelGeometry.h"
#include "level/TextureUsage.h"
#include "support/ScratchDir.h"
#include "synthetic/SyntheticGeometry.h"
#include "synthetic/SyntheticMeshSet.h"
#include "synthetic/SyntheticScene.h"

#include <QBuffer>
#include <QTest>

#include <set>

using Game = LevelVersion::Game;
using Geometry = SyntheticGeometry;
using Scene = SyntheticScene;

Q_DECLARE_METATYPE(SyntheticLevel)

namespace {

LevelWalk::Game walkGame(Game game)
{
    return game == Game::TR3 ? LevelWalk::Game::TR3 : LevelWalk::Game::TR2;
}

LevelGeometry geometryOf(const QByteArray& bytes, Game game)
{
    QByteArray copy = bytes;
    QBuffer buffer(&copy);
    buffer.open(QIODevice::ReadOnly);
    return LevelGeometry::ofDevice(buffer, walkGame(game));
}

// A level of one room holding data, with textures object textures; the
// room's bytes are followed by a portal, which a reader running past its
// data words would take for faces.
SyntheticLevel oneRoom(Game game, const QByteArray& data, int textures = 10)
{
    SyntheticLevel level(game);
    SyntheticRoom room = SyntheticRoom::holding(data);
    room.portals = 1;
    level.setRooms({room});
    level.setObjectTextures(QList<ObjectTexture>(textures));
    return level;
}

QList<Geometry::Point> squareCorners()
{
    return {{0, 0, 0}, {1024, 0, 0}, {1024, 0, 1024}, {0, 0, 1024}};
}

std::set<int> roomTextures(const LevelGeometry& geometry)
{
    std::set<int> textures;
    for (const LevelGeometry::Room& room : geometry.rooms) {
        for (const LevelGeometry::Face& face : room.faces)
            textures.insert(face.texture);
    }
    return textures;
}

} // namespace

class tst_LevelGeometry : public QObject
{
    Q_OBJECT

private slots:
    void sceneReadsAsLaid_data();
    void sceneReadsAsLaid();
    void facesKeepCornersAndFlags();
    void hostileFacesSkipped_data();
    void hostileFacesSkipped();
    void staticMeshesThatCannotBePlaced_data();
    void staticMeshesThatCannotBePlaced();
    void cutLevelGivesWhatItHolds();
    void agreesWithUsage();
    void levelFileOnDisk();
};

void tst_LevelGeometry::sceneReadsAsLaid_data()
{
    QTest::addColumn<Game>("game");
    QTest::newRow("TR2") << Game::TR2;
    QTest::newRow("TR3") << Game::TR3;
}

void tst_LevelGeometry::sceneReadsAsLaid()
{
    QFETCH(Game, game);
    const Scene scene(3, 4, 20);
    const LevelGeometry geometry = geometryOf(scene.level(game).build(), game);

    QVERIFY(geometry.complete);
    QCOMPARE(geometry.skippedFaces, 0);
    QCOMPARE(geometry.notes, QStringList());
    QCOMPARE(geometry.rooms.size(), 3);
    QCOMPARE(geometry.meshes.size(), 1); // one cube, read once for all three placements
    for (int r = 0; r < 3; ++r) {
        const LevelGeometry::Room& room = geometry.rooms[r];
        QCOMPARE(room.position, (LevelGeometry::Vertex{Scene::roomX(r, 4), 0, 0}));
        QCOMPARE(room.vertices.size(), 2 * 5 * 5);
        QCOMPARE(room.faces.size(), 4 * 4 + 4 * 4);
        // The floor quad in column 2, row 3, and its far corner.
        const LevelGeometry::Face& floor = room.faces[3 * 4 + 2];
        QCOMPARE(floor.texture, scene.floorTexture(r, 2, 3));
        QCOMPARE(room.vertices[floor.corners[2]], (LevelGeometry::Vertex{3 * 1024, 0, 4 * 1024}));
        QCOMPARE(room.faces.last().texture, Scene::WallTexture);

        QCOMPARE(room.staticMeshes.size(), 1);
        const LevelGeometry::StaticMesh& placed = room.staticMeshes.first();
        QCOMPARE(placed.position, (LevelGeometry::Vertex{Scene::roomX(r, 4) + 2048, 0, 2048}));
        QCOMPARE(placed.rotation, quint16(r * 0x2000));
        QCOMPARE(placed.kind, quint16(Scene::CubeKind));
    }
    const LevelGeometry::Mesh& cube = geometry.meshes.first();
    QCOMPARE(cube.vertices.size(), 8);
    QCOMPARE(cube.faces.size(), 6);
    QCOMPARE(cube.vertices[1], (LevelGeometry::Vertex{256, -512, -256}));
    QCOMPARE(geometry.faceCount(), 3 * (32 + 6));
}

void tst_LevelGeometry::facesKeepCornersAndFlags()
{
    const QByteArray data = Geometry()
                                .points(squareCorners(), Geometry::RoomVertexSize)
                                .faceList({{{3, 2, 1, 0}, quint16(Geometry::DoubleSided | 5)}}, 4)
                                .faceList({{{0, 1, 2}, 7}}, 3)
                                .count(0)
                                .bytes();
    const LevelGeometry geometry = geometryOf(oneRoom(Game::TR2, data).build(), Game::TR2);
    const QList<LevelGeometry::Face> faces = geometry.rooms.first().faces;
    QCOMPARE(faces.size(), 2);
    QCOMPARE(faces[0], (LevelGeometry::Face{{3, 2, 1, 0}, 4, 5, true}));
    QCOMPARE(faces[1], (LevelGeometry::Face{{0, 1, 2, 0}, 3, 7, false}));
}

void tst_LevelGeometry::hostileFacesSkipped_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<int>("kept");
    QTest::addColumn<QStringList>("notes");

    const auto room = [](const QList<Geometry::Face>& quads, const QList<Geometry::Face>& triangles) {
        return Geometry()
            .points(squareCorners(), Geometry::RoomVertexSize)
            .faceList(quads, 4)
            .faceList(triangles, 3)
            .count(0)
            .bytes();
    };
    QTest::newRow("vertex past the room's") << room({{{0, 1, 2, 4}, 1}, {{0, 1, 2, 3}, 1}, {{9, 0, 0, 0}, 1}},
                                                    {{{0, 1, 4}, 1}})
                                            << 1 << QStringList{"room 0: 3 faces skipped: vertex past the room's 4"};
    QTest::newRow("texture past the level's") << room({{{0, 1, 2, 3}, 10}}, {{{0, 1, 2}, 9}, {{0, 1, 2}, 0x7FFF}})
                                              << 1 << QStringList{"room 0: 2 faces skipped: texture past the level's 10"};
    QTest::newRow("both") << room({{{0, 1, 2, 7}, 1}}, {{{0, 1, 2}, 12}})
                          << 0
                          << QStringList{"room 0: 1 face skipped: vertex past the room's 4",
                                         "room 0: 1 face skipped: texture past the level's 10"};
    // A count of 0xFFFF is -1: a list of nothing, so every face points past it.
    QTest::newRow("65,535 vertices") << Geometry().count(-1).faceList({{{0, 1, 2, 3}, 1}}, 4).count(0).count(0).bytes()
                                     << 0 << QStringList{"room 0: 1 face skipped: vertex past the room's 0"};
    QTest::newRow("faces claimed past the data")
        << Geometry().points(squareCorners(), Geometry::RoomVertexSize).count(30000).bytes() << 0 << QStringList{};
}

void tst_LevelGeometry::hostileFacesSkipped()
{
    QFETCH(QByteArray, data);
    QFETCH(int, kept);
    QFETCH(QStringList, notes);
    for (Game game : {Game::TR2, Game::TR3}) {
        const LevelGeometry geometry = geometryOf(oneRoom(game, data).build(), game);
        QCOMPARE(geometry.rooms.size(), 1);
        QCOMPARE(geometry.rooms.first().faces.size(), kept);
        QCOMPARE(geometry.notes, notes);
        for (const LevelGeometry::Face& face : geometry.rooms.first().faces)
            QVERIFY(face.texture < 10);
    }
}

void tst_LevelGeometry::staticMeshesThatCannotBePlaced_data()
{
    QTest::addColumn<quint16>("kind");
    QTest::addColumn<QByteArray>("pointers");
    QTest::addColumn<QString>("note");

    QByteArray pastTheData(4, '\0');
    pastTheData[1] = 0x40; // 16,384: beyond the one cube's bytes
    QTest::newRow("placed") << quint16(Scene::CubeKind) << QByteArray(4, '\0') << QString();
    QTest::newRow("kind the level lacks") << quint16(3) << QByteArray(4, '\0')
                                          << "room 0: static mesh 3 skipped: not among the level's 1 static meshes";
    QTest::newRow("mesh past the pointers") << quint16(Scene::CubeKind) << QByteArray()
                                            << "room 0: static mesh 7 skipped: mesh 0 past the level's 0";
    QTest::newRow("pointer past the mesh data") << quint16(Scene::CubeKind) << pastTheData
                                                << "room 0: static mesh 7 skipped: mesh 0 points past the mesh data";
}

void tst_LevelGeometry::staticMeshesThatCannotBePlaced()
{
    QFETCH(quint16, kind);
    QFETCH(QByteArray, pointers);
    QFETCH(QString, note);

    SyntheticLevel level = oneRoom(Game::TR3, Scene(1, 1, 2).roomData(0));
    SyntheticRoom room = level.rooms().first();
    room.staticMeshes = 2;
    room.placements = Scene::placement(10, 20, 30, 0x4000, kind) + Scene::placement(40, 50, 60, 0, kind);
    level.setRooms({room});
    SyntheticMeshSet meshes;
    meshes.add(Scene::cubeMesh());
    meshes.applyTo(level);
    level.setBlock(SyntheticField::MeshPointers, pointers);
    level.setBlock(SyntheticField::StaticMeshes, Scene::staticKind(Scene::CubeKind, 0));

    const LevelGeometry geometry = geometryOf(level.build(), Game::TR3);
    const bool placed = note.isEmpty();
    QCOMPARE(geometry.rooms.first().staticMeshes.size(), placed ? 2 : 0);
    QCOMPARE(geometry.skippedStaticMeshes, placed ? 0 : 2);
    const QStringList expected = placed ? QStringList() : QStringList{note, note};
    QCOMPARE(geometry.notes, expected);
    QCOMPARE(geometry.meshes.size(), placed ? 1 : 0);
    if (placed) {
        QCOMPARE(geometry.rooms.first().staticMeshes.first().position, (LevelGeometry::Vertex{10, 20, 30}));
        QCOMPARE(geometry.rooms.first().staticMeshes.first().rotation, quint16(0x4000));
    }
}

void tst_LevelGeometry::cutLevelGivesWhatItHolds()
{
    const SyntheticLevel level = Scene(4, 3, 8).level(Game::TR2);
    const QByteArray bytes = level.build();
    const qint64 inThirdRoom = level.layout().rooms[2] + 40;
    for (qint64 cut : {qint64(0), qint64(100), inThirdRoom, qint64(bytes.size() - 1)}) {
        const LevelGeometry geometry = geometryOf(bytes.left(cut), Game::TR2);
        QVERIFY2(!geometry.complete, qPrintable(QString::number(cut)));
        QVERIFY(geometry.rooms.size() <= 4);
        for (const LevelGeometry::Room& room : geometry.rooms) {
            for (const LevelGeometry::Face& face : room.faces) {
                for (int c = 0; c < face.cornerCount; ++c)
                    QVERIFY(face.corners[c] < room.vertices.size());
            }
        }
    }
    // Cut inside the third room: the first two whole, the third without its faces.
    const LevelGeometry geometry = geometryOf(bytes.left(inThirdRoom), Game::TR2);
    QCOMPARE(geometry.rooms.size(), 4);
    QCOMPARE(geometry.rooms[1].faces.size(), 9 + 12);
    QCOMPARE(geometry.rooms[2].faces.size(), 0);
}

void tst_LevelGeometry::agreesWithUsage()
{
    const QByteArray bytes = Scene(5, 3, 30).level(Game::TR3).build();
    QByteArray copy = bytes;
    QBuffer buffer(&copy);
    buffer.open(QIODevice::ReadOnly);
    const TextureUsage usage = TextureUsage::ofDevice(buffer, LevelWalk::Game::TR3);
    const std::set<int> fromGeometry = roomTextures(geometryOf(bytes, Game::TR3));
    QCOMPARE(QList<int>(fromGeometry.begin(), fromGeometry.end()), usage.polygons);
    QCOMPARE(usage.objects, QList<int>{Scene::CubeTexture});
}

void tst_LevelGeometry::levelFileOnDisk()
{
    ScratchDir dir;
    const QString path = dir.write("rooms.tr2", Scene(2, 2, 4).level(Game::TR2).build());
    const std::optional<LevelGeometry> geometry = LevelGeometry::ofLevel(path);
    QVERIFY(geometry);
    QCOMPARE(geometry->rooms.size(), 2);

    FileError error;
    QVERIFY(!LevelGeometry::ofLevel(dir.write("list.txt", "not a level"), &error));
    QVERIFY(!error.text().isEmpty());
}

QTEST_GUILESS_MAIN(tst_LevelGeometry)
#include "tst_LevelGeometry.moc"
