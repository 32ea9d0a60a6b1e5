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
    Paint(box, locked ? QColor(LockedGrey) : system.color(QPalette::Active, QPalette::Base),
          system.color(QPalette::Active, QPalette::Text));
}

void EditBoxLook::Empty(QLineEdit& box)
{
    if (!box.text().isEmpty())
        box.clear();
}

void EditBoxLook::PaintBase(QWidget& widget, const QColor& base)
{
    if (widget.testAttribute(Qt::WA_SetPalette) && widget.palette().color(QPalette::Base) == base)
        return;
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Base, base);
    widget.setPalette(palette);
}

void EditBoxLook::Paint(QLineEdit& box, const char* background, const char* text)
{
    Paint(box, QColor(background), QColor(text));
}

void EditBoxLook::Paint(QLineEdit& box, const QColor& background, const QColor& text)
{
    // An undo repaints every page's boxes: a box already so painted is left
    // alone, so its palette is not resolved again for nothing.
    const QPalette& current = box.palette();
    if (box.testAttribute(Qt::WA_SetPalette) && current.color(QPalette::Base) == background
        && current.color(QPalette::Text) == text)
        return;
    QPalette palette = current;
    palette.setColor(QPalette::Base, background);
    palette.setColor(QPalette::Text, text);
    box.setPalette(palette);
}
