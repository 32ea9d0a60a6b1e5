#include "list/ObjectTextureRow.h"
#include "list/SpriteTextureRow.h"
#include "list/rows/OutlineRows.h"
#include "list/tables/SpriteTextureEntry.h"
#include "list/tables/TextureEntry.h"

#include <QSignalSpy>
#include <QTest>

// The draw lists: rows made from a table's entries by number, shown as the
// texture pages show them, read back as numbers by the drawing.
class tst_OutlineRows : public QObject
{
    Q_OBJECT

private slots:
    void rowsFollowTheNumbersAsked_data();
    void rowsFollowTheNumbersAsked();
    void spritesOutlineTheirRectangle();
    void cellsNumbersAndTheModelAgree();
    void appendsAddAtTheEndAndClearEmpties();

private:
    static QStringList Shown(const OutlineRows& rows);
};

namespace {

// A quad from (x, y) to (x + size, y + size) on tile, or the triangle of its
// first three corners; numbered as a list with deletions leaves rows.
TextureEntry Texture(qint32 number, qint16 width, int tile, int x, int y, int size, bool triangle)
{
    ObjectTexture record;
    record.setColumn(ObjectTexture::TileColumn, tile);
    const int corners[4][2] = {{x, y}, {x + size, y}, {x + size, y + size}, {x, y + size}};
    for (int c = 0; c < (triangle ? 3 : 4); ++c) {
        record.setColumn(ObjectTexture::XColumn(c), corners[c][0]);
        record.setColumn(ObjectTexture::YColumn(c), corners[c][1]);
        record.setColumn(ObjectTexture::XHiColumn(c), c == 1 || c == 2 ? 255 : 1);
        record.setColumn(ObjectTexture::YHiColumn(c), c >= 2 ? 255 : 1);
    }
    return TextureEntry{record, number, width, {}};
}

RecordTable<TextureEntry> Textures()
{
    RecordTable<TextureEntry> table;
    table.assign({Texture(0, 4, 0, 0, 0, 63, false), Texture(3, 4, 1, 64, 64, 63, true),
                  Texture(12, 4, 2, 10, 20, 5, false), Texture(1234, 2, 0, 100, 0, 9, false)});
    return table;
}

QStringList DrawColumns()
{
    return {"No", "NumSide", "X1", "Y1", "X2", "Y2", "X3", "Y3"};
}

} // namespace

// Each row as its cells joined: the text, then the sub-items.
QStringList tst_OutlineRows::Shown(const OutlineRows& rows)
{
    QStringList shown;
    for (int index = 0; index < rows.count(); ++index) {
        const ListRows::Row row = rows.row(index);
        shown << (QStringList{row.text} + row.subItems).join(u' ');
    }
    return shown;
}

void tst_OutlineRows::rowsFollowTheNumbersAsked_data()
{
    QTest::addColumn<QList<qint32>>("numbers");
    QTest::addColumn<QStringList>("shown");
    const QString square = "0000 4 0 0 63 63", triangle = "0003 3 64 320 127 320 127 383",
                  small = "0012 4 10 532 15 537", wide = "1234 4 100 0 109 9";
    QTest::newRow("in table order") << QList<qint32>{0, 3, 12, 1234} << QStringList{square, triangle, small, wide};
    QTest::newRow("in the order asked") << QList<qint32>{12, 0} << QStringList{small, square};
    // Numbers follow deletions: rows 1, 2 and 4 are gone, and a number past
    // every row or below 0 names nothing.
    QTest::newRow("numbers no row has") << QList<qint32>{1, 2, 3, 4, 5000, -1} << QStringList{triangle};
    QTest::newRow("a number twice") << QList<qint32>{3, 3} << QStringList{triangle, triangle};
    QTest::newRow("none") << QList<qint32>{} << QStringList{};
}

