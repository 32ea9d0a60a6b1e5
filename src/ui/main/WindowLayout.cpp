#include "ui/main/WindowLayout.h"

#include "ui/main/frmMain.h"
#include "ui_frmMain.h"

#include <QLabel>
#include <QScrollArea>
#include <QSplitter>
#include <QStyle>
#include <QTabBar>

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

} // namespace

void WindowLayout::Settle(frmMain& window)
{
    Ui::frmMain& ui = window.ui();
    const QString widest = QString::fromLatin1(WidestNumber);
    for (QLabel* number : {ui.lblTileShow, ui.lblNbTiles, ui.lblWidth, ui.lblHeight, ui.lblMousePosX, ui.lblMousePosY})
        KeepRoomFor(*number, widest);
    KeepRoomFor(*ui.lblZoomFactor, QStringLiteral("Zoom Factor: 16"));

    SizeForLargestPage(*ui.pageHost);
    // The column shows its page whole when there is room, and scrolls
    // when there is not; the tabs scroll too rather than squeeze.
    ui.pageScroll->setMinimumWidth(1);
    window.tbsStrip()->setUsesScrollButtons(true);
    window.tbsStrip()->setElideMode(Qt::ElideNone);

    // Both sides grow with the window until the page column shows its page
    // whole; past that, all the extra room goes to the bitmap.
    const int scrollBar = ui.pageScroll->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    ui.pageSide->setMaximumWidth(ui.pageHost->minimumWidth() + scrollBar + 2);
    ui.splitter->setStretchFactor(0, 1);
    ui.splitter->setStretchFactor(1, 1);
}
