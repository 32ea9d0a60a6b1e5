#include "ui/main/frmMain.h"
#include "uisupport/EditorFixture.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>
#include <QTreeView>
#include <QTest>

// The window at the sizes people run it at: every caption and number shown
// whole, and the window keeps its size whichever page is shown.
class tst_WindowLayout : public QObject
{
    Q_OBJECT

private slots:
    void everyCaptionAndNumberFits_data();
    void everyCaptionAndNumberFits();
    void switchingPagesKeepsTheWindowStill();
    void theTexturePageShowsItsListsAtEverySize_data();
    void theTexturePageShowsItsListsAtEverySize();
};

namespace {

// Long paths may run past the window's edge; everything else must fit.
bool MayBeCut(const QWidget* widget)
{
    const QString name = widget->objectName();
    return name == QLatin1String("lblListFile") || name == QLatin1String("lblTextureFile")
           || name == QLatin1String("lblLevelFile");
}

// What of the shown controls is narrower or lower than its text needs.
QStringList Squeezed(const QWidget& window)
{
    QStringList squeezed;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        // The tab strip's own scroll arrows are no caption.
        if (!widget->isVisible() || MayBeCut(widget) || qobject_cast<const QTabBar*>(widget->parentWidget()))
            continue;
        QSize needs;
        if (const auto* label = qobject_cast<const QLabel*>(widget)) {
            if (label->wordWrap() || label->text().isEmpty())
                continue;
            needs = label->fontMetrics().size(Qt::TextShowMnemonic, label->text());
        } else if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
            needs = button->fontMetrics().size(Qt::TextShowMnemonic, button->text()) + QSize(4, 2);
        } else if (const auto* box = qobject_cast<const QLineEdit*>(widget)) {
            needs = QSize(box->fontMetrics().horizontalAdvance(box->text()) + 4, box->fontMetrics().height());
        } else {
            continue;
        }
        if (widget->width() < needs.width() || widget->height() < needs.height())
            squeezed << QStringLiteral("%1 \"%2\" %3x%4 < %5x%6")
                            .arg(widget->objectName(), widget->property("text").toString())
                            .arg(widget->width())
                            .arg(widget->height())
                            .arg(needs.width())
                            .arg(needs.height());
    }
    return squeezed;
}

} // namespace

void tst_WindowLayout::everyCaptionAndNumberFits_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("page");
    for (const QSize size : {QSize(800, 600), QSize(1030, 702), QSize(1920, 1080), QSize(2560, 1440)}) {
        for (int page = 1; page <= 5; ++page)
            QTest::addRow("%dx%d page %d", size.width(), size.height(), page) << size << page;
    }
}

void tst_WindowLayout::everyCaptionAndNumberFits()
{
    QFETCH(QSize, size);
    QFETCH(int, page);
    EditorFixture f;
    f.openList(f.listPath());
    // The widest numbers a list of the largest bitmap shows.
    for (const char* name : {"lblWidth", "lblHeight", "lblNbTiles", "lblTileShow", "lblMousePosX", "lblMousePosY"})
        f.find<QLabel>(name)->setText(QStringLiteral("32768"));
    f.find<QLabel>("lblZoomFactor")->setText(QStringLiteral("Zoom Factor: 16"));
    f.window->resize(size);
    f.window->show();
    QVERIFY(QTest::qWaitForWindowExposed(f.window.get()));
    f.window->ShowPage(page);
    QCoreApplication::processEvents();
    QCOMPARE(f.window->size(), size);
    // The page column scrolls only when the window cannot give it its page's width.
    auto* column = f.find<QScrollArea>("pageScroll");
    QTRY_COMPARE(column->horizontalScrollBar()->maximum(), 0);
    const QStringList squeezed = Squeezed(*f.window);
    QVERIFY2(squeezed.isEmpty(), qPrintable(squeezed.join(QStringLiteral("; "))));
}

void tst_WindowLayout::switchingPagesKeepsTheWindowStill()
{
    EditorFixture f;
    f.window->show();
    QVERIFY(QTest::qWaitForWindowExposed(f.window.get()));
    const QSize size = f.window->size();
    const QRect bitmap = f.find<QWidget>("ucScrollPic1")->geometry();
    for (int tab : {1, 2, 3, 4, 5, 1}) {
        QTest::mouseClick(f.window->tbsStrip(), Qt::LeftButton, {}, f.window->tbsStrip()->tabRect(tab - 1).center());
        QCoreApplication::processEvents();
        QCOMPARE(f.window->size(), size);
        QCOMPARE(f.find<QWidget>("ucScrollPic1")->geometry(), bitmap);
    }
}

void tst_WindowLayout::theTexturePageShowsItsListsAtEverySize_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("wholeTable"); // every column of the complete list side by side
    QTest::newRow("800x600") << QSize(800, 600) << false;
    QTest::newRow("1030x702") << QSize(1030, 702) << false;
    QTest::newRow("1920x1080") << QSize(1920, 1080) << true;
    QTest::newRow("2560x1440") << QSize(2560, 1440) << true;
}

// Ticking textures to draw needs a checklist of some rows; on a wide screen
// the complete list has the room to show every column without a sideways
// scroll, and the bitmap keeps the rest.
void tst_WindowLayout::theTexturePageShowsItsListsAtEverySize()
{
    QFETCH(QSize, size);
    QFETCH(bool, wholeTable);
    EditorFixture f;
    f.openList(f.listPath());
    f.window->resize(size);
    f.window->show();
    QVERIFY(QTest::qWaitForWindowExposed(f.window.get()));
    f.window->ShowPage(1);
    QCoreApplication::processEvents();

    auto* checklist = f.find<QTreeView>("lsvObjects");
    QVERIFY(checklist->model()->rowCount() > 8);
    const QRect view = checklist->viewport()->rect();
    int shown = 0;
    for (int row = 0; row < checklist->model()->rowCount(); ++row)
        shown += view.contains(checklist->visualRect(checklist->model()->index(row, 0))) ? 1 : 0;
    QVERIFY2(shown >= 8, qPrintable(QString::number(shown)));

    auto* textures = f.find<QTreeView>("lsvTextures");
    if (wholeTable)
        QTRY_COMPARE(textures->horizontalScrollBar()->maximum(), 0);
    // The bitmap keeps room for a whole tile at zoom 2, and all the rest.
    if (wholeTable) {
        const int bitmap = f.find<QWidget>("ucScrollPic1")->width();
        QVERIFY2(bitmap >= 512, qPrintable(QString::number(bitmap)));
        QCOMPARE(f.find<QWidget>("pageSide")->width(), f.find<QWidget>("pageSide")->maximumWidth());
    }
    QTRY_COMPARE(f.find<QScrollArea>("pageScroll")->horizontalScrollBar()->maximum(), 0);
}

QTEST_MAIN(tst_WindowLayout)
#include "tst_WindowLayout.moc"
