#include "ui/common/ButtonCaption.h"

#include <QAbstractButton>

bool ButtonCaption::Is(const QAbstractButton& button, QStringView caption)
{
    return QStringView(button.text()).compare(caption, Qt::CaseInsensitive) == 0;
}
