#include "support/ScratchDir.h"
#include "synthetic/SyntheticGeometry.h"
#include "synthetic/SyntheticLevel.h"
#include "synthetic/SyntheticMeshSet.h"
#include "level/TextureUsage.h"
#include "list/LevelUsageCache.h"

#include <QFile>
#include <QTest>

using Game = LevelVersion::Game;
using Field = SyntheticField;
using Geometry = SyntheticGeometry;
using Indices = QList<int>;

Q_DECLARE_METATYPE(SyntheticLevel)

namespace {

constexpr quint16 DoubleSided = SyntheticGeometry::DoubleSided;

// A level of either game with objectTextures object textures and rooms of
// the given data; everything else is added by the rows.
SyntheticLevel levelWith(Game game, int objectTextures, const QList<QByteArray>& rooms)
{
    SyntheticLevel level(game);
    level.setObjectTextures(QList<ObjectTexture>(objectTextures));
    level.setSpriteTextures(QList<SpriteTexture>(40));
    QList<SyntheticRoom> laid;
    for (const QByteArray& data : rooms) {
        SyntheticRoom room = SyntheticRoom::holding(data);
        room.portals = 1; // bytes after the data words that a reader running past them would take for faces
        laid.append(room);
    }
    level.setRooms(laid);
    return level;
}

Indices range(int first, int last, const Indices& without = {})
{
    Indices indices;
    for (int i = first; i <= last; ++i) {
        if (!without.contains(i))
            indices.append(i);
    }
    return indices;
}

QList<SpriteSequence> sequences(const QList<QPair<int, int>>& firstAndNumber)
{
    QList<SpriteSequence> records;
    for (const auto& [first, number] : firstAndNumber) {
        SpriteSequence sequence;
        sequence.first = qint16(first);
        sequence.setNumber(number);
        records.append(sequence);
    }
    return records;
}

// Four meshes, three of them pointed at, one of those by three pointers;
// their normal counts positive, negative and zero.
SyntheticMeshSet sharedMeshes()
{
    SyntheticMeshSet meshes;
    const quint32 first = meshes.addPointed(Geometry::mesh(4, 4, {10}, {11}));
    meshes.addPointed(Geometry::mesh(3, -3, {12}, {}));
    meshes.add(Geometry::mesh(3, 3, {14}, {15})); // no pointer: not a mesh the level uses
    meshes.addPointed(Geometry::mesh(1, 0, {}, {13, 13}));
    meshes.point(first);
    meshes.point(first);
    return meshes;
}

} // namespace

class tst_TextureUsage : public QObject
{
    Q_OBJECT

    ScratchDir m_dir;

    TextureUsage usageOf(const QByteArray& level)
    {
        const QString path = m_dir.write(QStringLiteral("level.tr2"), level);
        FileError error;
        const std::optional<TextureUsage> usage = TextureUsage::ofLevel(path, &error);
        if (!usage)
            qWarning("%s", qPrintable(error.text()));
        return usage.value_or(TextureUsage{});
    }

    void addRows(Game game)
    {
        const char* name = game == Game::TR2 ? "TR2" : "TR3";
        const auto row = [&](const char* what) -> QTestData& { return QTest::addRow("%s %s", name, what); };

        SyntheticLevel rooms = levelWith(game, 12, {Geometry::room(4, {3, 1}, {5}, {7}), Geometry::room(2, {1, 9}, {}, {2, 7})});
        row("room faces and sprites") << rooms.build() << Indices{1, 3, 5, 9} << Indices{} << Indices{2, 7}
                                      << range(0, 11, {1, 3, 5, 9});

        SyntheticLevel doubleSided = levelWith(game, 8, {Geometry::room(3, {DoubleSided | 4}, {DoubleSided | 2}, {DoubleSided | 6})});
        SyntheticMeshSet mesh;
        mesh.addPointed(Geometry::mesh(3, 3, {DoubleSided | 6}, {}));
        mesh.applyTo(doubleSided);
        row("double-sided faces") << doubleSided.build() << Indices{2, 4} << Indices{6} << Indices{DoubleSided | 6}
                                  << Indices{0, 1, 3, 5, 7};

        SyntheticLevel shared = levelWith(game, 16, {});
        sharedMeshes().applyTo(shared);
        row("shared meshes, normals and lights") << shared.build() << Indices{} << Indices{10, 11, 12, 13} << Indices{}
                                                 << range(0, 15, {10, 11, 12, 13});

        SyntheticLevel sprites = levelWith(game, 0, {Geometry::room(1, {}, {}, {30})});
        sprites.setSpriteSequences(sequences({{4, 3}, {6, 2}, {20, 1}, {-2, 3}, {25, 0}}));
        row("sequences and room sprites") << sprites.build() << Indices{} << Indices{} << Indices{0, 4, 5, 6, 7, 20, 30}
                                          << Indices{};

        SyntheticLevel longSequences = levelWith(game, 0, {});
        longSequences.setSpriteSequences(sequences({{130, 2}, {60, 10}, {128, 64}, {32000, 32767}}));
        row("long and overlapping sequences") << longSequences.build() << Indices{} << Indices{}
                                              << range(60, 69) + range(128, 191) + range(32000, 64766) << Indices{};

        SyntheticLevel animated = levelWith(game, 10, {Geometry::room(3, {0}, {}, {})});
        animated.setAnimatedTextures({{{2, 3}, {8}, {0}}});
        row("animated ranges") << animated.build() << Indices{0} << Indices{} << Indices{} << Indices{1, 4, 5, 6, 7, 9};
    }

private slots:
    void usage_data()
    {
        QTest::addColumn<QByteArray>("level");
        QTest::addColumn<Indices>("polygons");
        QTest::addColumn<Indices>("objects");
        QTest::addColumn<Indices>("sprites");
        QTest::addColumn<Indices>("unused");
        addRows(Game::TR2);
        addRows(Game::TR3);
    }

