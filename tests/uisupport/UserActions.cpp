#include "uisupport/UserActions.h"

#include "ui/common/ListView.h"
#include "list/rows/ListViewModel.h"

#include <QApplication>
#include <QLineEdit>
#include <QMouseEvent>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QTest>

namespace {

QModelIndex ShownIndex(ListView* view, int row)
{
    const QModelIndex index = view->shownIndex(row);
    view->scrollTo(index);
    return index;
}

} // namespace

void UserActions::TypeInto(QLineEdit* box, const QString& text)
{
    box->setFocus();
    box->selectAll();
    if (text.isEmpty())
        QTest::keyClick(box, Qt::Key_Delete);
    else
        QTest::keyClicks(box, text);
}

void UserActions::ClickRow(ListView* view, int row)
{
    const QModelIndex index = ShownIndex(view, row);
    // Right of the check box, on the row's text.
    const QRect rect = view->visualRect(index);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, QPoint(rect.right() - 4, rect.center().y()));
}

void UserActions::ClickCheckBox(ListView* view, int row)
{
    const QModelIndex index = ShownIndex(view, row);
    QStyleOptionViewItem option;
    option.initFrom(view);
    option.rect = view->visualRect(index);
    option.features |= QStyleOptionViewItem::HasCheckIndicator;
    const QRect box = view->style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, view);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, box.center());
}

void UserActions::Drag(QWidget* widget, QPoint from, QPoint to)
{
    QTest::mousePress(widget, Qt::LeftButton, {}, from);
    // A move with the button held: QTest::mouseMove would send no buttons.
    QMouseEvent move(QEvent::MouseMove, QPointF(to), widget->mapToGlobal(QPointF(to)), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(widget, &move);
    QTest::mouseRelease(widget, Qt::LeftButton, {}, to);
}
