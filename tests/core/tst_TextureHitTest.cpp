#include "support/TableRows.h"
#include "list/TextureHitTest.h"

#include <QTest>

// Which rows cover a bitmap pixel, and which one a click chooses.
class tst_TextureHitTest : public QObject
{
    Q_OBJECT

private slots:
    void texturesCoveringAPixel_data();
    void texturesCoveringAPixel();
    void spritesCoveringAPixel_data();
    void spritesCoveringAPixel();
    void clicksWalkDownTheStack_data();
    void clicksWalkDownTheStack();
};

namespace {

// "Tile#", "Trans", X1..Y4, X1Hi..Y4Hi.
QStringList Cells(const QList<int>& numbers)
{
    QStringList texts;
    for (int n : numbers)
        texts << QString::number(n);
    return texts;
}

// Four textures, each a shape of its own:
// row 0: a square over pixels 0-63 of tile 0,
// row 1: the square 32-95 x 32-95 of tile 0, drawn over row 0,
// row 2: a triangle (64,320) (127,320) (64,383) in tile 1,
// row 3: a square 0-63 in tile 1, flipped so its corners run the other way.
void FillTextures(ListTables& tables)
{
    TableRows::addTexture(tables, 0, Cells({0, 0, 0, 0, 63, 0, 63, 63, 0, 63, 1, 1, 255, 1, 255, 255, 1, 255}));
    TableRows::addTexture(tables, 1, Cells({0, 0, 32, 32, 95, 32, 95, 95, 32, 95, 1, 1, 255, 1, 255, 255, 1, 255}));
    TableRows::addTexture(tables, 2, Cells({1, 0, 64, 64, 127, 64, 64, 127, 0, 0, 1, 1, 255, 1, 1, 255, 0, 0}));
    TableRows::addTexture(tables, 5, Cells({1, 0, 63, 63, 0, 63, 0, 0, 63, 0, 255, 255, 1, 255, 1, 1, 255, 1}));
}

} // namespace

void tst_TextureHitTest::texturesCoveringAPixel_data()
{
    QTest::addColumn<QPoint>("pixel");
    QTest::addColumn<QList<int>>("rows");
    QTest::newRow("inside the first square only") << QPoint(5, 5) << QList<int>{0};
    QTest::newRow("where two squares overlap") << QPoint(40, 40) << QList<int>{0, 1};
    QTest::newRow("last pixel of a square") << QPoint(63, 63) << QList<int>{0, 1};
    QTest::newRow("just past a square") << QPoint(96, 96) << QList<int>{};
    QTest::newRow("triangle's inside") << QPoint(70, 330) << QList<int>{2};
    QTest::newRow("triangle's long side") << QPoint(96, 351) << QList<int>{2};
    QTest::newRow("beyond the triangle's long side") << QPoint(120, 378) << QList<int>{};
    QTest::newRow("flipped square in tile 1") << QPoint(10, 266) << QList<int>{3};
    QTest::newRow("tile 1's pixel is not tile 0's") << QPoint(5, 261) << QList<int>{3};
    QTest::newRow("outside the bitmap") << QPoint(-1, -1) << QList<int>{};
}

void tst_TextureHitTest::texturesCoveringAPixel()
{
    QFETCH(QPoint, pixel);
    QFETCH(QList<int>, rows);
    ListTables tables;
    FillTextures(tables);
    QCOMPARE(TextureHitTest::TexturesAt(tables.textures, pixel), rows);
}

void tst_TextureHitTest::spritesCoveringAPixel_data()
{
    QTest::addColumn<QPoint>("pixel");
    QTest::addColumn<QList<int>>("rows");
    // Row 0: tile 1, at (10, 20), 16 x 8 pixels; row 1: tile 0, a single pixel at (3, 3).
    QTest::newRow("top-left corner") << QPoint(10, 276) << QList<int>{0};
    QTest::newRow("bottom-right corner") << QPoint(25, 283) << QList<int>{0};
    QTest::newRow("one past the right side") << QPoint(26, 283) << QList<int>{};
    QTest::newRow("same place, tile 0") << QPoint(10, 20) << QList<int>{};
    QTest::newRow("one-pixel sprite") << QPoint(3, 3) << QList<int>{1};
}

void tst_TextureHitTest::spritesCoveringAPixel()
{
    QFETCH(QPoint, pixel);
    QFETCH(QList<int>, rows);
    ListTables tables;
    // "Tile", "X", "Y", "Width", "Height", then the four sides.
    TableRows::addSprite(tables, 0, Cells({1, 10, 20, 15 * 256 + 255, 7 * 256 + 255, 0, 0, 0, 0}));
    TableRows::addSprite(tables, 1, Cells({0, 3, 3, 255, 255, 0, 0, 0, 0}));
    QCOMPARE(TextureHitTest::SpritesAt(tables.sprites, pixel), rows);
}

void tst_TextureHitTest::clicksWalkDownTheStack_data()
{
    QTest::addColumn<QList<int>>("covering");
    QTest::addColumn<int>("chosen");
    QTest::addColumn<int>("next");
    QTest::newRow("nothing there") << QList<int>{} << 4 << -1;
    QTest::newRow("first click takes the topmost") << QList<int>{2, 5, 9} << -1 << 9;
    QTest::newRow("a row elsewhere chosen") << QList<int>{2, 5, 9} << 7 << 9;
    QTest::newRow("again: the one below") << QList<int>{2, 5, 9} << 9 << 5;
    QTest::newRow("bottom wraps to the top") << QList<int>{2, 5, 9} << 2 << 9;
    QTest::newRow("alone stays chosen") << QList<int>{4} << 4 << 4;
}

void tst_TextureHitTest::clicksWalkDownTheStack()
{
    QFETCH(QList<int>, covering);
    QFETCH(int, chosen);
    QFETCH(int, next);
    QCOMPARE(TextureHitTest::Choose(covering, chosen), next);
}

QTEST_MAIN(tst_TextureHitTest)
#include "tst_TextureHitTest.moc"
