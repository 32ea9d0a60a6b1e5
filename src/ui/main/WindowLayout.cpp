#include "ui/main/WindowLayout.h"

#include "ui/common/EditorSettings.h"
#include "ui/main/frmMain.h"
#include "ui_frmMain.h"

#include <QEvent>
#include <QLabel>
#include <QScrollArea>
#include <QSplitter>
#include <QStyle>
#include <QTabBar>
#include <QHeaderView>
#include <QTreeView>

namespace {

void KeepRoomFor(QLabel& label, const QString& widest)
{
    label.setMinimumWidth(label.fontMetrics().horizontalAdvance(widest) + 2);
}

// Hidden pages leave the layout: without a floor of its own the column
// would take each shown page's size, and the window would jump.
void SizeForLargestPage(QWidget& host)
{
    QSize largest;
    for (QWidget* page : host.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        largest = largest.expandedTo(page->minimumSizeHint());
    host.setMinimumSize(largest);
}

// When the window is resized, the page column gets what its page needs
// first, as far as the bitmap's own minimum allows. Then, while the bitmap
// keeps room to show a tile across at zoom 2, the column widens until the
// complete texture list shows every column; the bitmap takes the rest. A
// handle the user drags stays where it is put until the next resize.
class PagesFirst : public QObject
{
public:
    PagesFirst(QSplitter& splitter, QWidget& bitmapSide, int pageWhole, int pageWide)
        : QObject(&splitter)
        , m_splitter(splitter)
        , m_bitmapSide(bitmapSide)
        , m_pageWhole(pageWhole)
        , m_pageWide(pageWide)
    {
        splitter.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        // After the splitter has shared out the new size itself.
        if (watched == &m_splitter && event->type() == QEvent::Resize)
            QMetaObject::invokeMethod(this, [this] { GiveThePageItsRoom(); }, Qt::QueuedConnection);
        return false;
    }

private:
    void GiveThePageItsRoom()
    {
        const QList<int> sizes = m_splitter.sizes();
        if (sizes.size() != 2)
            return;
        const int total = sizes[0] + sizes[1];
        const int bitmapLeast = m_bitmapSide.minimumSizeHint().width();
        const int bitmapRoomy = 2 * 256 + m_bitmapSide.style()->pixelMetric(QStyle::PM_ScrollBarExtent) + 4;
        const int wanted =
            qMax(qMin(m_pageWhole, total - bitmapLeast), qMin(m_pageWide, total - qMax(bitmapLeast, bitmapRoomy)));
        if (wanted != sizes[1])
            m_splitter.setSizes({total - wanted, wanted});
    }

    QSplitter& m_splitter;
    QWidget& m_bitmapSide;
    int m_pageWhole;
    int m_pageWide;
};

// The checklist shows this many rows however low the window, so ticking
// textures never becomes a matter of scrolling by twos and threes.
constexpr int ChecklistRows = 8;

void ShowRows(QTreeView& list, int rows)
{
    const int row = qMax(list.fontMetrics().height(), list.style()->pixelMetric(QStyle::PM_IndicatorHeight)) + 4;
    const int header = list.header()->isHidden() ? 0 : list.header()->sizeHint().height();
    list.setMinimumHeight(header + rows * row + 2 * list.frameWidth());
}

// How much wider than at the column's least the page holding table must be
// for table to show every column side by side. The page is laid out to
// measure it: what it gives the table grows less than its own width while
// its other lists take their room too, so it is laid out again at the width
// found until the table has enough.
int WidthToShowWhole(QWidget& host, QTreeView& table)
{
    QWidget* page = table.parentWidget();
    while (page && page->parentWidget() != &host)
        page = page->parentWidget();
    if (!page || !page->layout())
        return 0;
    const int whole = table.header()->length() + 2 * table.frameWidth()
                      + table.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    int width = host.minimumWidth();
    for (int pass = 0; pass < 4; ++pass) {
        page->layout()->setGeometry(QRect(0, 0, width, page->minimumSizeHint().height()));
        const int missing = whole - table.width();
        if (missing <= 0)
            break;
        width += missing;
    }
    return width - host.minimumWidth();
}

} // namespace

void WindowLayout::Settle(frmMain& window)
{
    Ui::frmMain& ui = window.ui();
    const QString widest = QString::fromLatin1(WidestNumber);
    for (QLabel* number : {ui.lblTileShow, ui.lblNbTiles, ui.lblWidth, ui.lblHeight, ui.lblMousePosX, ui.lblMousePosY})
        KeepRoomFor(*number, widest);
    KeepRoomFor(*ui.lblZoomFactor, QStringLiteral("Zoom Factor: 16"));

    if (auto* checklist = window.findChild<QTreeView*>(QStringLiteral("lsvObjects")))
        ShowRows(*checklist, ChecklistRows);
    SizeForLargestPage(*ui.pageHost);
    // The column shows its page whole when there is room, and scrolls
    // when there is not; the tabs scroll too rather than squeeze.
    ui.pageScroll->setMinimumWidth(1);
    window.tbsStrip()->setUsesScrollButtons(true);
    window.tbsStrip()->setElideMode(Qt::ElideNone);

    // Both sides grow with the window until the page column shows its page
    // whole; a wide window then widens it to show the complete texture
    // list's every column (PagesFirst); past that, all the extra room goes
    // to the bitmap.
    const int scrollBar = ui.pageScroll->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    auto* textures = window.findChild<QTreeView*>(QStringLiteral("lsvTextures"));
    const int pageWhole = ui.pageHost->minimumWidth() + scrollBar + 2;
    const int pageWide = pageWhole + (textures ? WidthToShowWhole(*ui.pageHost, *textures) : 0);
    ui.pageSide->setMaximumWidth(pageWide);
    ui.splitter->setStretchFactor(0, 1);
    ui.splitter->setStretchFactor(1, 1);
    new PagesFirst(*ui.splitter, *ui.bitmapSide, pageWhole, pageWide);
}

void WindowLayout::Restore(frmMain& window)
{
    // restoreGeometry and restoreState refuse what they cannot read.
    const QByteArray geometry = window.settings().WindowGeometry();
    if (!geometry.isEmpty())
        window.restoreGeometry(geometry);
    const QByteArray splitter = window.settings().SplitterState();
    if (!splitter.isEmpty())
        window.ui().splitter->restoreState(splitter);
}

void WindowLayout::Remember(frmMain& window)
{
    window.settings().SetWindowGeometry(window.saveGeometry());
    window.settings().SetSplitterState(window.ui().splitter->saveState());
}

int WindowLayout::LeastCentralWidth(frmMain& window)
{
    Ui::frmMain& ui = window.ui();
    const int scrollBar = ui.pageScroll->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    return ui.bitmapSide->minimumSizeHint().width() + ui.splitter->handleWidth() + ui.pageHost->minimumWidth()
           + scrollBar + 2;
}
