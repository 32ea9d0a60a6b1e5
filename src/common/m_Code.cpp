#include "common/m_Code.h"


namespace m_Code {

QString PadLeft(const QString& text, const QString& pad, int width)
{
    const QChar fill = pad.isEmpty() ? QLatin1Char('0') : pad.front();
    if (width < text.size())
        return text.left(qMax(0, width));
    if (width == 0)
        return {};
    return QString(width - text.size(), fill) + text;
}

int DigitKeyFilter(int keyAscii)
{
    constexpr int Enter = 13;
    constexpr int Backspace = 8;
    if (keyAscii == Enter || keyAscii == Backspace || (keyAscii >= '0' && keyAscii <= '9'))
        return keyAscii;
    return 0;
}

} // namespace m_Code
