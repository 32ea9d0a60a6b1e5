#include "ui/textures/CornerBoxInput.h"

#include "common/m_Code.h"
#include "ui/common/m_CodeForms.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QTimer>

namespace {

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

// Past any bitmap's height: a longer run of digits is refused whatever it says.
constexpr int MaxDigits = 9;

} // namespace

CornerBoxInput::CornerBoxInput(QLineEdit& box, Axis axis, std::function<int()> highest)
    : QObject(&box)
    , m_box(box)
    , m_axis(axis)
    , m_highest(std::move(highest))
    , m_taken(box.text())
{
    box.installEventFilter(this);
    connect(&box, &QLineEdit::textEdited, this, &CornerBoxInput::HoldText);
    // What a load or the rectangle sync writes is taken as it is.
    connect(&box, &QLineEdit::textChanged, this, [this](const QString& text) { m_taken = text; });
}

CornerBoxInput* CornerBoxInput::Attach(QLineEdit& box, Axis axis, std::function<int()> highest)
{
    return new CornerBoxInput(box, axis, std::move(highest));
}

QString CornerBoxInput::Digits(const QString& text)
{
    QString digits;
    for (QChar c : text) {
        if (c >= QLatin1Char('0') && c <= QLatin1Char('9'))
            digits.append(c);
    }
    return digits;
}

void CornerBoxInput::HoldText(const QString& text)
{
    const QString digits = Digits(text);
    const int highest = m_highest();
    if (digits.size() > MaxDigits || digits.toLongLong() > highest) {
        const QString kept = m_taken;
        m_box.setText(kept);
        const QString shown = digits.size() > MaxDigits ? digits.left(MaxDigits) + QStringLiteral("...") : digits;
        emit refused(m_axis == Axis::X
                         ? tr("%1 was not taken: a corner's X goes from 0 to %2 within its tile.").arg(shown).arg(highest)
                         : tr("%1 was not taken: a corner's Y goes from 0 to %2, the bitmap's height.")
                               .arg(shown)
                               .arg(highest));
        return;
    }
    if (digits != text)
        m_box.setText(digits);
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
