#include "ListViewModel.h"
#include "ObjectTexture.h"
#include "TextureGeometry.h"
#include "m_TextureList.h"

#include <QTest>

// Where an object texture's row puts it on the texture bitmap.
class tst_TextureGeometry : public QObject
{
    Q_OBJECT

    // A record from its tile and the four corners as x, y, x edge byte,
    // y edge byte.
    static ObjectTexture record(int tile, const QList<QList<int>>& corners)
    {
        ObjectTexture texture;
        texture.setColumn(1, tile);
        for (int corner = 0; corner < corners.size(); ++corner) {
            texture.setColumn(3 + 2 * corner, corners[corner][0]);
            texture.setColumn(4 + 2 * corner, corners[corner][1]);
            texture.setColumn(11 + 2 * corner, corners[corner][2]);
            texture.setColumn(12 + 2 * corner, corners[corner][3]);
        }
        return texture;
    }

private slots:
    void boundsAndSides_data();
    void boundsAndSides();
    void texturesAreFoundByTheirKey();
};

void tst_TextureGeometry::boundsAndSides_data()
{
    QTest::addColumn<ObjectTexture>("texture");
    QTest::addColumn<QRect>("bounds");
    QTest::addColumn<int>("sides");
    QTest::addColumn<QPoint>("corner3");
    QTest::newRow("square, pixels 0 to 63")
        << record(0, {{0, 0, 1, 1}, {63, 0, 255, 1}, {63, 63, 255, 255}, {0, 63, 1, 255}}) << QRect(0, 0, 64, 64) << 4
        << QPoint(63, 63);
    QTest::newRow("flipped, on tile 2")
        << record(2, {{73, 40, 255, 255}, {10, 40, 1, 255}, {10, 8, 1, 1}, {73, 8, 255, 1}})
        << QRect(10, 520, 64, 33) << 4 << QPoint(10, 520);
    QTest::newRow("triangle: corner 4 all zero")
        << record(1, {{64, 64, 1, 1}, {127, 64, 255, 1}, {64, 127, 1, 255}}) << QRect(64, 320, 64, 64) << 3
        << QPoint(64, 383);
    QTest::newRow("corner 4 at pixel 0 with edge bytes: a quad")
        << record(0, {{0, 0, 1, 1}, {9, 0, 255, 1}, {9, 9, 255, 255}, {0, 0, 1, 0}}) << QRect(0, 0, 10, 10) << 4
        << QPoint(9, 9);
    QTest::newRow("edge bytes 0: pixel edges only")
        << record(3, {{5, 6, 0, 0}, {5, 6, 0, 0}, {5, 6, 0, 0}, {5, 6, 0, 1}}) << QRect(5, 774, 0, 0) << 4
        << QPoint(5, 774);
}

void tst_TextureGeometry::boundsAndSides()
{
    QFETCH(ObjectTexture, texture);
    QFETCH(QRect, bounds);
    QFETCH(int, sides);
    QFETCH(QPoint, corner3);
    const TextureGeometry geometry(texture);
    QCOMPARE(geometry.Bounds(), bounds);
    QCOMPARE(geometry.Sides(), sides);
    QCOMPARE(geometry.IsTriad(), sides == 3);
    QCOMPARE(geometry.Corner(2), corner3);
}

void tst_TextureGeometry::texturesAreFoundByTheirKey()
{
    ListViewModel lsvTextures(ObjectTexture::headers());
    const ObjectTexture quad = record(1, {{0, 0, 1, 1}, {31, 0, 255, 1}, {31, 15, 255, 255}, {0, 15, 1, 255}});
    // Rows keyed T0, T5 (a deleted texture leaves a gap) and T6.
    lsvTextures.appendRows({m_TextureList::RowOfObjectTexture(ObjectTexture(), 0, 1),
                            m_TextureList::RowOfObjectTexture(quad, 5, 1),
                            m_TextureList::RowOfObjectTexture(ObjectTexture(), 6, 1)});
    const std::optional<TextureGeometry> found = TextureGeometry::ofTexture(lsvTextures, 5);
    QVERIFY(found);
    QCOMPARE(found->Bounds(), QRect(0, 256, 32, 16));
    QVERIFY(!TextureGeometry::ofTexture(lsvTextures, 1));
    QVERIFY(!TextureGeometry::ofTexture(lsvTextures, -1));
    QCOMPARE(TextureGeometry::ofRow(lsvTextures, 1).Bounds(), found->Bounds());
}

QTEST_MAIN(tst_TextureGeometry)
#include "tst_TextureGeometry.moc"
