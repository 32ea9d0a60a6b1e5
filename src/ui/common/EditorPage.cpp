#include "ui/common/EditorPage.h"

EditorPage::EditorPage(EditorState& state, QWidget* parent)
    : QGroupBox(parent)
    , m_state(state)
{
}