void tst_OutlineRows::rowsFollowTheNumbersAsked()
{
    QFETCH(QList<qint32>, numbers);
    QFETCH(QStringList, shown);
    const RecordTable<TextureEntry> table = Textures();
    OutlineRows rows(DrawColumns());
    QCOMPARE(rows.appendNumbered<ObjectTextureRow>(table, std::vector<qint32>(numbers.begin(), numbers.end())),
             shown.size());
    QCOMPARE(Shown(rows), shown);
}

void tst_OutlineRows::spritesOutlineTheirRectangle()
{
    SpriteTexture sprite;
    sprite.tile = 3;
    sprite.x = 20;
    sprite.y = 250;
    sprite.width = 7 * 256 + 255;
    sprite.height = 16 * 256 + 255;
    RecordTable<SpriteTextureEntry> table;
    table.assign({SpriteTextureEntry{sprite, 41, 3}});
    OutlineRows rows(DrawColumns());
    rows.appendNumbered<SpriteTextureRow>(table, {41, 0});
    // Its far corner lies on the next tile: a sprite may cross its tile's edge.
    QCOMPARE(Shown(rows), QStringList{"041 4 20 1018 27 1034"});
}

// What a view shows, what a reader of the cells gets and what the drawing
// reads are the same numbers; a row has no key, and no cells past its own.
void tst_OutlineRows::cellsNumbersAndTheModelAgree()
{
    const RecordTable<TextureEntry> table = Textures();
    OutlineRows rows(DrawColumns());
    rows.appendNumbered<ObjectTextureRow>(table, {0, 3, 1234});
    QCOMPARE(rows.columnCount(), 8);
    for (int index = 0; index < rows.count(); ++index) {
        const OutlineRows::Outline& outline = rows.outline(index);
        QCOMPARE(rows.key(index), QString());
        QCOMPARE(rows.data(rows.index(index, 0), ListRows::KeyRole).toString(), QString());
        QCOMPARE(rows.checkState(index), Qt::Unchecked);
        QCOMPARE(rows.text(index).toInt(), outline.number);
        QCOMPARE(rows.row(index).subItems.size(), outline.columns.size());
        for (int column = 1; column < rows.columnCount(); ++column) {
            const QString cell = rows.data(rows.index(index, column)).toString();
            QCOMPARE(cell, rows.cellText(index, column));
            const bool held = column <= outline.columns.size();
            QCOMPARE(cell.isEmpty(), !held);
            QCOMPARE(rows.subItemNumber(index, column), held ? outline.columns.begin()[column - 1] : 0);
            QCOMPARE(rows.subItemNumber(index, column), cell.toLongLong());
        }
    }
    QCOMPARE(rows.findKey(QStringLiteral("T3")), -1);
    QCOMPARE(rows.cellText(3, 0), QString());
    QCOMPARE(rows.subItemNumber(-1, 1), 0);
}

void tst_OutlineRows::appendsAddAtTheEndAndClearEmpties()
{
    const RecordTable<TextureEntry> table = Textures();
    OutlineRows rows(DrawColumns());
    QSignalSpy inserted(&rows, &QAbstractItemModel::rowsInserted);
    QSignalSpy reset(&rows, &QAbstractItemModel::modelReset);
    rows.appendNumbered<ObjectTextureRow>(table, {0, 3});
    rows.appendNumbered<ObjectTextureRow>(table, {7});
    rows.appendNumbered<ObjectTextureRow>(table, {12});
    // One notice per append that added rows, naming the rows it added.
    QCOMPARE(inserted.size(), 2);
    QCOMPARE(inserted[0].value(1).toInt(), 0);
    QCOMPARE(inserted[0].value(2).toInt(), 1);
    QCOMPARE(inserted[1].value(1).toInt(), 2);
    QCOMPARE(inserted[1].value(2).toInt(), 2);
    QCOMPARE(rows.text(2), QStringLiteral("0012"));
    rows.setSelectedRow(1);
    rows.clear();
    QCOMPARE(reset.size(), 1);
    QCOMPARE(rows.count(), 0);
    QCOMPARE(rows.selectedRow(), -1);
}

QTEST_GUILESS_MAIN(tst_OutlineRows)
#include "tst_OutlineRows.moc"
