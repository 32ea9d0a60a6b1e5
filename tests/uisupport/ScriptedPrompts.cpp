#include "uisupport/ScriptedPrompts.h"

#include <QDialog>

int ScriptedPrompts::MsgBox(const QString& text, int style, const QString& title)
{
    messages.append({text, style, title});
    return answers.isEmpty() ? vbOK : answers.takeFirst();
}

IPromptService::SaveAnswer ScriptedPrompts::AskToSave(const QString& text, const QString& title)
{
    messages.append({text, saveQuestionStyle, title});
    return saveAnswers.isEmpty() ? SaveAnswer::Discard : saveAnswers.takeFirst();
}

QString ScriptedPrompts::GetFileName(const FileRequest& request)
{
    fileRequests.append(request);
    return fileNames.isEmpty() ? QString() : fileNames.takeFirst();
}

std::optional<QColor> ScriptedPrompts::ChooseColor(const QColor&)
{
    return colors.isEmpty() ? std::nullopt : colors.takeFirst();
}

void ScriptedPrompts::Beep()
{
    ++beeps;
}

void ScriptedPrompts::ShowModal(QDialog& form)
{
    formsShown.append(form.objectName());
    if (!formScripts.isEmpty())
        formScripts.takeFirst()(form);
}

QStringList ScriptedPrompts::messageTexts() const
{
    QStringList texts;
    for (const Message& message : messages)
        texts << message.text;
    return texts;
}

void ScriptedPrompts::clearRecords()
{
    messages.clear();
    fileRequests.clear();
    formsShown.clear();
    beeps = 0;
}
