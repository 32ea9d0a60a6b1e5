#include "list/EditedTexture.h"
#include "list/TextureGeometry.h"
#include "synthetic/SyntheticTextures.h"

#include "support/TableRows.h"

#include <QTest>

using Convention = SyntheticTextures::Convention;
using Corners = QList<QPoint>;

Q_DECLARE_METATYPE(Convention)
Q_DECLARE_METATYPE(ObjectTextureRow)
Q_DECLARE_METATYPE(SubPixelConvention)

// What the edition frame stores for a texture: rows written by any tool come
// back as they were, changed corners keep their row's sub-pixel habits, and
// shapes that cannot be a texture are refused with the reason.
class tst_EditedTexture : public QObject
{
    Q_OBJECT

private slots:
    void unchangedRowsComeBackAsTheyWere_data();
    void unchangedRowsComeBackAsTheyWere();
    void changedCornersKeepTheRowsBytes_data();
    void changedCornersKeepTheRowsBytes();
    void freeCornersHeldToOneTile_data();
    void freeCornersHeldToOneTile();
    void shapesThatCannotBeStored_data();
    void shapesThatCannotBeStored();
    void rectanglesKnownByTheirCorners_data();
    void rectanglesKnownByTheirCorners();
    void conventionOfAList_data();
    void conventionOfAList();

private:
    static ObjectTextureRow RowOf(int tile, const Corners& corners, const Corners& bytes);
    // The frame as the page fills it when the row is loaded.
    static EditedTexture::Frame Loaded(const ObjectTextureRow& row);
};

ObjectTextureRow tst_EditedTexture::RowOf(int tile, const Corners& corners, const Corners& bytes)
{
    ObjectTextureRow row;
    row.tile = tile;
    for (int i = 0; i < corners.size(); ++i) {
        row.corners[size_t(i)] = corners[i];
        row.subPixels[size_t(i)] = bytes[i];
    }
    return row;
}

EditedTexture::Frame tst_EditedTexture::Loaded(const ObjectTextureRow& row)
{
    EditedTexture::Frame frame;
    frame.tile = row.tile;
    frame.sides = row.IsTriangle() ? 3 : 4;
    for (int i = 0; i < 4; ++i)
        frame.boxes[size_t(i)] = row.BitmapCorner(i);
    const auto rectangle = frame.sides == 4 ? TextureGeometry::RectangleLoHi(row.corners) : std::nullopt;
    frame.freeCorners = !rectangle;
    if (rectangle) {
        frame.loRow = rectangle->lo;
        frame.hiRow = rectangle->hi;
    }
    return frame;
}

void tst_EditedTexture::unchangedRowsComeBackAsTheyWere_data()
{
    QTest::addColumn<Convention>("convention");
    QTest::newRow("1 and 255") << Convention::LowHigh;
    QTest::newRow("all 0") << Convention::Zero;
    QTest::newRow("127, triangles 0") << Convention::Half;
    QTest::newRow("mixed") << Convention::Mixed;
}

void tst_EditedTexture::unchangedRowsComeBackAsTheyWere()
{
    QFETCH(Convention, convention);
    // Twenty rows: the Lo corner in each position, triangles in four orientations.
    const QList<ObjectTexture> records = SyntheticTextures::Rows(convention, 20, 3);
    for (int i = 0; i < records.size(); ++i) {
        const ObjectTextureRow row = ObjectTextureRow::Of(records[i]);
        // A top at Y 0 of tile 1 shows as 256 and stays in tile 1 at Y 256:
        // its Y values change, and take the row's own bytes again.
        const int used = row.IsTriangle() ? 3 : 4;
        const bool keptAt256 = row.tile == 1
                               && std::any_of(row.corners.begin(), row.corners.begin() + used,
                                              [](QPoint c) { return c.y() == 0; });
        Corners corners(row.corners.begin(), row.corners.end());
        for (int c = 0; c < used && keptAt256; ++c)
            corners[c].ry() += 256;
        // Any other convention must make no difference to an unchanged corner.
        const SubPixelConvention other = keptAt256 ? *SubPixelConvention::Of(row) : SubPixelConvention{9, 9, 9, 9};
        const EditedTexture::Stored stored = EditedTexture::Build(Loaded(row), row, other);
        QVERIFY2(stored.ok, qPrintable(stored.why));
        QCOMPARE(stored.tile, row.tile);
        QCOMPARE(stored.keptBelowTileTop, keptAt256);
        QCOMPARE(Corners(stored.corners.begin(), stored.corners.end()), corners);
        QCOMPARE(Corners(stored.bytes.begin(), stored.bytes.end()), Corners(row.subPixels.begin(), row.subPixels.end()));
    }
}

