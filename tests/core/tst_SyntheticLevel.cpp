#include "support/ScratchDir.h"
#include "list/TextureGeometry.h"
#include "synthetic/SyntheticLevel.h"
#include "synthetic/SyntheticTextures.h"

#include <QTest>

using Game = LevelVersion::Game;

Q_DECLARE_METATYPE(SyntheticTextures::Convention)

// The level walk tests check where the writer puts every count against an
// independent walker; what is left here is what a walker cannot see.
class tst_SyntheticLevel : public QObject
{
    Q_OBJECT

private slots:
    // Pixels beyond the tiles' bytes are cut; the 8-bit tiles are zeros.
    void tilePixels()
    {
        SyntheticLevel level(Game::TR2);
        const QByteArray pixels(SyntheticLevel::Tile16Size + 10, '\x11');
        level.setTileCount(1, pixels);
        const QByteArray bytes = level.build();
        const qint64 tiles8 = level.layout().at(SyntheticField::TileCount) + 4;
        const qint64 tiles16 = tiles8 + SyntheticLevel::Tile8Size;
        QCOMPARE(bytes.mid(tiles8, SyntheticLevel::Tile8Size), QByteArray(SyntheticLevel::Tile8Size, '\0'));
        QCOMPARE(bytes.mid(tiles16, SyntheticLevel::Tile16Size + 4), pixels.left(SyntheticLevel::Tile16Size) + QByteArray(4, '\0'));
        QCOMPARE(qint64(bytes.size()), SyntheticLevel(Game::TR2).layout().length + 3 * SyntheticLevel::Tile8Size);
    }

    // Chosen room data is cut to the words counted and padded with zeros;
    // a chosen block counts the records its bytes fill.
    void chosenBytes()
    {
        SyntheticLevel level(Game::TR3);
        SyntheticRoom cut = SyntheticRoom::holding("abcdef");
        cut.dataWords = 2;
        level.setRooms({SyntheticRoom::holding("xyz"), cut});
        level.setBlock(SyntheticField::MeshPointers, "12345");
        const QByteArray bytes = level.build();
        const SyntheticLevel::Layout layout = level.layout();
        QCOMPARE(bytes.mid(layout.rooms[0] + 16, 10), QByteArray("\x02\0\0\0xyz\0", 8) + QByteArray(2, '\0'));
        QCOMPARE(bytes.mid(layout.rooms[1] + 16, 10), QByteArray("\x02\0\0\0abcd\0\0", 10));
        const qint64 pointers = layout.at(SyntheticField::MeshPointers);
        QCOMPARE(bytes.mid(pointers, 12), QByteArray("\x02\0\0\0" "12345\0\0\0", 12));
    }

    // A negative count, 16-bit or Long, is written as asked and announces no byte.
    void negativeCountsAddNoBytes()
    {
        SyntheticLevel level(Game::TR3);
        level.setCount(SyntheticField::CinematicFrames, -5);
        level.setCount(SyntheticField::DemoData, -32768);
        level.setCount(SyntheticField::SoundDetails, -1);
        level.setCount(SyntheticField::Boxes, -2);
        const QByteArray bytes = level.build();
        QCOMPARE(qint64(bytes.size()), SyntheticLevel(Game::TR3).layout().length);
        QCOMPARE(bytes.mid(level.layout().at(SyntheticField::SoundDetails), 4), QByteArray(4, '\xFF'));
        QCOMPARE(bytes.mid(level.layout().at(SyntheticField::Boxes), 4), QByteArray::fromHex("feffffff"));
    }

    void ofSize_data()
    {
        QTest::addColumn<Game>("game");
        QTest::addColumn<qint64>("bytes");
        QTest::addColumn<int>("rooms");
        QTest::newRow("TR2 30 MB in 300 rooms") << Game::TR2 << qint64(30) * 1024 * 1024 << 300;
        QTest::newRow("TR3 64 MB in 7 rooms") << Game::TR3 << qint64(64) * 1024 * 1024 << 7;
        QTest::newRow("TR2 no rooms") << Game::TR2 << qint64(100000) << 0;
        QTest::newRow("TR3 odd size, odd rooms") << Game::TR3 << qint64(100001) << 3;
        QTest::newRow("TR3 even size, odd rooms") << Game::TR3 << qint64(100000) << 3;
    }

    void ofSize()
    {
        QFETCH(Game, game);
        QFETCH(qint64, bytes);
        QFETCH(int, rooms);
        const SyntheticLevel level = SyntheticLevel::ofSize(game, bytes, rooms);
        QCOMPARE(level.game(), game);
        QCOMPARE(level.rooms().size(), rooms);
        QCOMPARE(level.layout().length, bytes);
    }

    // Streamed to disk in slices, the file holds what build() makes.
    void writeToMatchesBuild()
    {
        ScratchDir dir;
        const SyntheticLevel level = SyntheticLevel::ofSize(Game::TR3, 3 * 1024 * 1024 + 1, 5);
        const QString path = dir.filePath(QStringLiteral("level.tr2"));
        QString error;
        QVERIFY2(level.writeTo(path, &error), qPrintable(error));
        QVERIFY(ScratchDir::read(path) == level.build());
        QVERIFY(!level.writeTo(dir.filePath(QStringLiteral("no/such/dir/level.tr2")), &error));
        QVERIFY(!error.isEmpty());
    }

    // Texture rows as each tool writes them: the bytes on the low and the
    // high edges, rectangles with their first corner all round, triangles.
    void textureRows_data()
    {
        using C = SyntheticTextures::Convention;
        QTest::addColumn<C>("convention");
        // Corner 1's X and Y bytes in row 0 (top left), row 1 (top right) and
        // row 4 (a triangle from the top left).
        QTest::addColumn<QList<QPoint>>("firstCorners");
        QTest::newRow("1 and 255") << C::LowHigh << QList<QPoint>{{1, 1}, {255, 1}, {1, 1}};
        QTest::newRow("zeros") << C::Zero << QList<QPoint>(3);
        QTest::newRow("127, triangles 0") << C::Half << QList<QPoint>{{127, 127}, {127, 127}, {0, 0}};
        QTest::newRow("mixed") << C::Mixed << QList<QPoint>{{0, 0}, {255, 1}, {0, 1}};
    }

    void textureRows()
    {
        QFETCH(SyntheticTextures::Convention, convention);
        QFETCH(QList<QPoint>, firstCorners);
        const QList<ObjectTexture> rows = SyntheticTextures::Rows(convention, 10, 3);
        QCOMPARE(rows.size(), 10);
        auto firstBytes = [](const ObjectTexture& record) {
            return QPoint(record.column(ObjectTexture::XHiColumn(0)), record.column(ObjectTexture::YHiColumn(0)));
        };
        QCOMPARE((QList<QPoint>{firstBytes(rows[0]), firstBytes(rows[1]), firstBytes(rows[4])}), firstCorners);
        for (int row = 0; row < rows.size(); ++row) {
            QCOMPARE(int(rows[row].tile()), row % 3);
            std::array<QPoint, 4> corners;
            for (int i = 0; i < 4; ++i)
                corners[size_t(i)] = QPoint(rows[row].column(ObjectTexture::XColumn(i)),
                                            rows[row].column(ObjectTexture::YColumn(i)));
            const bool triangle = row % 5 == 4;
            QCOMPARE(corners[3].isNull(), triangle);
            if (!triangle)
                QCOMPARE(TextureGeometry::RectangleLoHi(corners)->lo, row % 4);
        }
    }
};

QTEST_GUILESS_MAIN(tst_SyntheticLevel)
#include "tst_SyntheticLevel.moc"
