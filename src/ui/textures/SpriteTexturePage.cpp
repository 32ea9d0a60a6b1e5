#include "SpriteTexturePage.h"

#include "EditorState.h"
#include "ui_SpriteTexturePage.h"

SpriteTexturePage::SpriteTexturePage(EditorState& state, QWidget* parent)
    : EditorPage(state, parent)
    , m_ui(std::make_unique<Ui::SpriteTexturePage>())
{
    m_ui->setupUi(this);
    m_ui->lsvSpriteIndex->setListModel(&m_state.lsvSpriteIndex);
    m_ui->lsvSprites->setListModel(&m_state.views.lsvSprites);
    m_ui->lsvSpriteDrawLisr->setListModel(&m_state.lsvSpriteDrawLisr);
}

SpriteTexturePage::~SpriteTexturePage() = default;

void SpriteTexturePage::ResetPage()
{
    m_ui->txtNum->clear();
    CancelSpriteEdition();
}

void SpriteTexturePage::ClearPage()
{
    m_state.lsvSpriteIndex.clear();
    m_state.views.lsvSprites.clear();
    m_state.lsvSpriteDrawLisr.clear();
}

void SpriteTexturePage::ListLoaded()
{
    CancelSpriteEdition();
    m_ui->txtNum->setText(QString::number(m_state.views.lsvSprites.count()));
}

void SpriteTexturePage::ListClosed()
{
    CancelSpriteEdition();
    m_ui->txtNum->clear();
}

void SpriteTexturePage::CancelSpriteEdition()
{
    m_ui->txtNo->clear();
    m_ui->lblKey->clear();
}