void tst_EditedTexture::changedCornersKeepTheRowsBytes_data()
{
    QTest::addColumn<ObjectTextureRow>("row");
    QTest::addColumn<int>("movedRow");
    QTest::addColumn<QPoint>("movedTo"); // whole-bitmap
    QTest::addColumn<Corners>("corners");
    QTest::addColumn<Corners>("bytes");

    // X edges 0 / 255, Y edges 1 / 0; Lo on corner 3 (row 2).
    const ObjectTextureRow mixed = RowOf(0, {{50, 60}, {10, 60}, {10, 20}, {50, 20}},
                                         {{255, 0}, {0, 0}, {0, 1}, {255, 1}});
    QTest::newRow("Lo moved: low edges take the low bytes")
        << mixed << 2 << QPoint(12, 22) << Corners{{50, 60}, {12, 60}, {12, 22}, {50, 22}}
        << Corners{{255, 0}, {0, 0}, {0, 1}, {255, 1}};
    const ObjectTextureRow zeros = RowOf(1, {{10, 20}, {50, 20}, {50, 60}, {10, 60}}, Corners(4));
    QTest::newRow("all 0, Hi moved in tile 1") << zeros << 2 << QPoint(70, 340)
                                               << Corners{{10, 20}, {70, 20}, {70, 84}, {10, 84}} << Corners(4);
    const ObjectTextureRow triangle = RowOf(0, {{10, 20}, {50, 20}, {50, 60}, {0, 0}},
                                            {{1, 1}, {255, 1}, {255, 255}, {0, 0}});
    QTest::newRow("triangle corner 1 moved left and down")
        << triangle << 0 << QPoint(5, 40) << Corners{{5, 40}, {50, 20}, {50, 60}, {0, 0}}
        << Corners{{1, 1}, {255, 1}, {255, 255}, {0, 0}};
    QTest::newRow("triangle corner 3 becomes the bottom right")
        << triangle << 2 << QPoint(80, 90) << Corners{{10, 20}, {50, 20}, {80, 90}, {0, 0}}
        << Corners{{1, 1}, {255, 1}, {255, 255}, {0, 0}};
    const ObjectTextureRow freeQuad = RowOf(0, {{10, 10}, {60, 20}, {70, 80}, {5, 60}},
                                            {{127, 127}, {127, 127}, {127, 127}, {127, 127}});
    QTest::newRow("free quad keeps 127") << freeQuad << 1 << QPoint(90, 0)
                                         << Corners{{10, 10}, {90, 0}, {70, 80}, {5, 60}} << Corners(4, {127, 127});
}

void tst_EditedTexture::changedCornersKeepTheRowsBytes()
{
    QFETCH(ObjectTextureRow, row);
    QFETCH(int, movedRow);
    QFETCH(QPoint, movedTo);
    QFETCH(Corners, corners);
    QFETCH(Corners, bytes);
    EditedTexture::Frame frame = Loaded(row);
    frame.boxes[size_t(movedRow)] = movedTo;
    // A rectangle's other corners follow its Lo and Hi, as the boxes do.
    if (!frame.freeCorners) {
        const std::array<QPoint, 4> closed = TextureGeometry::StoredCorners(
            frame.loRow, frame.boxes[size_t(frame.loRow)].x(), frame.boxes[size_t(frame.loRow)].y(),
            frame.boxes[size_t(frame.hiRow)].x(), frame.boxes[size_t(frame.hiRow)].y());
        frame.boxes = closed;
    }
    const EditedTexture::Stored stored =
        EditedTexture::Build(frame, row, SubPixelConvention::Of(row).value_or(SubPixelConvention{}));
    QVERIFY2(stored.ok, qPrintable(stored.why));
    QCOMPARE(stored.tile, row.tile);
    QCOMPARE(Corners(stored.corners.begin(), stored.corners.end()), corners);
    QCOMPARE(Corners(stored.bytes.begin(), stored.bytes.end()), bytes);
}

