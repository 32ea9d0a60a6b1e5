#include "uisupport/TexturePageUser.h"
#include "ui/common/EditorState.h"
#include "level/LevelVersion.h"
#include "level/TextureUsage.h"
#include "list/TextureGeometry.h"
#include "list/m_TextureList.h"
#include "ui/common/ListView.h"
#include "uisupport/UserActions.h"
#include "ui/main/frmMain.h"
#include "ui/bitmap/ucScrollPic.h"

#include <QAction>
#include <QCheckBox>
#include <QApplication>
#include <QClipboard>
#include <QFileInfo>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include "support/TableRows.h"

#include <QTest>
#include <QUndoStack>

using Cells = QStringList;

// The "Object Textures" page driven as a user would, over the demo list.
using Ranges = QList<QList<quint16>>;

class tst_ObjectTexturePage : public QObject
{
    Q_OBJECT

private slots:
    void startsViewingWithItsCaptions();
    void loadingARow_data();
    void loadingARow();
    void cornerBoxesHoldTheirInput_data();
    void cornerBoxesHoldTheirInput();
    void addThenEditWhatWasAdded();
    void flipsThenAccept_data();
    void flipsThenAccept();
    void triangleThenQuad();
    void attributeFollowsTheGame_data();
    void attributeFollowsTheGame();
    void oneTileRules_data();
    void oneTileRules();
    void deletionKeepsNumbersAndAddTakesAFreeOne();
    void deletionAsksThenRangesFollow_data();
    void deletionAsksThenRangesFollow();
    void checklistMarkers_data();
    void checklistMarkers();
    void drawOutlinesTickedTextures();
    void editsSurviveSaveAndReopen();
    void anyRowLoadsWithoutHarm();

private:
    using Page = TexturePageUser;
    static Cells Row(int tile, int trans, const QList<QPoint>& corners, const QList<QPoint>& bytes)
    {
        return TexturePageUser::Row(tile, trans, corners, bytes);
    }
};

void tst_ObjectTexturePage::startsViewingWithItsCaptions()
{
    EditorFixture f;
    const QList<std::pair<const char*, const char*>> captions{
        {"cmdAdd", "Add"},         {"cmdEdit", "Edit"},        {"cmdDel", "Delete"},
        {"cmdCancel", "Cancel"},   {"cmdAttrib", "Is Opaque"}, {"cmdSides", "Make Quad"},
        {"cmdFlipHor", "Flip Horiz."}, {"cmdFlipVert", "Flip Vert."}, {"cmdDraw", "Draw"},
        {"cmdColor", "Color"}};
    for (const auto& [name, caption] : captions)
        QCOMPARE(f.find<QPushButton>(name)->text(), QString::fromLatin1(caption));
    for (const char* name : {"cmdAdd", "cmdEdit", "cmdDel", "cmdAttrib", "cmdSides", "cmdFlipHor", "cmdFlipVert"})
        QVERIFY2(!f.find<QPushButton>(name)->isEnabled(), name);
    for (const char* name : {"txtX_0", "txtY_1", "txtX_2", "txtY_3"}) {
        auto* box = f.find<QLineEdit>(name);
        QVERIFY(box->text().isEmpty() && box->isReadOnly());
        QCOMPARE(box->palette().color(QPalette::Base), QColor(0xE0, 0xE0, 0xE0));
    }
    QVERIFY(!f.find<QLineEdit>("txtTileNo")->isEnabled());

    f.openList(f.listPath());
    QVERIFY(f.find<QPushButton>("cmdAdd")->isEnabled());
    QCOMPARE(f.find<QLineEdit>("txtTextureQty")->text(), QStringLiteral("30"));
    // The checklist comes all ticked.
    const ListRows& objects = f.window->state().lsvObjects;
    QCOMPARE(objects.count(), 32);
    for (int row = 0; row < objects.count(); ++row)
        QCOMPARE(objects.checkState(row), Qt::Checked);
}

