#include "ui/common/SelectOnFocus.h"

#include "ui/common/m_CodeForms.h"

#include <QEvent>
#include <QLineEdit>
#include <QPointer>
#include <QTimer>

void SelectOnFocus::InstallOnEditBoxes(QWidget& page)
{
    auto* filter = new SelectOnFocus(&page);
    for (QLineEdit* box : page.findChildren<QLineEdit*>())
        box->installEventFilter(filter);
}

bool SelectOnFocus::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::FocusIn)
        return false;
    // After the click that gave the focus has placed the caret.
    QPointer<QLineEdit> box(qobject_cast<QLineEdit*>(watched));
    QTimer::singleShot(0, this, [box] { m_Code::SelectAllText(box.data()); });
    return false;
}
