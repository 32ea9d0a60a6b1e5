#pragma once

#include <QObject>

class QWidget;

// A number box whose whole text is selected when it gets the focus, by the
// mouse as by the keyboard, so typing replaces the number rather than
// inserting digits into it.
class SelectOnFocus : public QObject
{
    Q_OBJECT

public:
    // Every edit box of the page: the pages' boxes all hold numbers.
    static void InstallOnEditBoxes(QWidget& page);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using QObject::QObject;
};
