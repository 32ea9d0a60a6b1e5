#include "ui/dialogs/frmNewList.h"

#include "ui/common/FileRequests.h"
#include "ui/common/BusyCursor.h"
#include "ui/common/IPromptService.h"
#include "level/LevelTileBitmap.h"
#include "ui/common/m_CodeForms.h"
#include "ui_frmNewList.h"

#include <QDir>
#include <QFileInfo>

frmNewList::frmNewList(IPromptService& prompts, QWidget* parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::frmNewList>())
    , m_prompts(prompts)
{
    m_ui->setupUi(this);
    connect(m_ui->cmdList, &QPushButton::clicked, this, &frmNewList::cmdList_Click);
    connect(m_ui->cmdLevelFile, &QPushButton::clicked, this, &frmNewList::cmdLevelFile_Click);
    connect(m_ui->cmdBitmap, &QPushButton::clicked, this, &frmNewList::cmdBitmap_Click);
    connect(m_ui->cmdBitmapFromLevel, &QPushButton::clicked, this, &frmNewList::cmdBitmapFromLevel_Click);
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmNewList::cmdOK_Click);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &frmNewList::cmdCancel_Click);
}

frmNewList::~frmNewList() = default;

QString frmNewList::GetListFIle() const
{
    return m_ui->txtListFile->text();
}

QString frmNewList::GetBitmapFile() const
{
    return m_ui->txtBitmapFile->text();
}

QString frmNewList::GetLevelFile() const
{
    return m_ui->txtLevelFile->text();
}

void frmNewList::SetBitmapFile(const QString& path)
{
    m_ui->txtBitmapFile->setText(path);
}

void frmNewList::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    m_Code::CenterForm(*this);
}

void frmNewList::cmdList_Click()
{
    m_ui->txtListFile->setText(m_prompts.GetFileName(FileRequests::CreateList()));
}

void frmNewList::cmdLevelFile_Click()
{
    SetLevelFile(m_prompts.GetFileName(FileRequests::OpenLevel()));
}

void frmNewList::SetLevelFile(const QString& path)
{
    m_ui->txtLevelFile->setText(path);
    m_dataFromLevel = !path.isEmpty();
    m_ui->cmdBitmapFromLevel->setEnabled(m_dataFromLevel);
}

void frmNewList::cmdBitmap_Click()
{
    m_ui->txtBitmapFile->setText(m_prompts.GetFileName(FileRequests::OpenBitmap()));
}

void frmNewList::cmdBitmapFromLevel_Click()
{
    const QString level = m_ui->txtLevelFile->text();
    if (level.isEmpty())
        return;
    const QFileInfo info(level);
    IPromptService::FileRequest request = FileRequests::OpenBitmap();
    request.save = true;
    request.title = QStringLiteral("Save Level Textures as Bitmap");
    request.flags = IPromptService::OverwritePrompt | IPromptService::PathMustExist;
    request.initDir = info.absolutePath();
    request.fileName = info.completeBaseName() + QStringLiteral(".bmp");
    const QString bitmap = m_prompts.GetFileName(request);
    if (bitmap.isEmpty())
        return;
    FileError error;
    bool written = false;
    {
        BusyCursor busy;
        written = LevelTileBitmap::write(level, bitmap, &error);
    }
    if (!written) {
        m_prompts.MsgBox(tr("The level's textures could not be saved as a bitmap: %1").arg(error.text()),
                         IPromptService::vbCritical);
        return;
    }
    m_ui->txtBitmapFile->setText(bitmap);
}

void frmNewList::cmdOK_Click()
{
    if (m_ui->txtListFile->text().isEmpty()) {
        m_ui->txtListFile->setFocus();
        m_prompts.Beep();
    } else if (m_ui->txtBitmapFile->text().isEmpty()) {
        m_ui->txtBitmapFile->setFocus();
        m_prompts.Beep();
    } else {
        m_cancelled = false;
        accept();
    }
}

void frmNewList::cmdCancel_Click()
{
    m_cancelled = true;
    QDialog::reject();
}

void frmNewList::reject()
{
    // Escape and the close button cancel, as the Cancel button does.
    cmdCancel_Click();
}
