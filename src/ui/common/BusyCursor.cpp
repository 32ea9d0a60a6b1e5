#include "ui/common/BusyCursor.h"

#include <QCursor>
#include <QGuiApplication>

BusyCursor::BusyCursor()
{
    QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
}

BusyCursor::~BusyCursor()
{
    QGuiApplication::restoreOverrideCursor();
}