    void usage()
    {
        QFETCH(QByteArray, level);
        const TextureUsage usage = usageOf(level);
        QTEST(usage.polygons, "polygons");
        QTEST(usage.objects, "objects");
        QTEST(usage.sprites, "sprites");
        QTEST(usage.unused, "unused");
    }

    void hostile_data()
    {
        QTest::addColumn<QByteArray>("level");
        QTest::addColumn<Indices>("polygons");
        QTest::addColumn<Indices>("objects");

        const QByteArray overlong = Geometry().vertices(0, Geometry::RoomVertexSize).count(1000).bytes()
                                  + Geometry().rectangles({6}).bytes().mid(2);
        QTest::newRow("rectangles claimed past the room's words")
            << levelWith(Game::TR2, 0, {overlong, Geometry::room(1, {8}, {})}).build() << Indices{6, 8} << Indices{};

        const QByteArray negative = Geometry().count(-3).rectangles({4}).count(-1).sprites({}).bytes();
        QTest::newRow("negative room counts hold nothing")
            << levelWith(Game::TR3, 0, {negative}).build() << Indices{4} << Indices{};

        QTest::newRow("vertex index past the vertices")
            << levelWith(Game::TR2, 0, {Geometry().vertices(2, Geometry::RoomVertexSize).rectangles({3}, 500).triangles({}).sprites({}).bytes()}).build()
            << Indices{3} << Indices{};

        SyntheticLevel pointers = levelWith(Game::TR3, 0, {});
        SyntheticMeshSet meshes;
        meshes.addPointed(Geometry::mesh(2, 2, {5}, {}));
        const quint32 last = meshes.add(Geometry().meshHeader().vertices(1, 6).normals(1).count(2000).bytes()
                                        + Geometry().rectangles({7}).bytes().mid(2));
        meshes.point(last);
        meshes.point(quint32(meshes.data().size()));
        meshes.point(0xFFFFFFF0);
        meshes.applyTo(pointers);
        QTest::newRow("mesh pointers past the data, faces claimed past it")
            << pointers.build() << Indices{} << Indices{5, 7};

        SyntheticLevel hugeRoom = levelWith(Game::TR2, 0, {Geometry::room(1, {2}, {})});
        SyntheticRoom huge;
        huge.dataWords = 0xFFFFFFFF;
        huge.countsOnly = true;
        hugeRoom.setRooms(hugeRoom.rooms() + QList<SyntheticRoom>{huge});
        QTest::newRow("room data count 0xFFFFFFFF") << hugeRoom.build() << Indices{2} << Indices{};

        SyntheticLevel hugePointers = levelWith(Game::TR3, 0, {});
        SyntheticMeshSet pointed;
        pointed.addPointed(Geometry::mesh(1, 1, {20}, {}));
        pointed.applyTo(hugePointers);
        hugePointers.overrideCount(Field::MeshPointers, 0xFFFFFFFF);
        QTest::newRow("mesh pointer count 0xFFFFFFFF") << hugePointers.build() << Indices{} << Indices{};

        SyntheticLevel cutRoom = levelWith(Game::TR3, 0, {Geometry::room(0, {1, 2}, {})});
        const qint64 secondRectangle = cutRoom.layout().rooms[0] + 16 + 4 + 2 + 2 + Geometry::RectangleSize;
        QTest::newRow("cut inside a room's faces") << cutRoom.build().left(secondRectangle + 4) << Indices{1} << Indices{};

        SyntheticLevel cutPointers = levelWith(Game::TR2, 0, {Geometry::room(1, {1}, {})});
        SyntheticMeshSet cutMeshes;
        cutMeshes.addPointed(Geometry::mesh(1, 1, {20}, {}));
        cutMeshes.addPointed(Geometry::mesh(1, 1, {}, {21}));
        cutMeshes.applyTo(cutPointers);
        const qint64 secondPointer = cutPointers.layout().at(Field::MeshPointers) + 4 + 4;
        QTest::newRow("cut inside the mesh pointers") << cutPointers.build().left(secondPointer + 2) << Indices{1} << Indices{20};
    }