void tst_ObjectTexturePage::loadingARow_data()
{
    QTest::addColumn<Cells>("row");
    QTest::addColumn<QString>("attribute");
    QTest::addColumn<QString>("sides");
    QTest::addColumn<Cells>("x");
    QTest::addColumn<Cells>("y");
    QTest::addColumn<Cells>("markers");
    QTest::addColumn<Cells>("labels");
    QTest::addColumn<QString>("flipHor");
    QTest::addColumn<bool>("free"); // corners typed one by one

    const QList<QPoint> square{{10, 20}, {50, 20}, {50, 60}, {10, 60}};
    const QList<QPoint> loFirst{{1, 1}, {255, 1}, {255, 255}, {1, 255}};
    // The attribute comes from "X1", whatever "Trans" says.
    QTest::newRow("trans 1, X1 0: opaque")
        << Row(0, 1, {{0, 20}, {50, 20}, {50, 60}, {0, 60}}, loFirst) << "Is Opaque" << "Make Triad"
        << Cells{"0", "50", "50", "0"} << Cells{"20", "20", "60", "60"} << Cells{"Lo", "", "Hi", ""}
        << Cells{"1", "2", "3", "4"} << "Flip Horiz." << false;
    QTest::newRow("X1 1: transparent") << Row(0, 0, {{1, 20}, {50, 20}, {50, 60}, {1, 60}}, loFirst)
                                       << "Is Transparent" << "Make Triad" << Cells{"1", "50", "50", "1"}
                                       << Cells{"20", "20", "60", "60"} << Cells{"Lo", "", "Hi", ""}
                                       << Cells{"1", "2", "3", "4"} << "Flip Horiz." << false;
    QTest::newRow("X1 2: equal") << Row(0, 1, {{2, 20}, {50, 20}, {50, 60}, {2, 60}}, loFirst) << "Is Equal"
                                 << "Make Triad" << Cells{"2", "50", "50", "2"} << Cells{"20", "20", "60", "60"}
                                 << Cells{"Lo", "", "Hi", ""} << Cells{"1", "2", "3", "4"} << "Flip Horiz." << false;
    QTest::newRow("X1 7 is no attribute") << Row(0, 2, {{7, 20}, {50, 20}, {50, 60}, {7, 60}}, loFirst)
                                          << "Is Opaque" << "Make Triad" << Cells{"7", "50", "50", "7"}
                                          << Cells{"20", "20", "60", "60"} << Cells{"Lo", "", "Hi", ""}
                                          << Cells{"1", "2", "3", "4"} << "Flip Horiz." << false;
    // Y in the boxes is whole-bitmap: the tile's offset is added.
    QTest::newRow("tile 2") << Row(2, 0, square, loFirst) << "Is Opaque" << "Make Triad"
                            << Cells{"10", "50", "50", "10"} << Cells{"532", "532", "572", "572"}
                            << Cells{"Lo", "", "Hi", ""} << Cells{"1", "2", "3", "4"} << "Flip Horiz." << false;
    QTest::newRow("Lo on corner 2: flipped across")
        << Row(0, 0, {{50, 20}, {10, 20}, {10, 60}, {50, 60}}, {{255, 1}, {1, 1}, {1, 255}, {255, 255}}) << "Is Opaque"
        << "Make Triad" << Cells{"50", "10", "10", "50"} << Cells{"20", "20", "60", "60"} << Cells{"", "Lo", "", "Hi"}
        << Cells{"2", "1", "4", "3"} << "Un-flip Horiz." << false;
    QTest::newRow("Lo on corner 3: flipped both ways")
        << Row(0, 0, {{50, 60}, {10, 60}, {10, 20}, {50, 20}}, {{255, 255}, {1, 255}, {1, 1}, {255, 1}})
        << "Is Opaque" << "Make Triad" << Cells{"50", "10", "10", "50"} << Cells{"60", "60", "20", "20"}
        << Cells{"Hi", "", "Lo", ""} << Cells{"3", "4", "1", "2"} << "Un-flip Horiz." << false;
    // A triangle's fourth corner is filled from corners 1 and 3.
    QTest::newRow("triangle") << Row(0, 0, {{10, 20}, {50, 20}, {50, 60}, {0, 0}}, {{1, 1}, {255, 1}, {255, 255}, {0, 0}})
                              << "Is Opaque" << "Make Quad" << Cells{"10", "50", "50", "10"}
                              << Cells{"20", "20", "60", "60"} << Cells{"Lo", "", "Hi", ""}
                              << Cells{"1", "2", "3", "4"} << "Flip Horiz." << true;
    // Tools that wrote levels left other sub-pixel bytes: the corners tell Lo and Hi.
    QTest::newRow("all bytes 0") << Row(0, 0, square, QList<QPoint>(4))
                                 << "Is Opaque" << "Make Triad" << Cells{"10", "50", "50", "10"}
                                 << Cells{"20", "20", "60", "60"} << Cells{"Lo", "", "Hi", ""}
                                 << Cells{"1", "2", "3", "4"} << "Flip Horiz." << false;
    QTest::newRow("bytes 127, Lo on corner 3")
        << Row(0, 0, {{50, 60}, {10, 60}, {10, 20}, {50, 20}}, QList<QPoint>(4, {127, 127})) << "Is Opaque"
        << "Make Triad" << Cells{"50", "10", "10", "50"} << Cells{"60", "60", "20", "20"} << Cells{"Hi", "", "Lo", ""}
        << Cells{"3", "4", "1", "2"} << "Un-flip Horiz." << false;
    QTest::newRow("bytes 0 and 128, Lo on corner 4")
        << Row(0, 0, {{10, 60}, {50, 60}, {50, 20}, {10, 20}}, {{0, 128}, {128, 128}, {128, 0}, {0, 0}})
        << "Is Opaque" << "Make Triad" << Cells{"10", "50", "50", "10"} << Cells{"60", "60", "20", "20"}
        << Cells{"", "Hi", "", "Lo"} << Cells{"4", "3", "2", "1"} << "Flip Horiz." << false;
    QTest::newRow("bytes 1 and 255 that the corners belie")
        << Row(0, 0, {{50, 20}, {10, 20}, {10, 60}, {50, 60}}, loFirst) << "Is Opaque" << "Make Triad"
        << Cells{"50", "10", "10", "50"} << Cells{"20", "20", "60", "60"} << Cells{"", "Lo", "", "Hi"}
        << Cells{"2", "1", "4", "3"} << "Un-flip Horiz." << false;
    QTest::newRow("a quad that is no rectangle")
        << Row(0, 0, {{10, 10}, {60, 20}, {70, 80}, {5, 60}}, QList<QPoint>(4)) << "Is Opaque" << "Make Triad"
        << Cells{"10", "60", "70", "5"} << Cells{"10", "20", "80", "60"} << Cells(4) << Cells{"1", "2", "3", "4"}
        << "Flip Horiz." << true;
}

