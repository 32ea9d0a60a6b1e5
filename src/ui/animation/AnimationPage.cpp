#include "AnimationPage.h"

#include "EditorState.h"
#include "ListViewSet.h"
#include "ucAnimTexture.h"
#include "ui_AnimationPage.h"

namespace {

QStringList FrameColumns()
{
    return {QStringLiteral("Texture #"), QStringLiteral("X"),    QStringLiteral("Y"),
            QStringLiteral("Xwid"),      QStringLiteral("YHi"), QStringLiteral("IsTriad")};
}

} // namespace

AnimationPage::AnimationPage(EditorState& state, QWidget* parent)
    : EditorPage(state, parent)
    , m_ui(std::make_unique<Ui::AnimationPage>())
    , m_lsvOneAnim(FrameColumns())
    , m_lsvNextAnim({QStringLiteral("Texture No"), QStringLiteral("Order")})
    , m_lsvAnimsDel(ListViewSet::animColumns())
    , m_lsvAnimDetailsDel(ListViewSet::animDetailColumns())
{
    m_ui->setupUi(this);
    m_ui->lsvAnims->setListModel(&m_state.views.lsvAnims);
    m_ui->lsvAnimDetails->setListModel(&m_state.views.lsvAnimDetails);
    m_ui->lsvAvailTextures->setListModel(&m_state.lsvAvailTextures);
    m_ui->lsvAvailTextures->setHeaderHidden(true);
    m_ui->lsvOneAnim->setListModel(&m_lsvOneAnim);
    m_ui->lsvOneAnim->setHiddenColumns({3, 4, 5});
    m_ui->lsvNextAnim->setListModel(&m_lsvNextAnim);
    m_ui->lsvAnimsDel->setListModel(&m_lsvAnimsDel);
    m_ui->lsvAnimDetailsDel->setListModel(&m_lsvAnimDetailsDel);
    m_ui->lsvAnimsDel->hide();
    m_ui->lsvAnimDetailsDel->hide();
}

AnimationPage::~AnimationPage() = default;

void AnimationPage::ResetPage()
{
    m_ui->lblAnimTotal->clear();
}

void AnimationPage::ClearPage()
{
    m_state.lsvAvailTextures.clear();
    m_lsvNextAnim.clear();
    m_state.views.lsvAnimDetails.clear();
    m_state.views.lsvAnims.clear();
    m_lsvOneAnim.clear();
    m_ui->lblAnimTotal->clear();
}

void AnimationPage::ListLoaded()
{
    EnableOrderButtons(false);
}

void AnimationPage::BitmapLoaded(const QString& fileName)
{
    Preview()->Init(fileName);
}

void AnimationPage::BitmapRemoved()
{
    Preview()->NoPicture();
}

void AnimationPage::EnableOrderButtons(bool enabled)
{
    Q_UNUSED(enabled);
}

void AnimationPage::SetAnimTotal(const QString& text)
{
    m_ui->lblAnimTotal->setText(text);
}

void AnimationPage::ClearOneAnim()
{
    m_lsvOneAnim.clear();
}

ucAnimTexture* AnimationPage::Preview() const
{
    return m_ui->ucAnimTexture1;
}