void tst_EditedTexture::freeCornersHeldToOneTile_data()
{
    QTest::addColumn<int>("tile"); // the tile box
    QTest::addColumn<Corners>("boxes");
    QTest::addColumn<int>("storedTile");
    QTest::addColumn<Corners>("corners");
    QTest::addColumn<bool>("keptBelowTop");
    QTest::newRow("tile 2 from its Y") << 0 << Corners{{10, 530}, {60, 530}, {30, 600}} << 2
                                       << Corners{{10, 18}, {60, 18}, {30, 88}} << false;
    QTest::newRow("tile 9 typed whole, tile box 2") << 2 << Corners{{10, 2310}, {60, 2320}, {30, 2400}} << 9
                                                    << Corners{{10, 6}, {60, 16}, {30, 96}} << false;
    QTest::newRow("top at 256 keeps the tile named") << 1 << Corners{{10, 256}, {60, 256}, {30, 300}} << 1
                                                     << Corners{{10, 256}, {60, 256}, {30, 300}} << true;
}

void tst_EditedTexture::freeCornersHeldToOneTile()
{
    QFETCH(int, tile);
    QFETCH(Corners, boxes);
    QFETCH(int, storedTile);
    QFETCH(Corners, corners);
    QFETCH(bool, keptBelowTop);
    EditedTexture::Frame frame;
    frame.tile = tile;
    frame.sides = 3;
    frame.freeCorners = true;
    std::copy(boxes.begin(), boxes.end(), frame.boxes.begin());
    const EditedTexture::Stored stored = EditedTexture::Build(frame, std::nullopt, {});
    QVERIFY2(stored.ok, qPrintable(stored.why));
    QCOMPARE(stored.tile, storedTile);
    QCOMPARE(Corners(stored.corners.begin(), stored.corners.begin() + 3), corners);
    QCOMPARE(stored.keptBelowTileTop, keptBelowTop);
}

void tst_EditedTexture::shapesThatCannotBeStored_data()
{
    QTest::addColumn<int>("sides");
    QTest::addColumn<int>("lo"); // the Lo row of a rectangle, Hi two rows on; -1 for free corners
    QTest::addColumn<Corners>("boxes");
    QTest::addColumn<QString>("why");
    QTest::addColumn<int>("badRow");
    QTest::newRow("triangle with two equal corners") << 3 << -1 << Corners{{10, 10}, {40, 10}, {10, 10}, {}}
                                                     << "corners 1 and 3 of the triangle are the same point" << 2;
    QTest::newRow("triangle on a line") << 3 << -1 << Corners{{10, 10}, {20, 20}, {40, 40}, {}}
                                        << "lie on one line" << 2;
    QTest::newRow("four equal corners") << 4 << -1 << Corners(4, {7, 7}) << "lie on one line" << 2;
    QTest::newRow("rectangle with no width") << 4 << 0 << Corners{{10, 10}, {10, 10}, {10, 60}, {10, 60}}
                                             << "no width or no height" << 2;
    QTest::newRow("X past the tile") << 4 << -1 << Corners{{10, 10}, {300, 10}, {300, 60}, {10, 60}}
                                     << "corner 2 (X 300, Y 10 in tile 0) lies outside its tile" << 1;
    QTest::newRow("X at 256") << 4 << -1 << Corners{{10, 10}, {256, 10}, {256, 60}, {10, 60}}
                              << "corner 2 (X 256, Y 10 in tile 0) lies outside its tile" << 1;
    QTest::newRow("rectangle's Hi in the next tile") << 4 << 0 << Corners{{10, 10}, {60, 10}, {60, 300}, {10, 300}}
                                                     << "corner 3 (Y 300) lies outside tile 0 of the Lo corner" << 2;
    QTest::newRow("rectangle's Lo in the tile before") << 4 << 2 << Corners{{60, 600}, {10, 600}, {10, 500}, {60, 500}}
                                                       << "corner 1 (Y 600) lies outside tile 1 of the Lo corner" << 0;
    QTest::newRow("triangle taller than a tile") << 3 << -1 << Corners{{10, 10}, {60, 20}, {30, 400}, {}}
                                                 << "corner 3 (Y 400) lies outside tile 0 of the texture's other "
                                                    "corners, which holds Y 0 to 255" << 2;
    // Two corners in each of two tiles: the tile the frame names wins.
    QTest::newRow("free quad split two and two") << 4 << -1 << Corners{{10, 300}, {60, 300}, {60, 20}, {10, 20}}
                                                 << "corner 1 (Y 300) lies outside tile 0" << 0;
    QTest::newRow("rectangle without markers") << 4 << 4 << Corners{{10, 10}, {60, 10}, {60, 60}, {10, 60}}
                                               << "no corner is marked Lo and Hi" << -1;
}

