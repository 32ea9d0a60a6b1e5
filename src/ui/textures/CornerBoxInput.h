#pragma once

#include <QObject>
#include <QString>

#include <functional>

class QLineEdit;

// Typing into an X or Y box of a texture corner: only digits and editing
// keys get in (Enter, Backspace and the clipboard and cursor keys), the whole
// value is selected when the box gets the focus, and whatever reaches the
// box, typed or pasted, is held to its digits. A value above the box's
// highest (X: the last pixel of a tile; Y: the bottom of the bitmap, as the
// boxes show whole-bitmap Y) is not taken: the box keeps what it held and
// says why.
class CornerBoxInput : public QObject
{
    Q_OBJECT

public:
    enum class Axis { X, Y };

    // Installs the input rules on box; they live as long as the box. highest
    // is asked at each change, as the bitmap may change under the box.
    static CornerBoxInput* Attach(QLineEdit& box, Axis axis, std::function<int()> highest);

    // The digits of text, in their order.
    static QString Digits(const QString& text);

signals:
    // A value was not taken; why says what the box holds, in one line.
    void refused(const QString& why);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    CornerBoxInput(QLineEdit& box, Axis axis, std::function<int()> highest);
    void HoldText(const QString& text);

    QLineEdit& m_box;
    Axis m_axis;
    std::function<int()> m_highest;
    QString m_taken;
};
