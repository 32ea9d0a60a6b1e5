#include "list/rows/ListCell.h"

#include "common/NumberText.h"

ListCell::ListCell(QStringView text)
{
    if (text.isEmpty())
        return;
    qsizetype i = 0;
    const char16_t letter = text[0].isLetter() ? text[i++].unicode() : 0;
    const bool negative = i < text.size() && text[i] == u'-';
    if (negative)
        ++i;
    const qsizetype start = i;
    int digits = 0;
    int dash = 0;
    quint64 magnitude = 0;
    for (; i < text.size() && digits <= MaxDigits && magnitude <= MaxMagnitude; ++i) {
        const char16_t c = text[i].unicode();
        if (c == u'-' && dash == 0 && digits > 0 && i + 1 < text.size()) {
            dash = digits; // a dash between digits; the next character must be a digit
            continue;
        }
        if (c < u'0' || c > u'9')
            break;
        magnitude = magnitude * 10 + (c - u'0');
        ++digits;
    }
    const bool number = i == text.size() && i > start && digits <= MaxDigits && magnitude <= MaxMagnitude;
    *this = number ? packed(negative, digits, letter, quint32(magnitude), dash) : ofText(text);
}

// Too wide to pack: spelt out, and kept as the text it then is.
ListCell ListCell::spelt(qint64 value, int digits, QChar letter)
{
    const quint64 magnitude = value < 0 ? 0 - quint64(value) : quint64(value);
    QString text = QString::number(magnitude);
    text.prepend(QString(digits - text.size(), u'0'));
    if (value < 0)
        text.prepend(u'-');
    if (!letter.isNull())
        text.prepend(letter);
    return ListCell(text);
}

ListCell ListCell::ofText(QStringView text)
{
    ListCell cell;
    cell.m_bits = quint64(quintptr(new QString(text.toString()))); // aligned: bit 0 stays clear
    return cell;
}

ListCell::ListCell(const ListCell& other)
    : m_bits(other.m_bits)
{
    if (other.isText())
        m_bits = quint64(quintptr(new QString(*other.text())));
}

ListCell& ListCell::operator=(const ListCell& other)
{
    if (this != &other)
        *this = ListCell(other);
    return *this;
}

void ListCell::deleteText()
{
    delete text();
}

QString ListCell::toString() const
{
    if (!isNumber())
        return isEmpty() ? QString() : *text();
    // A plain number: the shared text of small numbers serves.
    if (letter() == 0 && !isNegative() && dash() == 0 && digits() == digitCount(magnitude()))
        return NumberText::of(magnitude());
    Buffer buffer;
    return view(buffer).toString();
}

QStringView ListCell::view(Buffer& buffer) const
{
    if (!isNumber())
        return isEmpty() ? QStringView() : QStringView(*text());
    char16_t* const end = buffer.data() + buffer.size();
    char16_t* at = end;
    quint32 rest = magnitude();
    for (int i = digits(); i > 0; --i, rest /= 10) {
        *--at = char16_t(u'0' + rest % 10);
        if (i - 1 == dash() && i > 1)
            *--at = u'-';
    }
    if (isNegative())
        *--at = u'-';
    if (letter() != 0)
        *--at = letter();
    return QStringView(at, end);
}

qint64 ListCell::leadingInteger() const
{
    if (!isNumber())
        return isEmpty() ? 0 : NumberText::valueOf(*text());
    if (letter() != 0)
        return 0;
    // Up to the dash, when there is one.
    qint64 value = signedValue();
    for (int i = dash() > 0 ? digits() - dash() : 0; i > 0; --i)
        value /= 10;
    return value;
}