void tst_ObjectTexturePage::loadingARow()
{
    QFETCH(Cells, row);
    QFETCH(QString, attribute);
    QFETCH(QString, sides);
    QFETCH(Cells, x);
    QFETCH(Cells, y);
    QFETCH(Cells, markers);
    QFETCH(Cells, labels);
    QFETCH(QString, flipHor);
    QFETCH(bool, free);
    Page p;
    const int at = TableRows::addTexture(p.state().document().tables(), 30, row);
    p.load(at);

    QCOMPARE(p.box("txtTextureNo")->text(), QStringLiteral("30"));
    QCOMPARE(p.box("txtTileNo")->text(), row[0]);
    QCOMPARE(p.button("cmdAttrib")->text(), attribute);
    QCOMPARE(p.button("cmdSides")->text(), sides);
    QCOMPARE(p.column("txtX"), x);
    QCOMPARE(p.column("txtY"), y);
    QCOMPARE(p.column("txtHiLo"), markers);
    QCOMPARE(p.column("txtCorner"), labels);
    QCOMPARE(p.button("cmdFlipHor")->text(), flipHor);
    // Viewing: corners locked, flips off, Edit and Delete ready.
    QVERIFY(p.box("txtX_0")->isReadOnly() && p.box("txtY_2")->isReadOnly());
    QVERIFY(!p.button("cmdFlipHor")->isEnabled() && !p.button("cmdFlipVert")->isEnabled());
    QVERIFY(p.button("cmdEdit")->isEnabled() && p.button("cmdDel")->isEnabled());
    const bool triangle = sides == QLatin1String("Make Quad");
    QCOMPARE(p.box("txtX_3")->palette().color(QPalette::Base),
             triangle ? QColor(0x00, 0x80, 0x00) : QColor(0xE0, 0xE0, 0xE0));
    auto* freeCorners = p.f.find<QCheckBox>("chkFreeCorners");
    QCOMPARE(freeCorners->isChecked(), free);
    QVERIFY(!freeCorners->isEnabled());

    // Edit opens the typed corners: Lo and Hi of a rectangle, every corner in use when free.
    p.click("cmdEdit");
    const int lo = markers.indexOf(QStringLiteral("Lo")), hi = markers.indexOf(QStringLiteral("Hi"));
    for (int i = 0; i < 4; ++i) {
        const bool open = free ? i < (triangle ? 3 : 4) : (i == lo || i == hi);
        QCOMPARE(!p.box(QStringLiteral("txtY_%1").arg(i))->isReadOnly(), open);
    }
    QCOMPARE(freeCorners->isEnabled(), !triangle);
    // Accept with no change writes the row back as it was, but for the
    // attribute, which is read from "X1".
    const Cells before = p.cells(at);
    p.click("cmdEdit");
    Cells expected = before;
    expected[1] = QString::number(TextureGeometry::KnownAttribute(before[2].toInt()));
    QCOMPARE(p.cells(at), expected);
}

