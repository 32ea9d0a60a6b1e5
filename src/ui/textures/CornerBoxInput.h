#pragma once

#include <QObject>

class QLineEdit;

// Typing into an X or Y box of a texture corner: only digits and editing
// keys get in (Enter, Backspace and the clipboard and cursor keys), the whole
// value is selected when the box gets the focus, and whatever reaches the
// box, typed or pasted, is held to at most three digits and at most 256.
// Y values of lower tiles come from loading a row, never from typing.
class CornerBoxInput : public QObject
{
    Q_OBJECT

public:
    // Installs the input rules on box; they live as long as the box.
    static void Attach(QLineEdit& box);

    // text as the box keeps it: its digits, cut to the first three, then
    // "256" for anything above 256.
    static QString Held(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit CornerBoxInput(QLineEdit& box);
    void HoldText(const QString& text);

    QLineEdit& m_box;
};
