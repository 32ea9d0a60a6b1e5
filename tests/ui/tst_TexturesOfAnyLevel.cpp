#include "uisupport/TexturePageUser.h"
#include "list/rows/ListViewModel.h"
#include "level/LevelVersion.h"
#include "list/TextureGeometry.h"
#include "synthetic/SyntheticLevel.h"
#include "synthetic/SyntheticTextures.h"
#include "ui/common/EditorState.h"
#include "ui/common/ListView.h"
#include "ui/main/frmMain.h"
#include "uisupport/UserActions.h"

#include <QAbstractButton>
#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include "support/TableRows.h"

#include <QTest>

using Cells = QStringList;
using Convention = SyntheticTextures::Convention;
using Game = LevelVersion::Game;

Q_DECLARE_METATYPE(Convention)
Q_DECLARE_METATYPE(Game)

// Object textures as levels in the wild hold them: any sub-pixel bytes,
// triangles and free quads, hostile values. Each is edited in place, and
// comes back as it was unless the user changed it.
class tst_TexturesOfAnyLevel : public QObject
{
    Q_OBJECT

private slots:
    void everyRowOfALevelSurvivesEditAndAccept_data();
    void everyRowOfALevelSurvivesEditAndAccept();
    void freeCornersTypedOneByOne();
    void statusSaysWhatAndWhy_data();
    void statusSaysWhatAndWhy();
    void hostileRowsStayAsTheyWere_data();
    void hostileRowsStayAsTheyWere();
    void cornersTypedInLowerTiles_data();
    void cornersTypedInLowerTiles();

private:
    using Page = TexturePageUser;
    static Cells Row(int tile, int trans, const QList<QPoint>& corners, const QList<QPoint>& bytes)
    {
        return TexturePageUser::Row(tile, trans, corners, bytes);
    }
};

void tst_TexturesOfAnyLevel::freeCornersTypedOneByOne()
{
    Page p;
    auto* freeCorners = p.f.find<QCheckBox>("chkFreeCorners");
    const int triangle = TableRows::addTexture(p.state().document().tables(), 30,
                                               Row(0, 0, {{10, 20}, {50, 20}, {50, 60}, {0, 0}},
                                                   {{1, 1}, {255, 1}, {255, 255}, {0, 0}}));
    p.load(triangle);
    p.click("cmdEdit");
    QVERIFY(freeCorners->isChecked() && !freeCorners->isEnabled());
    p.type("txtX_1", "100");
    p.type("txtY_2", "80");
    QCOMPARE(p.column("txtX"), (Cells{"10", "100", "50", "10"}));
    QCOMPARE(p.column("txtY"), (Cells{"20", "20", "80", "60"}));
    p.click("cmdEdit");
    // A moved coordinate takes its row's byte for the edge it is on now; one
    // that did not move keeps its own.
    QCOMPARE(p.cells(triangle),
             Row(0, 0, {{10, 20}, {100, 20}, {50, 80}, {0, 0}}, {{1, 1}, {255, 1}, {255, 255}, {0, 0}}));

    // A rectangle made free: every corner typed alone, and a rectangle again
    // only once the corners make one.
    p.load(5);
    p.click("cmdEdit");
    QVERIFY(!freeCorners->isChecked() && freeCorners->isEnabled());
    QTest::mouseClick(freeCorners, Qt::LeftButton);
    QVERIFY(freeCorners->isChecked());
    QVERIFY(!p.box("txtX_1")->isReadOnly() && !p.box("txtY_3")->isReadOnly());
    const Cells x = p.column("txtX");
    p.type("txtX_1", "90");
    QCOMPARE(p.column("txtX"), (Cells{x[0], "90", x[2], x[3]}));
    QTest::mouseClick(freeCorners, Qt::LeftButton);
    QVERIFY(freeCorners->isChecked());
    QVERIFY(p.status().startsWith(QLatin1String("Free corners stay on")));
    p.type("txtX_2", "90");
    p.click("cmdFlipHor");
    QTest::mouseClick(freeCorners, Qt::LeftButton);
    QVERIFY(!freeCorners->isChecked());
    // The flip moved the rows; Lo is found again where the corners put it.
    QCOMPARE(p.column("txtHiLo"), (Cells{"", "Lo", "", "Hi"}));
    QCOMPARE(p.column("txtCorner"), (Cells{"2", "1", "4", "3"}));
    QVERIFY(p.box("txtX_0")->isReadOnly() && !p.box("txtX_1")->isReadOnly());
    p.type("txtX_3", "95");
    QCOMPARE(p.box("txtX_0")->text(), QStringLiteral("95"));
}