void tst_ObjectTexturePage::cornerBoxesHoldTheirInput_data()
{
    // The demo bitmap is four tiles, 1024 pixels high. A value past a box's
    // highest is not taken: the box keeps what it held before it.
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("pasted");
    QTest::addColumn<QString>("kept");
    QTest::addColumn<QString>("follower"); // the box the rectangle sync writes
    QTest::addColumn<QString>("said");
    QTest::newRow("X: four digits") << "txtX_0" << "1234" << false << "123" << "txtX_3"
                                    << "1234 was not taken: a corner's X goes from 0 to 255 within its tile.";
    QTest::newRow("X: 256") << "txtX_0" << "256" << false << "25" << "txtX_3" << "256 was not taken";
    QTest::newRow("X: 255") << "txtX_0" << "255" << false << "255" << "txtX_3" << "";
    QTest::newRow("X: minus sign") << "txtX_0" << "-5" << false << "5" << "txtX_3" << "";
    QTest::newRow("X: letters and point") << "txtX_0" << "1a2.5" << false << "125" << "txtX_3" << "";
    QTest::newRow("X: blank") << "txtX_0" << "" << false << "" << "txtX_3" << "";
    QTest::newRow("X: pasted text") << "txtX_0" << "x 9,99" << true << "" << "txtX_3" << "999 was not taken";
    QTest::newRow("X: pasted huge number") << "txtX_0" << "99999999999999999999" << true << "" << "txtX_3"
                                           << "999999999... was not taken";
    QTest::newRow("X: pasted small number") << "txtX_0" << "042" << true << "042" << "txtX_3" << "";
    QTest::newRow("Y: a lower tile") << "txtY_0" << "300" << false << "300" << "txtY_1" << "";
    QTest::newRow("Y: the bitmap's height") << "txtY_0" << "1024" << false << "1024" << "txtY_1" << "";
    QTest::newRow("Y: past the bitmap") << "txtY_0" << "1025" << false << "102" << "txtY_1"
                                        << "1025 was not taken: a corner's Y goes from 0 to 1024, the bitmap's height.";
    QTest::newRow("Y: pasted past the bitmap") << "txtY_0" << "7000" << true << "" << "txtY_1"
                                               << "7000 was not taken";
}

void tst_ObjectTexturePage::cornerBoxesHoldTheirInput()
{
    QFETCH(QString, box);
    QFETCH(QString, typed);
    QFETCH(bool, pasted);
    QFETCH(QString, kept);
    QFETCH(QString, follower);
    QFETCH(QString, said);
    Page p;
    p.click("cmdAdd");
    p.state().ShowStatus(QString());
    QLineEdit* edit = p.box(box);
    QVERIFY(!edit->isReadOnly());
    if (pasted) {
        QApplication::clipboard()->setText(typed);
        edit->setFocus();
        edit->selectAll();
        edit->paste();
    } else {
        UserActions::TypeInto(edit, typed);
    }
    QCOMPARE(edit->text(), kept);
    // The corner that follows the Lo corner keeps the held value too.
    QCOMPARE(p.box(follower)->text(), kept);
    QVERIFY2(said.isEmpty() ? p.status().isEmpty() : p.status().startsWith(said), qPrintable(p.status()));
}

void tst_ObjectTexturePage::addThenEditWhatWasAdded()
{
    Page p;
    p.addRectangle(10, 20, 70, 84);
    QCOMPARE(p.button("cmdAdd")->text(), QStringLiteral("Accept"));
    QCOMPARE(p.box("txtTextureNo")->text(), QStringLiteral("30"));
    QCOMPARE(p.column("txtHiLo"), (Cells{"Lo", "", "Hi", ""}));
    // Only the Lo and Hi corners take typing; the others follow them.
    QVERIFY(!p.box("txtX_0")->isReadOnly() && !p.box("txtY_2")->isReadOnly());
    QVERIFY(p.box("txtX_1")->isReadOnly() && p.box("txtY_3")->isReadOnly());
    QVERIFY(p.box("txtTileNo")->isEnabled());
    p.type("txtTileNo", "2");
    QCOMPARE(p.column("txtX"), (Cells{"10", "70", "70", "10"}));
    QCOMPARE(p.column("txtY"), (Cells{"20", "20", "84", "84"}));
    p.click("cmdAdd");

    const ListRows& textures = p.textures();
    QCOMPARE(textures.count(), 31);
    QCOMPARE(textures.key(30), QStringLiteral("T30"));
    QCOMPARE(textures.text(30), QStringLiteral("30"));
    QCOMPARE(p.cells(30), Row(2, 0, {{10, 20}, {70, 20}, {70, 84}, {10, 84}}, {{1, 1}, {255, 1}, {255, 255}, {1, 255}}));
    QCOMPARE(p.button("cmdAdd")->text(), QStringLiteral("Add"));
    QCOMPARE(p.box("txtTextureQty")->text(), QStringLiteral("31"));
    QCOMPARE(p.box("txtTextureNo")->text(), QStringLiteral("31"));
    QCOMPARE(p.state().lsvObjects.count(), 33);
    QCOMPARE(p.state().lsvObjects.checkState(32), Qt::Checked);
    QCOMPARE(p.state().lsvAvailTextures.count(), 31);
    QVERIFY(p.state().document().isModified() && p.f.find<QAction>("mnuFileSaveList")->isEnabled());
    QVERIFY(!p.box("txtTileNo")->isEnabled() && p.box("txtX_0")->isReadOnly());

    // Edit what was added: the Hi corner moves right.
    p.load(30);
    QCOMPARE(p.column("txtY"), (Cells{"532", "532", "596", "596"}));
    p.click("cmdEdit");
    QCOMPARE(p.button("cmdEdit")->text(), QStringLiteral("Accept"));
    QVERIFY(p.button("cmdFlipHor")->isEnabled());
    p.type("txtX_2", "80");
    QCOMPARE(p.box("txtX_1")->text(), QStringLiteral("80"));
    p.click("cmdEdit");
    QCOMPARE(p.cells(30), Row(2, 0, {{10, 20}, {80, 20}, {80, 84}, {10, 84}}, {{1, 1}, {255, 1}, {255, 255}, {1, 255}}));
    QCOMPARE(p.textures().count(), 31);
    QCOMPARE(p.button("cmdEdit")->text(), QStringLiteral("Edit"));
    QCOMPARE(p.column("txtX"), (Cells{"", "", "", ""}));
    QVERIFY(!p.button("cmdSides")->isEnabled() && !p.button("cmdAttrib")->isEnabled());

    // Cancel leaves the row as it is and deselects it.
    p.load(30);
    p.click("cmdEdit");
    p.type("txtX_0", "0");
    p.click("cmdCancel");
    QCOMPARE(p.cells(30)[2], QStringLiteral("10"));
    QCOMPARE(p.textures().selectedRow(), -1);
    QCOMPARE(p.button("cmdEdit")->text(), QStringLiteral("Edit"));
    QVERIFY(!p.button("cmdEdit")->isEnabled());
}

