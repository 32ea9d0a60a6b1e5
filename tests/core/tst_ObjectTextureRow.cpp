#include "list/ObjectTextureRow.h"

#include <QTest>

// Where an object texture's row of lsvTextures puts it on the bitmap.
class tst_ObjectTextureRow : public QObject
{
    Q_OBJECT

private slots:
    void boundsCornersAndSides_data();
    void boundsCornersAndSides();
};

void tst_ObjectTextureRow::boundsCornersAndSides_data()
{
    QTest::addColumn<QList<int>>("cells"); // "Tile#", "Trans", X1..Y4, X1Hi..Y4Hi
    QTest::addColumn<QRect>("bounds");
    QTest::addColumn<QPoint>("corner3");
    QTest::addColumn<int>("sides");
    QTest::addColumn<QList<int>>("drawn"); // the draw list's "NumSide" and corners
    QTest::newRow("square 0-63") << QList<int>{0, 0, 0, 0, 63, 0, 63, 63, 0, 63, 1, 1, 255, 1, 255, 255, 1, 255}
                                 << QRect(0, 0, 64, 64) << QPoint(63, 63) << 4 << QList<int>{4, 0, 0, 63, 63};
    QTest::newRow("flipped, tile 2") << QList<int>{2, 0, 73, 40, 10, 40, 10, 8, 73, 8, 255, 255, 1, 255, 1, 1, 255, 1}
                                     << QRect(10, 520, 64, 33) << QPoint(10, 520) << 4
                                     << QList<int>{4, 73, 552, 10, 520};
    QTest::newRow("triangle, tile 1") << QList<int>{1, 0, 64, 64, 127, 64, 64, 127, 0, 0, 1, 1, 255, 1, 1, 255, 0, 0}
                                      << QRect(64, 320, 64, 64) << QPoint(64, 383) << 3
                                      << QList<int>{3, 64, 320, 127, 320, 64, 383};
    QTest::newRow("corner 4 at 0 but marked") << QList<int>{0, 0, 0, 0, 9, 0, 9, 9, 0, 0, 1, 1, 255, 1, 255, 255, 1, 0}
                                              << QRect(0, 0, 10, 10) << QPoint(9, 9) << 4
                                              << QList<int>{4, 0, 0, 9, 9};
    // The last tile a level can name, a top kept in its tile at Y 256.
    const int top = 0xFFFF * 256;
    QTest::newRow("last tile, past its edge") << QList<int>{0xFFFF, 0, 0, 256, 9, 256, 9, 300, 0, 300, 1, 1, 1, 1, 1, 1, 1, 1}
                                              << QRect(0, top + 256, 9, 44) << QPoint(9, top + 300) << 4
                                              << QList<int>{4, 0, top + 256, 9, top + 300};
}

void tst_ObjectTextureRow::boundsCornersAndSides()
{
    QFETCH(QList<int>, cells);
    QFETCH(QRect, bounds);
    QFETCH(QPoint, corner3);
    QFETCH(int, sides);
    QFETCH(QList<int>, drawn);
    TextureEntry entry;
    for (int column = 1; column <= cells.size(); ++column)
        entry.setColumn(column, cells[column - 1]);
    const std::optional<ObjectTextureRow> geometry = ObjectTextureRow::Of(entry);
    QCOMPARE(geometry->Bounds(), bounds);
    QCOMPARE(geometry->BitmapCorner(2), corner3);
    QCOMPARE(geometry->IsTriangle() ? 3 : 4, sides);
    const OutlineColumns columns = geometry->DrawColumns();
    QCOMPARE(QList<int>(columns.begin(), columns.end()), drawn);
}

QTEST_MAIN(tst_ObjectTextureRow)
#include "tst_ObjectTextureRow.moc"