void tst_TexturesOfAnyLevel::statusSaysWhatAndWhy_data()
{
    // Steps: "row CELLS" adds texture 30 and loads it, "load N", "click NAME",
    // "type NAME TEXT".
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QString>("said");
    QTest::addColumn<bool>("stored");
    const QStringList typedTriangle{"click cmdAdd", "click cmdSides", "type txtX_0 10", "type txtY_0 10",
                                    "type txtX_1 40", "type txtY_1 10", "type txtX_2 10", "type txtY_2 10",
                                    "click cmdAdd"};
    QTest::newRow("two equal corners") << typedTriangle
                                       << "Nothing was stored: corners 1 and 3 of the triangle are the same point"
                                       << false;
    QTest::newRow("no width") << QStringList{"click cmdAdd", "type txtX_0 10", "type txtY_0 10", "type txtX_2 10",
                                             "type txtY_2 60", "click cmdAdd"}
                              << "Nothing was stored: the rectangle has no width or no height" << false;
    QTest::newRow("outside the tile")
        << QStringList{"row 0 0 10 10 300 10 300 60 10 60 0 0 0 0 0 0 0 0", "click cmdEdit", "click cmdEdit"}
        << "Nothing was stored: corner 2 (X 300, Y 10 in tile 0) lies outside its tile" << false;
    QTest::newRow("attribute from X1")
        << QStringList{"row 0 0 1 20 50 20 50 60 1 60 0 0 0 0 0 0 0 0", "click cmdEdit", "click cmdEdit"}
        << "Texture 30 stored as Is Transparent, read from X1 (Trans was 0): Edit and press Is Transparent to choose "
           "another."
        << true;
    QTest::newRow("top of tile 1 stays in tile 1")
        << QStringList{"load 16", "click cmdEdit", "click cmdEdit"}
        << "Texture 16 stored at Y 256 of tile 1, not Y 0: a top Y of 256 keeps the tile named. To store Y 0, Edit "
           "and type 0 as its top Y."
        << true;
    QTest::newRow("both kept rules at once")
        << QStringList{"row 1 0 1 0 50 0 50 60 1 60 0 0 0 0 0 0 0 0", "click cmdEdit", "click cmdEdit"}
        << "Texture 30 stored at Y 256 of tile 1, not Y 0: a top Y of 256 keeps the tile named. To store Y 0, Edit "
           "and type 0 as its top Y. Its attribute 1 was read from X1 (Trans 0)."
        << true;
    QTest::newRow("free quad is no rectangle")
        << QStringList{"row 0 0 10 10 60 20 70 80 5 60 0 0 0 0 0 0 0 0", "click cmdEdit", "click chkFreeCorners"}
        << "Free corners stay on: the four corners do not form a rectangle" << false;
}