void tst_ObjectTexturePage::flipsThenAccept_data()
{
    QTest::addColumn<QString>("flips");
    QTest::addColumn<Cells>("labels");
    QTest::addColumn<Cells>("markers");
    QTest::addColumn<Cells>("captions");
    QTest::addColumn<Cells>("stored");
    QTest::newRow("horizontal") << "H" << Cells{"2", "1", "4", "3"} << Cells{"", "Lo", "", "Hi"}
                                << Cells{"Un-flip Horiz.", "Flip Vert."}
                                << Row(0, 0, {{70, 20}, {10, 20}, {10, 84}, {70, 84}},
                                       {{255, 1}, {1, 1}, {1, 255}, {255, 255}});
    QTest::newRow("vertical") << "V" << Cells{"4", "3", "2", "1"} << Cells{"", "Hi", "", "Lo"}
                              << Cells{"Flip Horiz.", "Un-flip Vert."}
                              << Row(0, 0, {{10, 84}, {70, 84}, {70, 20}, {10, 20}},
                                     {{1, 255}, {255, 255}, {255, 1}, {1, 1}});
    QTest::newRow("both") << "HV" << Cells{"3", "4", "1", "2"} << Cells{"Hi", "", "Lo", ""}
                          << Cells{"Un-flip Horiz.", "Un-flip Vert."}
                          << Row(0, 0, {{70, 84}, {10, 84}, {10, 20}, {70, 20}},
                                 {{255, 255}, {1, 255}, {1, 1}, {255, 1}});
    QTest::newRow("horizontal twice") << "HH" << Cells{"1", "2", "3", "4"} << Cells{"Lo", "", "Hi", ""}
                                      << Cells{"Flip Horiz.", "Flip Vert."}
                                      << Row(0, 0, {{10, 20}, {70, 20}, {70, 84}, {10, 84}},
                                             {{1, 1}, {255, 1}, {255, 255}, {1, 255}});
}

void tst_ObjectTexturePage::flipsThenAccept()
{
    QFETCH(QString, flips);
    QFETCH(Cells, labels);
    QFETCH(Cells, markers);
    QFETCH(Cells, captions);
    QFETCH(Cells, stored);
    Page p;
    p.addRectangle(10, 20, 70, 84);
    for (QChar flip : flips)
        p.click(flip == QLatin1Char('H') ? "cmdFlipHor" : "cmdFlipVert");
    QCOMPARE(p.column("txtCorner"), labels);
    QCOMPARE(p.column("txtHiLo"), markers);
    QCOMPARE((Cells{p.button("cmdFlipHor")->text(), p.button("cmdFlipVert")->text()}), captions);
    // The rows moved whole; the Lo and Hi rows are the open ones.
    const int lo = markers.indexOf(QStringLiteral("Lo"));
    QCOMPARE(p.box(QStringLiteral("txtX_%1").arg(lo))->text(), QStringLiteral("10"));
    QVERIFY(!p.box(QStringLiteral("txtY_%1").arg(lo))->isReadOnly());
    QVERIFY(p.box(QStringLiteral("txtY_%1").arg((lo + 1) % 4))->isReadOnly());
    p.click("cmdAdd");
    QCOMPARE(p.cells(30), stored);

    // Loaded again, the row shows the flips it was stored with.
    p.load(30);
    QCOMPARE(p.column("txtCorner"), labels);
    QCOMPARE(p.button("cmdFlipHor")->text(), captions[0]);
}

