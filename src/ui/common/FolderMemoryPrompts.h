#pragma once

#include "ui/common/IPromptService.h"

#include <functional>

class EditorSettings;

// Prompts that hand every call to another prompt service, but start each
// file dialog in the folder it was last used in: a dialog whose caller named
// no folder opens where the user last chose a file through it, else in the
// folder of the open list's level, else in the home folder. A chosen file
// remembers its folder for the next time.
class FolderMemoryPrompts : public IPromptService
{
public:
    using FolderSource = std::function<QString()>;

    FolderMemoryPrompts(IPromptService& inner, EditorSettings& settings, FolderSource levelFolder);

    int MsgBox(const QString& text, int style, const QString& title) override;
    SaveAnswer AskToSave(const QString& text, const QString& title) override;
    SaveAnswer AskToSaveFirst(const QString& text, const QString& title, const QString& saveCaption) override;
    bool Confirm(const QString& text, const QString& title, const QString& action) override;
    QString GetFileName(const FileRequest& request) override;
    std::optional<QColor> ChooseColor(const QColor& initial) override;
    void Beep() override;
    void ShowModal(QDialog& form) override;

    IPromptService& inner() const { return m_inner; }

private:
    QString StartFolder(const QString& title) const;

    IPromptService& m_inner;
    EditorSettings& m_settings;
    FolderSource m_levelFolder;
};