void tst_TexturesOfAnyLevel::statusSaysWhatAndWhy()
{
    QFETCH(QStringList, steps);
    QFETCH(QString, said);
    QFETCH(bool, stored);
    Page p;
    const qint64 rows = p.textures().count();
    for (const QString& step : steps) {
        QStringList words = step.split(QLatin1Char(' '));
        const QString verb = words.takeFirst();
        if (verb == QLatin1String("row")) {
            TableRows::addTexture(p.state().document().tables(), 30, words);
            p.load(p.textures().count() - 1);
        } else if (verb == QLatin1String("load")) {
            p.load(words[0].toInt());
        } else if (verb == QLatin1String("click")) {
            QTest::mouseClick(p.f.window->findChild<QAbstractButton*>(words[0]), Qt::LeftButton);
        } else {
            p.type(words[0], words[1]);
        }
    }
    QVERIFY2(p.status().startsWith(said), qPrintable(p.status()));
    QCOMPARE(p.state().document().isModified(), stored);
    // Refused, the frame stays open to be put right; stored, it closes.
    const bool open = p.button("cmdAdd")->text() == QLatin1String("Accept")
                      || p.button("cmdEdit")->text() == QLatin1String("Accept");
    QCOMPARE(open, !stored);
    QVERIFY(p.textures().count() >= rows);
    // One line that fits the window at its starting size.
    QStatusBar* bar = p.f.window->statusBar();
    QCOMPARE(p.f.window->size(), QSize(1030, 702));
    QVERIFY2(bar->fontMetrics().horizontalAdvance(p.status()) < bar->width() - 24, qPrintable(p.status()));
}

void tst_TexturesOfAnyLevel::everyRowOfALevelSurvivesEditAndAccept_data()
{
    QTest::addColumn<Game>("game");
    QTest::addColumn<Convention>("convention");
    QTest::addColumn<Cells>("addedBytes"); // of a rectangle added to the list, Lo on corner 1
    QTest::newRow("TR 2, 1 and 255") << Game::TR2 << Convention::LowHigh
                                     << Cells{"1", "1", "255", "1", "255", "255", "1", "255"};
    QTest::newRow("TR 2, all 0") << Game::TR2 << Convention::Zero << Cells(8, "0");
    QTest::newRow("TR 3, 127 and triangles 0") << Game::TR3 << Convention::Half << Cells(8, "127");
    QTest::newRow("TR 2, mixed") << Game::TR2 << Convention::Mixed << Cells{};
}

void tst_TexturesOfAnyLevel::everyRowOfALevelSurvivesEditAndAccept()
{
    QFETCH(Game, game);
    QFETCH(Convention, convention);
    QFETCH(Cells, addedBytes);
    EditorFixture f;
    SyntheticLevel level(game);
    level.setTileCount(3);
    level.setObjectTextures(SyntheticTextures::Rows(convention, 120, 3));
    const QString levelPath = f.dir.filePath(QStringLiteral("level.tr2"));
    QVERIFY(level.writeTo(levelPath));
    const QString listPath = f.dir.filePath(QStringLiteral("level.trt"));
    f.newList(listPath, levelPath, f.writeBitmap(QStringLiteral("level.bmp"), 3));
    f.window->show();
    QVERIFY(QTest::qWaitForWindowExposed(f.window.get()));
    ListRows& textures = f.window->state().views.lsvTextures;
    QCOMPARE(textures.count(), 120);

    QList<Cells> read;
    for (int row = 0; row < textures.count(); ++row) {
        read << textures.row(row).subItems;
        UserActions::ClickRow(f.find<ListView>("lsvTextures"), row);
        QTest::mouseClick(f.find<QPushButton>("cmdEdit"), Qt::LeftButton);
        QTest::mouseClick(f.find<QPushButton>("cmdEdit"), Qt::LeftButton);
        // Only the two kept rules change anything: the attribute read from
        // "X1", and a top at Y 0 of tile 1, shown as 256, stays in tile 1.
        Cells expected = read.last();
        expected[1] = QString::number(TextureGeometry::KnownAttribute(expected[2].toInt()));
        const bool triangle = Cells{expected[8], expected[9], expected[16], expected[17]} == Cells(4, "0");
        const int used = triangle ? 3 : 4;
        int top = 255;
        for (int i = 0; i < used; ++i)
            top = qMin(top, expected[3 + 2 * i].toInt());
        for (int i = 0; i < used && expected[0] == QLatin1String("1") && top == 0; ++i)
            expected[3 + 2 * i] = QString::number(expected[3 + 2 * i].toInt() + 256);
        QCOMPARE(textures.row(row).subItems, expected);
    }

    // A new texture takes the bytes most rows of the list use.
    QTest::mouseClick(f.find<QPushButton>("cmdAdd"), Qt::LeftButton);
    for (const auto& [name, value] : {std::pair{"txtX_0", "10"}, {"txtY_0", "20"}, {"txtX_2", "30"}, {"txtY_2", "40"}})
        UserActions::TypeInto(f.find<QLineEdit>(name), QString::fromLatin1(value));
    QTest::mouseClick(f.find<QPushButton>("cmdAdd"), Qt::LeftButton);
    QCOMPARE(textures.count(), 121);
    if (!addedBytes.isEmpty())
        QCOMPARE(textures.row(120).subItems.mid(10), addedBytes);

    // Saved, the Y kept at 256 is its old byte again: the list holds the
    // level's bytes but for the attributes.
    f.find<QAction>("mnuFileSaveList")->trigger();
    f.openList(listPath);
    for (int row = 0; row < read.size(); ++row) {
        Cells expected = read[row];
        expected[1] = QString::number(TextureGeometry::KnownAttribute(expected[2].toInt()));
        QCOMPARE(textures.row(row).subItems, expected);
    }
}

