#pragma once

#include <QString>
#include <QStringView>
#include <QtGlobal>

// Whole numbers as digit strings. ConvertToHex is what turns a level's
// version long into the eight digits every version comparison uses.
namespace m_AllBinTo {

// bits / 4 upper-case hexadecimal digits, most significant first, zero-padded.
// flag is reserved and has no effect.
QString ConvertToHex(quint64 value, int bits, int flag = 0);

// bits binary digits "0"/"1", eight per byte, most significant byte first.
QString ConvertToBinary(quint64 value, int bits);

// One hexadecimal digit for four binary digits; "" when they are not four 0/1s.
QString BinaryNibbleToHex(QStringView fourBits);

// value written in base 2 to 36 with the alphabet 0-9A-Z; "" for another base.
QString ConvertDecToBaseN(quint64 value, int base);

} // namespace m_AllBinTo
