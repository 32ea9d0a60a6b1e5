#pragma once

#include "ui/common/IPromptService.h"

#include <QList>
#include <QStringList>

#include <functional>
#include <optional>

// Prompts answered from queues and recorded, so a test drives the window's
// dialogs without ever showing one. An empty queue answers OK, a cancelled
// file dialog, a cancelled colour dialog, a form left as it opened, and
// Discard to the save question (Cancel where Discard is not offered).
class ScriptedPrompts : public IPromptService
{
public:
    struct Message
    {
        QString text;
        int style = 0;
        QString title;
    };
    using FormScript = std::function<void(QDialog&)>;

    int MsgBox(const QString& text, int style, const QString& title) override;
    // Recorded among the messages with the style saveQuestionStyle.
    SaveAnswer AskToSave(const QString& text, const QString& title) override;
    // Recorded with the style saveFirstStyle; answers from saveAnswers, and
    // Cancel when they are used up.
    SaveAnswer AskToSaveFirst(const QString& text, const QString& title, const QString& saveCaption) override;
    // Recorded among the messages with the style confirmStyle.
    bool Confirm(const QString& text, const QString& title, const QString& action) override;
    QString GetFileName(const FileRequest& request) override;
    std::optional<QColor> ChooseColor(const QColor& initial) override;
    void Beep() override;
    void ShowModal(QDialog& form) override;

    // What to answer next.
    QList<int> answers;
    QList<SaveAnswer> saveAnswers;
    // To Confirm: true presses the action, false Cancel; empty presses the action.
    QList<bool> confirmAnswers;
    QStringList fileNames;
    QList<std::optional<QColor>> colors;
    // Each shown form is handed to the next script, which fills it in and
    // presses its buttons as a user would.
    QList<FormScript> formScripts;

    // What the window asked.
    QList<Message> messages;
    QList<FileRequest> fileRequests;
    QStringList formsShown;
    // The captions of the save buttons AskToSaveFirst offered.
    QStringList saveCaptions;
    int beeps = 0;

    static constexpr int saveQuestionStyle = vbYesNoCancel | vbExclamation;
    static constexpr int saveFirstStyle = vbOKCancel | vbExclamation;
    static constexpr int confirmStyle = vbOKCancel | vbExclamation;

    QStringList messageTexts() const;
    void clearRecords();
};