void tst_TexturesOfAnyLevel::hostileRowsStayAsTheyWere_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<bool>("stored");
    QTest::newRow("corner past 255") << "0 0 10 10 300 10 300 60 10 60 1 1 255 1 255 255 1 255" << false;
    QTest::newRow("four equal corners") << "0 0 7 7 7 7 7 7 7 7 1 1 1 1 1 1 1 1" << false;
    QTest::newRow("tile past the bitmap") << "99 0 10 10 50 10 50 60 10 60 0 0 0 0 0 0 0 0" << true;
    QTest::newRow("tile 65535") << "65535 0 10 10 50 10 50 60 10 60 9 9 9 9 9 9 9 9" << true;
    QTest::newRow("attribute 0xFFFF") << "0 65535 1 20 50 20 50 60 1 60 0 0 0 0 0 0 0 0" << true;
}

void tst_TexturesOfAnyLevel::hostileRowsStayAsTheyWere()
{
    QFETCH(QString, row);
    QFETCH(bool, stored);
    Page p;
    const Cells cells = row.split(QLatin1Char(' '));
    const int at = TableRows::addTexture(p.state().document().tables(), 30, cells);
    p.load(at);
    // The boxes show what the row holds, whole-bitmap Y included.
    QCOMPARE(p.box("txtX_1")->text(), cells[4]);
    QCOMPARE(p.box("txtY_1")->text().toLongLong(), cells[0].toLongLong() * 256 + cells[5].toLongLong());
    p.click("cmdEdit");
    p.click("cmdEdit");
    Cells expected = cells;
    if (stored)
        expected[1] = QString::number(TextureGeometry::KnownAttribute(cells[2].toInt()));
    else
        QVERIFY2(p.status().startsWith(QLatin1String("Nothing was stored")), qPrintable(p.status()));
    QCOMPARE(p.cells(at), expected);
    p.click("cmdCancel");
    p.click("cmdDraw");
}