void tst_ObjectTexturePage::triangleThenQuad()
{
    Page p;
    p.addRectangle(10, 20, 70, 84);
    p.click("cmdSides");
    QCOMPARE(p.button("cmdSides")->text(), QStringLiteral("Make Quad"));
    QCOMPARE(p.box("txtX_3")->palette().color(QPalette::Base), QColor(0x00, 0x80, 0x00));
    QCOMPARE(p.box("txtY_3")->palette().color(QPalette::Text), QColor(0x00, 0xFF, 0x00));
    // A flip keeps the fourth row painted as unused.
    p.click("cmdFlipVert");
    QCOMPARE(p.box("txtX_3")->palette().color(QPalette::Base), QColor(0x00, 0x80, 0x00));
    p.click("cmdFlipVert");
    p.click("cmdAdd");
    QCOMPARE(p.cells(30), Row(0, 0, {{10, 20}, {70, 20}, {70, 84}, {0, 0}}, {{1, 1}, {255, 1}, {255, 255}, {0, 0}}));

    // Loaded as a triangle, made a quad again and stored.
    p.load(30);
    QCOMPARE(p.button("cmdSides")->text(), QStringLiteral("Make Quad"));
    QCOMPARE(p.column("txtX"), (Cells{"10", "70", "70", "10"}));
    p.click("cmdSides");
    QCOMPARE(p.button("cmdSides")->text(), QStringLiteral("Make Triad"));
    QCOMPARE(p.box("txtX_3")->palette().color(QPalette::Base), QColor(0xE0, 0xE0, 0xE0));
    p.click("cmdEdit");
    p.click("cmdEdit");
    QCOMPARE(p.cells(30), Row(0, 0, {{10, 20}, {70, 20}, {70, 84}, {10, 84}}, {{1, 1}, {255, 1}, {255, 255}, {1, 255}}));
}

void tst_ObjectTexturePage::attributeFollowsTheGame_data()
{
    QTest::addColumn<quint32>("version");
    QTest::addColumn<Cells>("captions");
    QTest::addColumn<QString>("stored");
    QTest::newRow("TR 1: never changes") << LevelVersion::TR1 << Cells{"Is Opaque", "Is Opaque", "Is Opaque"} << "0";
    QTest::newRow("TR 2: two values") << LevelVersion::TR2
                                      << Cells{"Is Transparent", "Is Opaque", "Is Transparent", "Is Opaque"} << "0";
    QTest::newRow("TR 3: three values") << LevelVersion::TR3 << Cells{"Is Transparent", "Is Equal"} << "2";
}

void tst_ObjectTexturePage::attributeFollowsTheGame()
{
    QFETCH(quint32, version);
    QFETCH(Cells, captions);
    QFETCH(QString, stored);
    Page p;
    p.state().document().setListVersion(version);
    p.addRectangle(1, 2, 3, 4);
    for (const QString& caption : captions) {
        p.click("cmdAttrib");
        QCOMPARE(p.button("cmdAttrib")->text(), caption);
    }
    p.click("cmdAdd");
    QCOMPARE(p.cells(30)[1], stored);
}

void tst_ObjectTexturePage::oneTileRules_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("loY");
    QTest::addColumn<Cells>("stored");
    QTest::addColumn<QString>("status"); // what the status bar says of it
    // Row 20 lies in tile 1, Y 64 to 127: its boxes hold 320 and 383.
    QTest::newRow("lower tile comes back") << 20 << "" << Cells{"1", "64", "64", "127", "127"} << "";
    QTest::newRow("top typed into tile 0: refused") << 20 << "0" << Cells{"1", "64", "64", "127", "127"}
                                                    << "Nothing was stored: corner 3 (Y 383) lies outside tile 0";
    QTest::newRow("Lo at 256 exactly stays in the tile box's tile")
        << 20 << "256" << Cells{"1", "256", "256", "383", "383"}
        << "Texture 20 stored at Y 256 of tile 1, not Y 0: a top Y of 256 keeps the tile named. To store Y 0, "
           "Edit and type 0 as its top Y.";
    // Row 16 starts at the top of tile 1: Y 256 is not below the first tile.
    QTest::newRow("loaded Lo at 256 exactly") << 16 << "" << Cells{"1", "256", "256", "319", "319"}
                                              << "Texture 16 stored at Y 256 of tile 1, not Y 0";
}

void tst_ObjectTexturePage::oneTileRules()
{
    QFETCH(int, row);
    QFETCH(QString, loY);
    QFETCH(Cells, stored);
    QFETCH(QString, status);
    Page p;
    p.load(row);
    p.click("cmdEdit");
    if (!loY.isEmpty())
        p.type("txtY_0", loY);
    p.click("cmdEdit");
    const Cells cells = p.cells(row);
    QCOMPARE((Cells{cells[0], cells[3], cells[5], cells[7], cells[9]}), stored);
    // What the user did not type is stored, with a word in the status bar.
    QVERIFY2(status.isEmpty() ? !p.status().contains(QLatin1String("stored")) : p.status().contains(status),
             qPrintable(p.status()));
}

