#pragma once

#include <QColor>
#include <QString>

#include <optional>

class QDialog;

// Every modal interaction of the editor: message boxes, file dialogs, the
// colour dialog, the beep and the modal forms. The application installs the
// Qt implementation; tests install a scripted one, so no test ever waits on a
// real dialog.
class IPromptService
{
public:
    // Message box styles and answers, as the forms pass and test them.
    enum Style : int {
        vbOKOnly = 0,
        vbOKCancel = 1,
        vbYesNoCancel = 3,
        vbYesNo = 4,
        vbCritical = 16,
        vbQuestion = 32,
        vbExclamation = 48,
        vbInformation = 64,
    };
    enum Answer : int { vbOK = 1, vbCancel = 2, vbYes = 6, vbNo = 7 };
    // The answers to the question asked before a changed list is set aside.
    enum class SaveAnswer { Save, Discard, Cancel };

    // File dialog flags the forms use.
    enum Flag : int {
        OverwritePrompt = 2,
        PathMustExist = 2048,
        FileMustExist = 4096,
    };

    struct FileRequest
    {
        bool save = false;
        QString title;
        QString fileName;
        QString defaultExt; // as the forms give it: "*.TRT"
        QString filter;     // "Description|pattern|Description|pattern"
        int filterIndex = 1;
        int flags = 0;
        QString initDir;
    };

    virtual ~IPromptService() = default;

    // The answer pressed; an empty title means the program's own.
    virtual int MsgBox(const QString& text, int style = vbOKOnly, const QString& title = {}) = 0;
    // A question with the three buttons Save, Discard and Cancel and the
    // exclamation icon; closing the box answers Cancel.
    virtual SaveAnswer AskToSave(const QString& text, const QString& title) = 0;
    // A question whose only way on is to save first: a Save button captioned
    // saveCaption ("Save and Insert") and Cancel, with the exclamation icon;
    // closing the box answers Cancel. Never answers Discard.
    virtual SaveAnswer AskToSaveFirst(const QString& text, const QString& title, const QString& saveCaption) = 0;
    // A question with the exclamation icon and two buttons, action (the
    // default) and Cancel: true when action was pressed. Closing the box
    // answers Cancel.
    virtual bool Confirm(const QString& text, const QString& title, const QString& action) = 0;
    // The chosen path, or "" when the dialog was cancelled.
    virtual QString GetFileName(const FileRequest& request) = 0;
    // The chosen colour, or nothing when cancelled.
    virtual std::optional<QColor> ChooseColor(const QColor& initial) = 0;
    virtual void Beep() = 0;
    // Shows a form modally; returns when the form has hidden itself.
    virtual void ShowModal(QDialog& form) = 0;
};
