#include "ui/dialogs/frmInserList.h"

#include "ui/common/BusyCursor.h"
#include "common/ShownName.h"
#include "level/C_LevelInfo.h"
#include "list/C_ListInfo.h"
#include "list/C_ListInserter.h"
#include "ui/common/FileRequests.h"
#include "ui/common/IPromptService.h"
#include "ui/common/m_CodeForms.h"
#include "ui_frmInserList.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

frmInserList::frmInserList(IPromptService& prompts, QWidget* parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::frmInserList>())
    , m_prompts(prompts)
{
    m_ui->setupUi(this);
    m_ui->ProgressBar1->setRange(0, 100);
    m_ui->ProgressBar1->hide();
    connect(m_ui->cmdGetLevel, &QPushButton::clicked, this, [this] { GetLevel(); });
    connect(m_ui->cmdGetList, &QPushButton::clicked, this, &frmInserList::GetList);
    connect(m_ui->cmdOutput, &QPushButton::clicked, this, &frmInserList::GetOutput);
    connect(m_ui->cmdInsert, &QPushButton::clicked, this, &frmInserList::Insert);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &frmInserList::reject);
}

frmInserList::~frmInserList() = default;

void frmInserList::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    m_Code::CenterForm(*this);
}

void frmInserList::GetLevel(const QString& name)
{
    QString path = name;
    if (path.isEmpty()) {
        path = m_prompts.GetFileName(FileRequests::OpenLevel());
        if (path.isEmpty()) {
            EnableInsert();
            return;
        }
    }
    C_LevelInfo level;
    level.Init(path);
    m_levelPath = path;
    m_levelLength = level.FileLength();
    m_levelChosen = true;
    // The level may be the one a list names: shown cut and escaped.
    const QString shown = ShownName::of(QDir::toNativeSeparators(path));
    m_ui->lblLevel->setText(shown);
    if (m_ui->txtOutput->text() == m_offeredOutput) {
        m_offeredOutput = QDir::toNativeSeparators(C_ListInserter::DefaultOutputPath(path));
        m_ui->txtOutput->setText(m_offeredOutput);
    }
    if (!level.IsOpened())
        Report(tr("The level %1 cannot be read.").arg(shown));
    EnableInsert();
}

void frmInserList::GetList()
{
    const QString path = m_prompts.GetFileName(FileRequests::OpenListForInsert());
    if (path.isEmpty()) {
        EnableInsert();
        return;
    }
    TakeList(path);
}

void frmInserList::TakeList(const QString& path)
{
    C_ListInfo list;
    if (list.InitForInsert(path) != C_ListInfo::Success)
        Report(tr("The list %1 cannot be read.").arg(QDir::toNativeSeparators(path)));
    m_listPath = path;
    m_ui->lblTextureList->setText(QDir::toNativeSeparators(path));
    if (!list.LevelFileName().isEmpty())
        GetLevel(list.LevelFileName());
    m_listChosen = true;
    EnableInsert();
}

void frmInserList::GetOutput()
{
    IPromptService::FileRequest request = FileRequests::SaveInsertedLevel();
    request.fileName = OutputPath();
    const QString path = m_prompts.GetFileName(request);
    if (!path.isEmpty())
        m_ui->txtOutput->setText(QDir::toNativeSeparators(path));
}

QString frmInserList::OutputPath() const
{
    const QString typed = QDir::fromNativeSeparators(m_ui->txtOutput->text().trimmed());
    if (m_levelPath.isEmpty())
        return typed;
    if (typed.isEmpty())
        return C_ListInserter::DefaultOutputPath(m_levelPath);
    // A bare name goes beside the level, as the default does.
    return QFileInfo(m_levelPath).dir().filePath(typed);
}

bool frmInserList::MayReplace(const QString& output)
{
    if (!QFileInfo::exists(output))
        return true;
    const int answer = m_prompts.MsgBox(
        tr("%1 already exists. Do you want to replace it?").arg(QDir::toNativeSeparators(output)),
        IPromptService::vbYesNo | IPromptService::vbExclamation, tr("Replace File?"));
    return answer == IPromptService::vbYes;
}

void frmInserList::EnableInsert()
{
    m_ui->cmdInsert->setEnabled(m_listChosen);
}

void frmInserList::ShowProgress(bool on)
{
    m_ui->ProgressBar1->setVisible(on);
    m_ui->ProgressBar1->setValue(0);
}

void frmInserList::SetProgress(qint64 bytes)
{
    if (m_levelLength <= 0)
        return;
    m_ui->ProgressBar1->setValue(int(qBound(qint64(0), bytes * 100 / m_levelLength, qint64(100))));
}

void frmInserList::Insert()
{
    const QString output = OutputPath();
    if (!MayReplace(output)) {
        Report(tr("Nothing written: %1 was kept as it is.").arg(QDir::toNativeSeparators(output)));
        return;
    }
    ShowProgress(true);
    C_ListInserter inserter;
    if (m_ui->chkInsertTiles->isChecked())
        inserter.WriteTiles(); // the list's own bitmap
    C_ListInserter::Result result;
    {
        BusyCursor busy;
        result = inserter.Insert(m_levelPath, m_listPath, output, [this](qint64 copied, qint64 length) {
            m_levelLength = length;
            SetProgress(copied);
            // The bar is only seen moving if it gets painted between chunks.
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        });
    }
    ShowProgress(false);
    switch (result.status) {
    case C_ListInserter::Status::Done:
        Report(InsertedReport(result));
        break;
    case C_ListInserter::Status::VersionMismatch:
        Report(tr("Nothing written: the list is for another game version than the level."));
        break;
    default:
        Report(tr("Nothing written: %1").arg(result.error));
        break;
    }
}

QString frmInserList::InsertedReport(const C_ListInserter::Result& result) const
{
    const QString output = QDir::toNativeSeparators(result.outputPath);
    QString written = tr("Inserted the list into %1").arg(output);
    if (m_ui->chkInsertTiles->isChecked()) {
        written = tr("Inserted the list and the bitmap's %1 tiles (%2 changed or added) into %3")
                      .arg(result.tileCount)
                      .arg(result.changedTiles)
                      .arg(output);
    }
    if (!result.notice.isEmpty())
        return tr("%1, but %2.").arg(written, result.notice);
    return written + QLatin1Char('.');
}

void frmInserList::Report(const QString& message)
{
    m_ui->lblResult->setText(message);
    emit StatusMessage(message);
}
