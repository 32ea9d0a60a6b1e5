#include "ui/common/EditBoxLook.h"

#include <QApplication>
#include <QLineEdit>
#include <QPalette>

namespace {

const char* const LockedGrey = "#e0e0e0";
const char* const UnusedText = "#00ff00";
const char* const UnusedBackground = "#008000";

} // namespace

void EditBoxLook::Lock(QLineEdit& box)
{
    box.setReadOnly(true);
    PaintSystem(box, true);
}

void EditBoxLook::Unlock(QLineEdit& box)
{
    box.setReadOnly(false);
    PaintSystem(box, false);
}

void EditBoxLook::Enable(QLineEdit& box, bool enabled)
{
    box.setEnabled(enabled);
    PaintSystem(box, !enabled);
}

void EditBoxLook::ShowUnused(QLineEdit& box)
{
    Paint(box, UnusedBackground, UnusedText);
}

void EditBoxLook::ShowLockedColours(QLineEdit& box)
{
    PaintSystem(box, true);
}

void EditBoxLook::PaintSystem(QLineEdit& box, bool locked)
{
    const QPalette system = QApplication::palette(&box);
    QPalette palette = box.palette();
    palette.setColor(QPalette::Base, locked ? QColor(LockedGrey) : system.color(QPalette::Active, QPalette::Base));
    palette.setColor(QPalette::Text, system.color(QPalette::Active, QPalette::Text));
    box.setPalette(palette);
}

void EditBoxLook::Paint(QLineEdit& box, const char* background, const char* text)
{
    QPalette palette = box.palette();
    palette.setColor(QPalette::Base, QColor(background));
    palette.setColor(QPalette::Text, QColor(text));
    box.setPalette(palette);
}
