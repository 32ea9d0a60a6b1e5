#include "AssignmentPage.h"

#include "ui_AssignmentPage.h"

AssignmentPage::AssignmentPage(EditorState& state, QWidget* parent)
    : EditorPage(state, parent)
    , m_ui(std::make_unique<Ui::AssignmentPage>())
    , m_lsvPolygons({QStringLiteral("Texture #")})
    , m_lsvMesh({QStringLiteral("Texture #")})
    , m_lsvSprite({QStringLiteral("Texture #")})
    , m_lsvNotAssign({QStringLiteral("Texture #")})
{
    m_ui->setupUi(this);
    m_ui->lsvPolygons->setListModel(&m_lsvPolygons);
    m_ui->lsvMesh->setListModel(&m_lsvMesh);
    m_ui->lsvSprite->setListModel(&m_lsvSprite);
    m_ui->lsvNotAssign->setListModel(&m_lsvNotAssign);
}

AssignmentPage::~AssignmentPage() = default;
