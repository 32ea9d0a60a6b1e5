#include "ui/textures/CornerBoxInput.h"

#include "common/m_Code.h"
#include "ui/common/m_CodeForms.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QTimer>

namespace {

constexpr int MaxDigits = 3;
constexpr int MaxValue = 256;

// A key that types a character the digit filter refuses; control
// characters (the clipboard keys, Backspace, Enter) and keys without text
// (arrows, Delete) pass, as they edit rather than type.
bool TypesRefusedCharacter(const QKeyEvent& key)
{
    const QString text = key.text();
    if (text.size() != 1 || text.front().unicode() < 0x20)
        return false;
    const int code = text.front().unicode();
    return code > 0x7F || m_Code::DigitKeyFilter(code) == 0;
}

} // namespace

CornerBoxInput::CornerBoxInput(QLineEdit& box)
    : QObject(&box)
    , m_box(box)
{
    box.installEventFilter(this);
    connect(&box, &QLineEdit::textEdited, this, &CornerBoxInput::HoldText);
}

void CornerBoxInput::Attach(QLineEdit& box)
{
    new CornerBoxInput(box);
}

QString CornerBoxInput::Held(const QString& text)
{
    QString digits;
    for (QChar c : text) {
        if (c >= QLatin1Char('0') && c <= QLatin1Char('9'))
            digits.append(c);
    }
    digits.truncate(MaxDigits);
    if (digits.toInt() > MaxValue)
        return QString::number(MaxValue);
    return digits;
}

void CornerBoxInput::HoldText(const QString& text)
{
    const QString held = Held(text);
    if (held != text)
        m_box.setText(held);
}

bool CornerBoxInput::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != &m_box)
        return false;
    if (event->type() == QEvent::KeyPress)
        return TypesRefusedCharacter(*static_cast<QKeyEvent*>(event));
    if (event->type() == QEvent::FocusIn) {
        // After the click that gave the focus has placed the caret.
        QPointer<QLineEdit> box(&m_box);
        QTimer::singleShot(0, this, [box] { m_Code::SelectAllText(box.data()); });
    }
    return false;
}
