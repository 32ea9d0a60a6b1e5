#include "ui/common/m_CodeForms.h"

#include <QGuiApplication>
#include <QLineEdit>
#include <QScreen>
#include <QWidget>

namespace m_Code {

void CenterForm(QWidget& form)
{
    const QScreen* screen = form.screen() ? form.screen() : QGuiApplication::primaryScreen();
    if (!screen)
        return;
    const QRect area = screen->availableGeometry();
    const QSize size = form.frameGeometry().size();
    form.move(area.x() + (area.width() - size.width()) / 2, area.y() + (area.height() - size.height()) / 2);
}

void SelectAllText(QLineEdit* box)
{
    if (!box)
        return;
    box->setSelection(0, int(box->text().size()));
}

} // namespace m_Code
