#include "ButtonCaption.h"

#include <QAbstractButton>

namespace ButtonCaption {

bool Is(const QAbstractButton& button, QStringView caption)
{
    return QStringView(button.text()).compare(caption, Qt::CaseInsensitive) == 0;
}

} // namespace ButtonCaption
