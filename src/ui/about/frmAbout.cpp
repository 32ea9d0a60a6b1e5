#include "ui/about/frmAbout.h"

#include "ui/common/IPromptService.h"
#include "ui/common/m_CodeForms.h"
#include "ui_frmAbout.h"

#include <QApplication>
#include <QFileInfo>
#include <QProcess>
#include <QSettings>

frmAbout::frmAbout(IPromptService& prompts, QWidget* parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::frmAbout>())
    , m_prompts(prompts)
{
    m_ui->setupUi(this);
    const QString title = QApplication::applicationName();
    setWindowTitle(QStringLiteral("About ") + title);
    m_ui->lblTitle->setText(title);
    m_ui->lblVersion->setText(QStringLiteral("Version ") + QStringLiteral(BRINDLE_VERSION));
    m_ui->lblDescription->setText(
        tr("Edits the object textures, sprite textures, sprite sequences and animated texture ranges of "
           "Tomb Raider 2 and 3 levels over a zoomable view of the texture bitmap, and writes a level "
           "that carries them."));
    m_ui->picIcon->setPixmap(QApplication::windowIcon().pixmap(64, 64));
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmAbout::accept);
    connect(m_ui->cmdSysInfo, &QPushButton::clicked, this, &frmAbout::StartSysInfo);
}

frmAbout::~frmAbout() = default;

void frmAbout::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    m_Code::CenterForm(*this);
}

QString frmAbout::SystemInfoPath()
{
#ifdef Q_OS_WIN
    const QSettings msinfo(QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Shared Tools\\MSINFO"),
                           QSettings::NativeFormat);
    QString path = msinfo.value(QStringLiteral("PATH")).toString();
    if (!path.isEmpty() && QFileInfo::exists(path))
        return path;
    const QSettings location(QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Shared Tools Location"),
                             QSettings::NativeFormat);
    path = location.value(QStringLiteral("MSINFO")).toString();
    if (!path.isEmpty()) {
        path += QStringLiteral("\\MSINFO32.EXE");
        if (QFileInfo::exists(path))
            return path;
    }
#endif
    return {};
}

void frmAbout::StartSysInfo()
{
    const QString path = SystemInfoPath();
    if (path.isEmpty() || !QProcess::startDetached(path, {}))
        m_prompts.MsgBox(QStringLiteral("System Information Is Unavailable At This Time"), IPromptService::vbOKOnly);
}