void tst_EditedTexture::shapesThatCannotBeStored()
{
    QFETCH(int, sides);
    QFETCH(int, lo);
    QFETCH(Corners, boxes);
    QFETCH(QString, why);
    QFETCH(int, badRow);
    EditedTexture::Frame frame;
    frame.sides = sides;
    frame.freeCorners = lo < 0;
    std::copy(boxes.begin(), boxes.end(), frame.boxes.begin());
    if (lo >= 0 && lo < 4) {
        frame.loRow = lo;
        frame.hiRow = (lo + 2) % 4;
    }
    const EditedTexture::Stored stored = EditedTexture::Build(frame, std::nullopt, {});
    QVERIFY(!stored.ok);
    QVERIFY2(stored.why.startsWith(QLatin1String("Nothing was stored: ")) && stored.why.contains(why),
             qPrintable(stored.why));
    QCOMPARE(stored.badRow, badRow);
}

void tst_EditedTexture::rectanglesKnownByTheirCorners_data()
{
    QTest::addColumn<Corners>("corners");
    QTest::addColumn<int>("lo"); // -1: no rectangle
    QTest::addColumn<int>("hi");
    QTest::newRow("Lo first") << Corners{{10, 20}, {50, 20}, {50, 60}, {10, 60}} << 0 << 2;
    QTest::newRow("Lo second") << Corners{{50, 20}, {10, 20}, {10, 60}, {50, 60}} << 1 << 3;
    QTest::newRow("Lo third") << Corners{{50, 60}, {10, 60}, {10, 20}, {50, 20}} << 2 << 0;
    QTest::newRow("Lo fourth, turning the other way") << Corners{{10, 60}, {50, 60}, {50, 20}, {10, 20}} << 3 << 1;
    QTest::newRow("across, not round") << Corners{{10, 20}, {50, 20}, {10, 60}, {50, 60}} << -1 << -1;
    QTest::newRow("a corner repeated") << Corners{{10, 20}, {50, 20}, {50, 60}, {50, 60}} << -1 << -1;
    QTest::newRow("three X values") << Corners{{10, 20}, {50, 20}, {50, 60}, {11, 60}} << -1 << -1;
    QTest::newRow("no height") << Corners{{10, 20}, {50, 20}, {50, 20}, {10, 20}} << -1 << -1;
}

void tst_EditedTexture::rectanglesKnownByTheirCorners()
{
    QFETCH(Corners, corners);
    QFETCH(int, lo);
    QFETCH(int, hi);
    std::array<QPoint, 4> four;
    std::copy(corners.begin(), corners.end(), four.begin());
    const std::optional<TextureGeometry::LoHi> found = TextureGeometry::RectangleLoHi(four);
    QCOMPARE(found ? found->lo : -1, lo);
    QCOMPARE(found ? found->hi : -1, hi);
}

void tst_EditedTexture::conventionOfAList_data()
{
    QTest::addColumn<QList<Convention>>("rows"); // twenty rows of each
    QTest::addColumn<SubPixelConvention>("mostUsed");
    QTest::newRow("none: 1 and 255") << QList<Convention>{} << SubPixelConvention{};
    QTest::newRow("zeros") << QList<Convention>{Convention::Zero} << SubPixelConvention{0, 0, 0, 0};
    // Sixteen rectangles of 127 outnumber four triangles of 0.
    QTest::newRow("127 over 0") << QList<Convention>{Convention::Half} << SubPixelConvention{127, 127, 127, 127};
    QTest::newRow("1 and 255 twice over zeros") << QList<Convention>{Convention::Zero, Convention::LowHigh,
                                                                     Convention::LowHigh}
                                                << SubPixelConvention{};
}

void tst_EditedTexture::conventionOfAList()
{
    QFETCH(QList<Convention>, rows);
    QFETCH(SubPixelConvention, mostUsed);
    ListTables tables;
    // A row with no extent tells nothing, however many there are.
    for (int i = 0; i < 50; ++i)
        TableRows::addTexture(tables, 1000 + i, QStringList(18, QStringLiteral("5")));
    for (Convention convention : rows) {
        for (const ObjectTexture& record : SyntheticTextures::Rows(convention, 20, 1))
            tables.textures.insert(tables.textures.count(), TextureEntry{record, tables.textures.count(), 4});
    }
    QCOMPARE(SubPixelConvention::MostUsed(tables.textures), mostUsed);
}

QTEST_MAIN(tst_EditedTexture)
#include "tst_EditedTexture.moc"
