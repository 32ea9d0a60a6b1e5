#include "ButtonCaption.h"

#include <QAbstractButton>

bool ButtonCaption::Is(const QAbstractButton& button, const QString& caption)
{
    return button.text().compare(caption, Qt::CaseInsensitive) == 0;
}
