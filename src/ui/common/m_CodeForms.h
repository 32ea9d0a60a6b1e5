#pragma once

class QLineEdit;
class QWidget;

// The form routines that take a widget; those that need none are in the
// core's m_Code.
namespace m_Code {

// Moves form to the middle of the screen it is on.
void CenterForm(QWidget& form);

// Selects the whole text of box so that typing replaces it; nothing for null.
void SelectAllText(QLineEdit* box);

} // namespace m_Code
