#include "level/m_AllBinTo.h"

namespace m_AllBinTo {

namespace {
constexpr char Alphabet[] = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";

int clampedBits(int bits)
{
    return qBound(0, bits - bits % 8, 64);
}
} // namespace

QString ConvertToBinary(quint64 value, int bits)
{
    const int width = clampedBits(bits);
    QString digits(width, QLatin1Char('0'));
    for (int i = 0; i < width; ++i) {
        if ((value >> (width - 1 - i)) & 1u)
            digits[i] = QLatin1Char('1');
    }
    return digits;
}

QString BinaryNibbleToHex(QStringView fourBits)
{
    if (fourBits.size() != 4)
        return {};
    int nibble = 0;
    for (QChar c : fourBits) {
        if (c != QLatin1Char('0') && c != QLatin1Char('1'))
            return {};
        nibble = nibble * 2 + (c == QLatin1Char('1'));
    }
    return QString(QLatin1Char(Alphabet[nibble]));
}

QString ConvertToHex(quint64 value, int bits, int /*flag*/)
{
    const QString binary = ConvertToBinary(value, bits);
    QString hex;
    hex.reserve(binary.size() / 4);
    for (qsizetype i = 0; i < binary.size(); i += 4)
        hex += BinaryNibbleToHex(QStringView(binary).mid(i, 4));
    return hex;
}

QString ConvertDecToBaseN(quint64 value, int base)
{
    if (base < 2 || base > 36)
        return {};
    QString digits;
    do {
        digits.prepend(QLatin1Char(Alphabet[value % base]));
        value /= base;
    } while (value != 0);
    return digits;
}

} // namespace m_AllBinTo
