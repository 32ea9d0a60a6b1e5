#include "ui/common/FolderMemoryPrompts.h"

#include "ui/common/EditorSettings.h"

#include <QDir>
#include <QFileInfo>

FolderMemoryPrompts::FolderMemoryPrompts(IPromptService& inner, EditorSettings& settings, FolderSource levelFolder)
    : m_inner(inner)
    , m_settings(settings)
    , m_levelFolder(std::move(levelFolder))
{
}

int FolderMemoryPrompts::MsgBox(const QString& text, int style, const QString& title)
{
    return m_inner.MsgBox(text, style, title);
}

IPromptService::SaveAnswer FolderMemoryPrompts::AskToSave(const QString& text, const QString& title)
{
    return m_inner.AskToSave(text, title);
}

IPromptService::SaveAnswer FolderMemoryPrompts::AskToSaveFirst(const QString& text, const QString& title,
                                                               const QString& saveCaption)
{
    return m_inner.AskToSaveFirst(text, title, saveCaption);
}

bool FolderMemoryPrompts::Confirm(const QString& text, const QString& title, const QString& action)
{
    return m_inner.Confirm(text, title, action);
}

QString FolderMemoryPrompts::StartFolder(const QString& title) const
{
    const QString remembered = m_settings.LastFolder(title);
    if (!remembered.isEmpty())
        return remembered;
    const QString level = m_levelFolder ? m_levelFolder() : QString();
    if (!level.isEmpty() && QFileInfo(level).isDir())
        return level;
    return QDir::homePath();
}

QString FolderMemoryPrompts::GetFileName(const FileRequest& request)
{
    FileRequest asked = request;
    // A caller that names a folder (beside the level a bitmap is made from)
    // knows better than the memory.
    if (asked.initDir.isEmpty())
        asked.initDir = StartFolder(asked.title);
    const QString chosen = m_inner.GetFileName(asked);
    if (!chosen.isEmpty())
        m_settings.SetLastFolder(asked.title, QFileInfo(chosen).absolutePath());
    return chosen;
}

std::optional<QColor> FolderMemoryPrompts::ChooseColor(const QColor& initial)
{
    return m_inner.ChooseColor(initial);
}

void FolderMemoryPrompts::Beep()
{
    m_inner.Beep();
}

void FolderMemoryPrompts::ShowModal(QDialog& form)
{
    m_inner.ShowModal(form);
}