void tst_TexturesOfAnyLevel::cornersTypedInLowerTiles_data()
{
    // Textures of a 16-tile level: texture n lies in tile n mod 16, every
    // fifth is a triangle. Each row types whole-bitmap values ("BOX=VALUE")
    // into an edited texture, then Accept: it stays in its tile, moves to
    // the tile it was typed into whole, or is refused, naming the corner by
    // the label its row shows (texture 3 is flipped: its row 1 reads "3").
    QTest::addColumn<int>("row");
    QTest::addColumn<QStringList>("typed");
    QTest::addColumn<int>("tile"); // -1: refused
    QTest::addColumn<QString>("said");
    QTest::newRow("rectangle of tile 3, top Y kept in it") << 3 << QStringList{"txtY_3=800"} << 3 << "";
    QTest::newRow("rectangle of tile 1, both corners typed") << 17 << QStringList{"txtY_1=300", "txtX_3=200"} << 1
                                                             << "";
    QTest::newRow("rectangle of tile 15, Hi corner typed")
        << 15 << QStringList{"txtX_1=250", "txtY_1=4000"} << 15 << "";
    QTest::newRow("rectangle of tile 5 typed whole into tile 7")
        << 5 << QStringList{"txtY_1=1800", "txtY_3=1850"} << 7 << "";
    QTest::newRow("rectangle of tile 3, top Y typed into tile 0")
        << 3 << QStringList{"txtY_3=40"} << -1 << "corner 3 (Y 956) lies outside tile 0 of the Lo corner, which "
                                                  "holds Y 0 to 255";
    QTest::newRow("rectangle of tile 12, Hi corner typed into tile 13")
        << 12 << QStringList{"txtY_2=3400"} << -1 << "corner 3 (Y 3400) lies outside tile 12 of the Lo corner";
    QTest::newRow("triangle of tile 4, corner kept in it") << 4 << QStringList{"txtY_1=1100"} << 4 << "";
    QTest::newRow("triangle of tile 3, corner 3 at 880") << 19 << QStringList{"txtY_2=880"} << 3 << "";
    QTest::newRow("triangle of tile 9 typed whole into tile 10")
        << 9 << QStringList{"txtY_0=2600", "txtY_1=2610", "txtY_2=2650"} << 10 << "";
    QTest::newRow("triangle of tile 1, corner 2 typed into tile 0")
        << 49 << QStringList{"txtY_1=100"} << -1
        << "corner 2 (Y 100) lies outside tile 1 of the texture's other corners, which holds Y 256 to 511";
    QTest::newRow("triangle of tile 14, two corners typed into tile 2")
        << 14 << QStringList{"txtY_0=600", "txtY_2=610"} << -1 << "corner 2 (Y 3";
}

void tst_TexturesOfAnyLevel::cornersTypedInLowerTiles()
{
    QFETCH(int, row);
    QFETCH(QStringList, typed);
    QFETCH(int, tile);
    QFETCH(QString, said);
    Page p(16, 80);
    p.load(row);
    const Cells loaded = p.cells(row);
    // A triangle's fourth row is not one of its corners.
    const int used = Cells{loaded[8], loaded[9], loaded[16], loaded[17]} == Cells(4, "0") ? 3 : 4;
    const auto corners = [&p, used] { return p.column("txtX").mid(0, used) + p.column("txtY").mid(0, used); };
    p.click("cmdEdit");
    for (const QString& step : typed) {
        const QStringList boxAndValue = step.split(QLatin1Char('='));
        p.type(boxAndValue[0], boxAndValue[1]);
        QCOMPARE(p.box(boxAndValue[0])->text(), boxAndValue[1]);
    }
    const Cells shown = corners();
    p.click("cmdEdit");

    if (tile < 0) {
        QVERIFY2(p.status().startsWith(QLatin1String("Nothing was stored: ")) && p.status().contains(said),
                 qPrintable(p.status()));
        QCOMPARE(p.cells(row), loaded);
        QCOMPARE(p.button("cmdEdit")->text(), QStringLiteral("Accept"));
        QCOMPARE(corners(), shown);
        return;
    }
    // What the boxes showed is what was stored: loaded again, every corner
    // shows as typed, or as the rectangle sync moved it, in its tile.
    const Cells stored = p.cells(row);
    QCOMPARE(stored[0], QString::number(tile));
    for (int column = 3; column < 3 + 2 * used; ++column)
        QVERIFY2(stored[column - 1].toInt() >= 0 && stored[column - 1].toInt() <= 255, qPrintable(stored.join(' ')));
    p.load(row);
    QCOMPARE(p.box("txtTileNo")->text(), QString::number(tile));
    QCOMPARE(corners(), shown);
}

QTEST_MAIN(tst_TexturesOfAnyLevel)
#include "tst_TexturesOfAnyLevel.moc"
