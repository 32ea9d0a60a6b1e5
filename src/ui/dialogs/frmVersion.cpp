#include "ui/dialogs/frmVersion.h"

#include "level/LevelVersion.h"
#include "ui/common/m_CodeForms.h"
#include "ui_frmVersion.h"

frmVersion::frmVersion(QWidget* parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::frmVersion>())
{
    m_ui->setupUi(this);
    for (int index = 0; index < 3; ++index) {
        connect(optVersion(index), &QRadioButton::toggled, this, [this, index](bool on) {
            if (on)
                optVersion_Click(index);
        });
    }
    connect(m_ui->cmdOK, &QPushButton::clicked, this, [this] {
        m_cancelled = false;
        accept();
    });
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &frmVersion::reject);
    optVersion(1)->setChecked(true);
    m_cancelled = true;
}

frmVersion::~frmVersion() = default;

QRadioButton* frmVersion::optVersion(int index) const
{
    switch (index) {
    case 0: return m_ui->optVersion_0;
    case 1: return m_ui->optVersion_1;
    default: return m_ui->optVersion_2;
    }
}

void frmVersion::optVersion_Click(int index)
{
    m_version = index + 1;
}

void frmVersion::Init(int iVersion)
{
    optVersion(qBound(1, iVersion, 2))->setChecked(true);
}

quint32 frmVersion::GetVersion() const
{
    switch (m_version) {
    case 1: return LevelVersion::TR1;
    case 2: return LevelVersion::TR2;
    case 3: return LevelVersion::TR3;
    default: return 0;
    }
}

void frmVersion::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    m_Code::CenterForm(*this);
}

void frmVersion::reject()
{
    m_cancelled = true;
    QDialog::reject();
}