void tst_ObjectTexturePage::deletionAsksThenRangesFollow_data()
{
    // The demo's ranges: 00 holds textures 16 to 19, 01 holds 20 to 22.
    QTest::addColumn<int>("texture");
    QTest::addColumn<bool>("answer");
    QTest::addColumn<Ranges>("ranges");
    QTest::addColumn<QString>("said");
    QTest::newRow("inside range 00") << 17 << true << Ranges{{16, 17, 18}, {19, 20, 21}}
                                     << "Deleted texture 17; ranges that showed it, now without it: 00. Edit, Undo "
                                        "brings all of it back.";
    QTest::newRow("before both ranges") << 5 << true << Ranges{{15, 16, 17, 18}, {19, 20, 21}}
                                        << "Deleted texture 05. Edit, Undo brings it back.";
    QTest::newRow("after both ranges") << 25 << true << Ranges{{16, 17, 18, 19}, {20, 21, 22}}
                                       << "Deleted texture 25. Edit, Undo brings it back.";
    QTest::newRow("Cancel") << 17 << false << Ranges{{16, 17, 18, 19}, {20, 21, 22}} << "";
}

void tst_ObjectTexturePage::deletionAsksThenRangesFollow()
{
    QFETCH(int, texture);
    QFETCH(bool, answer);
    QFETCH(Ranges, ranges);
    QFETCH(QString, said);
    Page p;
    const ListViewSet& views = p.state().views;
    p.load(texture);
    const QString number = views.lsvTextures.text(texture);
    p.state().ShowStatus(QString());
    p.f.prompts.confirmAnswers = {answer};
    p.click("cmdDel");

    // Asked first, with what the level's faces name.
    const std::optional<TextureUsage> usage = TextureUsage::ofLevel(p.f.levelPath());
    QVERIFY(usage);
    QCOMPARE(p.f.prompts.messages.size(), 1);
    QCOMPARE(p.f.prompts.messages[0].title, QStringLiteral("Delete Texture"));
    QVERIFY2(p.f.prompts.messages[0].text.startsWith(
                 QStringLiteral("%1 faces of %2 use texture %3, and %4 faces use the textures after it")
                     .arg(usage->roomFaces.at(texture) + usage->meshFaces.at(texture))
                     .arg(QFileInfo(p.f.levelPath()).fileName(), number)
                     .arg(usage->roomFaces.from(texture + 1) + usage->meshFaces.from(texture + 1))),
             qPrintable(p.f.prompts.messages[0].text));
    QCOMPARE(p.status(), said);
    QCOMPARE(p.textures().count(), answer ? 29 : 30);
    const QList<quint16> words = p.state().document().tables().AnimatedTextureWords();
    QCOMPARE(AnimatedTextureBlock::fromWords(words.constData(), words.size()).ranges, ranges);
    QCOMPARE(p.state().document().undoStack()->count(), answer ? 1 : 0);
}

void tst_ObjectTexturePage::deletionKeepsNumbersAndAddTakesAFreeOne()
{
    Page p;
    p.load(5);
    p.click("cmdDel");
    QCOMPARE(p.textures().count(), 29);
    QCOMPARE(p.textures().key(4), QStringLiteral("T4"));
    QCOMPARE(p.textures().key(5), QStringLiteral("T6"));
    QVERIFY(p.state().document().isModified());
    QVERIFY(!p.button("cmdDel")->isEnabled());

    // 29 rows, but T29 is still there: the new texture takes 30.
    p.click("cmdAdd");
    QCOMPARE(p.box("txtTextureNo")->text(), QStringLiteral("30"));
    p.type("txtX_0", "1");
    p.type("txtY_0", "1");
    p.type("txtX_2", "9");
    p.type("txtY_2", "9");
    p.click("cmdAdd");
    QCOMPARE(p.textures().count(), 30);
    QCOMPARE(p.textures().key(28), QStringLiteral("T29"));
    QCOMPARE(p.textures().key(29), QStringLiteral("T30"));
    QCOMPARE(p.textures().text(29), QStringLiteral("30"));

    // Delete without a selected row does nothing.
    p.click("cmdCancel");
    p.state().document().markSaved();
    p.click("cmdDel");
    QCOMPARE(p.textures().count(), 30);
    QVERIFY(!p.state().document().isModified());
}

void tst_ObjectTexturePage::checklistMarkers_data()
{
    QTest::addColumn<int>("clicked");
    QTest::addColumn<Cells>("ticks"); // None, All, row "1", row "2" after the click
    QTest::newRow("None") << 0 << Cells{"on", "off", "on", "on"};
    QTest::newRow("All after None") << 1 << Cells{"off", "on", "on", "on"};
    QTest::newRow("a texture") << 2 << Cells{"off", "off", "off", "on"};
}

