#pragma once

#include <QString>

// Small stateless routines the pages share, those that need no widget.
namespace m_Code {

// text padded on the left with the first character of pad ("0" when pad is
// empty) to width characters; a longer text is cut to its first width
// characters, and width 0 gives "".
QString PadLeft(const QString& text, const QString& pad, int width);

// The key code for Enter, Backspace and the digits 0-9; 0 (discard) for any
// other key, so numeric boxes take no sign and no decimal point.
int DigitKeyFilter(int keyAscii);

} // namespace m_Code
