#include "uisupport/ScriptedPrompts.h"

#include "ui/common/EditorSettings.h"

#include <QCoreApplication>
#include <QFile>
#include <QStandardPaths>

namespace {

// Every editor test reads and writes settings of its own, in Qt's test
// folders, and starts from none: never the user's.
void UseTestSettings()
{
    QStandardPaths::setTestModeEnabled(true);
    QFile::remove(EditorSettings::DefaultFileName());
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(UseTestSettings)

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

IPromptService::SaveAnswer ScriptedPrompts::AskToSaveFirst(const QString& text, const QString& title,
                                                           const QString& saveCaption)
{
    messages.append({text, saveFirstStyle, title});
    saveCaptions.append(saveCaption);
    const SaveAnswer answer = saveAnswers.isEmpty() ? SaveAnswer::Cancel : saveAnswers.takeFirst();
    return answer == SaveAnswer::Save ? answer : SaveAnswer::Cancel;
}

bool ScriptedPrompts::Confirm(const QString& text, const QString& title, const QString&)
{
    messages.append({text, confirmStyle, title});
    return confirmAnswers.isEmpty() || confirmAnswers.takeFirst();
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
    saveCaptions.clear();
    beeps = 0;
}
