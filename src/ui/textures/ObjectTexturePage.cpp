#include "ObjectTexturePage.h"

#include "EditorState.h"
#include "ui_ObjectTexturePage.h"

ObjectTexturePage::ObjectTexturePage(EditorState& state, QWidget* parent)
    : EditorPage(state, parent)
    , m_ui(std::make_unique<Ui::ObjectTexturePage>())
{
    m_ui->setupUi(this);
    m_ui->lsvObjects->setListModel(&m_state.lsvObjects);
    m_ui->lsvTextures->setListModel(&m_state.views.lsvTextures);
    m_ui->lsvDrawList->setListModel(&m_state.lsvDrawList);
}

ObjectTexturePage::~ObjectTexturePage() = default;

void ObjectTexturePage::ResetPage()
{
    m_ui->txtTextureNo->clear();
    m_ui->txtTileNo->clear();
}

void ObjectTexturePage::ClearPage()
{
    m_state.lsvObjects.clear();
    m_state.views.lsvTextures.clear();
    m_state.lsvDrawList.clear();
    m_ui->txtTextureQty->clear();
    m_ui->txtTileQty->clear();
    ResetPage();
}

void ObjectTexturePage::SetTextureQty(const QString& text)
{
    m_ui->txtTextureQty->setText(text);
}

void ObjectTexturePage::SetTileQty(const QString& text)
{
    m_ui->txtTileQty->setText(text);
}