void tst_ObjectTexturePage::checklistMarkers()
{
    QFETCH(int, clicked);
    QFETCH(Cells, ticks);
    Page p;
    ListView* view = p.f.find<ListView>("lsvObjects");
    IndexRows& objects = p.state().lsvObjects;
    if (clicked == 1)
        UserActions::ClickCheckBox(view, 0);
    UserActions::ClickCheckBox(view, clicked);
    Cells got;
    for (int row = 0; row < 4; ++row)
        got << (objects.checkState(row) == Qt::Checked ? "on" : "off");
    QCOMPARE(got, ticks);

    // A change the user did not make with the mouse moves no marker.
    objects.setCheckState(3, Qt::Unchecked);
    QCOMPARE(objects.checkState(0) == Qt::Checked, ticks[0] == QLatin1String("on"));
    QCOMPARE(objects.checkState(1) == Qt::Checked, ticks[1] == QLatin1String("on"));
}

void tst_ObjectTexturePage::drawOutlinesTickedTextures()
{
    Page p;
    ListView* checklist = p.f.find<ListView>("lsvObjects");
    const ListRows& drawn = p.state().lsvDrawList;
    // "None" is a marker only: the texture rows stay ticked and are drawn.
    // Row k draws texture k, so texture 0 is never drawn and row 30 finds none.
    UserActions::ClickCheckBox(checklist, 0);
    p.click("cmdDraw");
    QCOMPARE(drawn.count(), 29);
    QCOMPARE(drawn.text(0), QStringLiteral("01"));
    QCOMPARE(drawn.row(0).subItems, (Cells{"4", "64", "0", "127", "63"}));
    // Texture 23 is a triangle of tile 1: three corners, whole-bitmap Y.
    QCOMPARE(drawn.text(22), QStringLiteral("23"));
    QCOMPARE(drawn.row(22).subItems, (Cells{"3", "0", "384", "63", "384", "0", "447"}));
    ucScrollPic* view = p.f.find<ucScrollPic>("ucScrollPic1");
    QCOMPARE(view->ShapeCount(), 23 * 2 + 6 * 4);

    // Unticking texture 1 and 23 leaves them out; the colour is the one chosen.
    UserActions::ClickCheckBox(checklist, 2);
    UserActions::ClickCheckBox(checklist, 24);
    p.f.prompts.colors = {QColor(Qt::red)};
    p.click("cmdColor");
    QCOMPARE(p.state().OutlineColor, QColor(Qt::red));
    p.click("cmdColor"); // cancelled: the colour stays
    QCOMPARE(p.state().OutlineColor, QColor(Qt::red));
    p.click("cmdDraw");
    QCOMPARE(drawn.count(), 27);
    QCOMPARE(drawn.text(0), QStringLiteral("02"));

    // A list of three textures (0, 1, 2) draws 1 and 2 only.
    RecordTable<TextureEntry>& textures = p.state().document().tables().textures;
    while (textures.count() > 3)
        textures.remove(3);
    p.state().FillTextureIndexLists();
    p.click("cmdDraw");
    QCOMPARE(drawn.count(), 2);
    QCOMPARE(drawn.text(1), QStringLiteral("02"));
}

void tst_ObjectTexturePage::editsSurviveSaveAndReopen()
{
    Page p;
    p.addRectangle(100, 120, 140, 200);
    p.click("cmdFlipHor");
    p.click("cmdSides");
    p.click("cmdAttrib");
    p.click("cmdAdd");
    p.load(7);
    p.click("cmdEdit");
    p.type("txtX_0", "200");
    p.click("cmdEdit");
    p.load(2);
    p.click("cmdDel");
    QList<Cells> made;
    for (int row = 0; row < p.textures().count(); ++row)
        made << p.cells(row);

    p.f.find<QAction>("mnuFileSaveList")->trigger();
    QVERIFY(!p.state().document().isModified());
    p.f.openList(p.f.listPath());
    QCOMPARE(p.textures().count(), made.size());
    for (int row = 0; row < made.size(); ++row)
        QCOMPARE(p.cells(row), made[row]);
    // Nothing but the question before the deletion was asked.
    QCOMPARE(p.f.prompts.messages.size(), 1);
    QCOMPARE(p.f.prompts.messages[0].title, QStringLiteral("Delete Texture"));
}

void tst_ObjectTexturePage::anyRowLoadsWithoutHarm()
{
    Page p;
    const QList<Cells> rows{
        {},
        {"abc", "", "-5", "99999999999", "x", "", "1e9", "256", "", "", "", "", "255", "255", "1", "1"},
        Cells(18, QStringLiteral("65535")),
        Cells(18, QStringLiteral("-2147483648")),
    };
    for (int i = 0; i < rows.size(); ++i) {
        const int row = TableRows::addTexture(p.state().document().tables(), 1000 + i, rows[i]);
        p.load(row);
        p.click("cmdEdit");
        p.click("cmdFlipHor");
        p.click("cmdSides");
        p.click("cmdEdit");
        p.click("cmdDraw");
    }
    QCOMPARE(p.textures().count(), 34);
}

QTEST_MAIN(tst_ObjectTexturePage)
#include "tst_ObjectTexturePage.moc"