    // Nothing beyond the bytes a list's count can rightly claim is read.
    void hostile()
    {
        QFETCH(QByteArray, level);
        const TextureUsage usage = usageOf(level);
        QTEST(usage.polygons, "polygons");
        QTEST(usage.objects, "objects");
    }

    void refused_data()
    {
        QTest::addColumn<QByteArray>("level");
        QTest::addColumn<QString>("cause");
        QTest::newRow("TR1") << QByteArray::fromHex("20000000") << "not a TR2 or TR3 level (version 00000020)";
        QTest::newRow("unknown") << QByteArray::fromHex("01020304") << "not a TR2 or TR3 level (version 04030201)";
    }

    void refused()
    {
        QFETCH(QByteArray, level);
        QFETCH(QString, cause);
        FileError error;
        QVERIFY(!TextureUsage::ofLevel(m_dir.write(QStringLiteral("refused.tr2"), level), &error));
        QCOMPARE(error.why(), cause);
        QVERIFY(!TextureUsage::ofLevel(m_dir.filePath(QStringLiteral("missing.tr2")), &error));
        QVERIFY(error.file().endsWith(QStringLiteral("missing.tr2")));
    }

    // What a deletion asks about: how many faces, sprites and sequences name
    // a texture, and the textures after it.
    void counts_data()
    {
        QTest::addColumn<QByteArray>("level");
        QTest::addColumn<int>("index");
        QTest::addColumn<qint64>("facesOn");
        QTest::addColumn<qint64>("facesFrom");
        QTest::addColumn<qint64>("roomSpritesFrom");
        QTest::addColumn<qint64>("sequencesFrom");
        const QByteArray rooms =
            levelWith(Game::TR2, 12, {Geometry::room(4, {3, 1}, {5}, {7}), Geometry::room(2, {1, 9}, {}, {2, 7})})
                .build();
        QTest::newRow("a texture on two rooms' faces") << rooms << 1 << qint64(2) << qint64(5) << qint64(3)
                                                       << qint64(0);
        QTest::newRow("a texture no face names") << rooms << 4 << qint64(0) << qint64(2) << qint64(2) << qint64(0);
        QTest::newRow("past every texture") << rooms << 10 << qint64(0) << qint64(0) << qint64(0) << qint64(0);
        SyntheticLevel shared = levelWith(Game::TR3, 16, {Geometry::room(1, {13}, {})});
        sharedMeshes().applyTo(shared);
        QTest::newRow("a mesh pointed at three times counts once")
            << shared.build() << 10 << qint64(1) << qint64(6) << qint64(0) << qint64(0);
        QTest::newRow("faces of a room and of meshes") << shared.build() << 13 << qint64(3) << qint64(3) << qint64(0)
                                                       << qint64(0);
        SyntheticLevel sprites = levelWith(Game::TR3, 0, {Geometry::room(1, {}, {}, {30, 5})});
        sprites.setSpriteSequences(sequences({{4, 3}, {7, 1}, {20, 1}, {-2, 3}, {25, 0}}));
        QTest::newRow("sequences by their last sprite") << sprites.build() << 6 << qint64(0) << qint64(0)
                                                        << qint64(1) << qint64(3);
        QTest::newRow("a sequence ending before") << sprites.build() << 8 << qint64(0) << qint64(0) << qint64(1)
                                                  << qint64(1);
    }

    void counts()
    {
        QFETCH(QByteArray, level);
        QFETCH(int, index);
        const TextureUsage usage = usageOf(level);
        QTEST(usage.roomFaces.at(index) + usage.meshFaces.at(index), "facesOn");
        QTEST(usage.roomFaces.from(index) + usage.meshFaces.from(index), "facesFrom");
        QTEST(usage.roomSprites.from(index), "roomSpritesFrom");
        QTEST(usage.sequenceEnds.from(index), "sequencesFrom");
    }

    // The usage is read once while the level's file stays as it was, and
    // again as soon as it changes.
    void cacheFollowsTheLevelFile()
    {
        const QString path = m_dir.write(QStringLiteral("cached.tr2"),
                                         levelWith(Game::TR2, 12, {Geometry::room(4, {3}, {}, {})}).build());
        LevelUsageCache cache;
        const TextureUsage* first = cache.usageOf(path);
        QVERIFY(first);
        QCOMPARE(first->roomFaces.at(3), qint64(1));
        QCOMPARE(cache.usageOf(path), first);
        m_dir.write(QStringLiteral("cached.tr2"),
                    levelWith(Game::TR2, 12, {Geometry::room(4, {3, 3, 8}, {3}, {})}).build());
        const TextureUsage* changed = cache.usageOf(path);
        QVERIFY(changed);
        QCOMPARE(changed->roomFaces.at(3), qint64(3));
        QFile::remove(path);
        FileError error;
        QVERIFY(!cache.usageOf(path, &error));
        QVERIFY(error.failed());
    }
};

QTEST_GUILESS_MAIN(tst_TextureUsage)
#include "tst_TextureUsage.moc"
