#include "ui/main/WindowLayout.h"

#include "ui/main/frmMain.h"
#include "ui_frmMain.h"

#include <QEvent>
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

// When the window is resized, the page column gets what its page needs
// first, as far as the bitmap's own minimum allows; the bitmap takes the
// rest. A handle the user drags stays where it is put until the next resize.
class PagesFirst : public QObject
{
public:
    PagesFirst(QSplitter& splitter, QWidget& bitmapSide, QWidget& pageSide)
        : QObject(&splitter)
        , m_splitter(splitter)
        , m_bitmapSide(bitmapSide)
        , m_pageSide(pageSide)
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
        const int wanted = qMax(sizes[1], qMin(m_pageSide.maximumWidth(), total - bitmapLeast));
        if (wanted != sizes[1])
            m_splitter.setSizes({total - wanted, wanted});
    }

    QSplitter& m_splitter;
    QWidget& m_bitmapSide;
    QWidget& m_pageSide;
};

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
    new PagesFirst(*ui.splitter, *ui.bitmapSide, *ui.pageSide);
}
