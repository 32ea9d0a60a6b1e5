#include "SequencePage.h"

#include "EditorState.h"
#include "ucAnimTexture.h"
#include "ui_SequencePage.h"

SequencePage::SequencePage(EditorState& state, QWidget* parent)
    : EditorPage(state, parent)
    , m_ui(std::make_unique<Ui::SequencePage>())
    , m_lsvOneSequence({QStringLiteral("Texture #"), QStringLiteral("X"), QStringLiteral("Y"),
                        QStringLiteral("Xwid"), QStringLiteral("YHi"), QStringLiteral("IsTriad")})
{
    m_ui->setupUi(this);
    m_ui->lsvSequences->setListModel(&m_state.views.lsvSequences);
    m_ui->lsvSequenceDetails->setListModel(&m_state.views.lsvSequenceDetails);
    m_ui->lsvOneSequence->setListModel(&m_lsvOneSequence);
    m_ui->lsvOneSequence->setHiddenColumns({3, 4, 5});
}

SequencePage::~SequencePage() = default;

void SequencePage::ClearPage()
{
    m_state.views.lsvSequenceDetails.clear();
    m_state.views.lsvSequences.clear();
    m_lsvOneSequence.clear();
}

void SequencePage::ListLoaded()
{
    CancelSequenceEdition();
    m_ui->lblAvailSTextures->setText(QString::number(m_state.views.lsvSprites.count()));
}

void SequencePage::ListClosed()
{
    CancelSequenceEdition();
    m_ui->lblAvailSTextures->clear();
}

void SequencePage::BitmapLoaded(const QString& fileName)
{
    Preview()->Init(fileName);
}

void SequencePage::BitmapRemoved()
{
    Preview()->NoPicture();
}

void SequencePage::CancelSequenceEdition()
{
}

void SequencePage::ClearOneSequence()
{
    m_lsvOneSequence.clear();
}

ucAnimTexture* SequencePage::Preview() const
{
    return m_ui->ucAnimTexture2;
}
