#pragma once

#include "ui/common/IPromptService.h"

#include <QStringList>

// Prompts that answer at once, so a figure can drive the editor's menus:
// file dialogs take the queued names, message boxes are answered OK and
// counted (a figure that met one was not measuring what it should).
class BenchPrompts : public IPromptService
{
public:
    int MsgBox(const QString& text, int, const QString&) override
    {
        lastMessage = text;
        ++messages;
        return vbOK;
    }
    // A figure never leaves edits to save: the question counts as a message.
    SaveAnswer AskToSave(const QString& text, const QString&) override
    {
        lastMessage = text;
        ++messages;
        return SaveAnswer::Discard;
    }
    SaveAnswer AskToSaveFirst(const QString& text, const QString&, const QString&) override
    {
        lastMessage = text;
        ++messages;
        return SaveAnswer::Cancel;
    }
    QString GetFileName(const FileRequest&) override { return fileNames.isEmpty() ? QString() : fileNames.takeFirst(); }
    std::optional<QColor> ChooseColor(const QColor&) override { return std::nullopt; }
    void Beep() override {}
    void ShowModal(QDialog&) override {}

    QStringList fileNames;
    int messages = 0;
    QString lastMessage;
};
