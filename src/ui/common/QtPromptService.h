#pragma once

#include "ui/common/IPromptService.h"

#include <QMessageBox>

class QWidget;

// The prompts as real Qt dialogs, over the given parent window.
class QtPromptService : public IPromptService
{
public:
    explicit QtPromptService(QWidget* parent = nullptr) : m_parent(parent) {}

    int MsgBox(const QString& text, int style, const QString& title) override;
    SaveAnswer AskToSave(const QString& text, const QString& title) override;
    SaveAnswer AskToSaveFirst(const QString& text, const QString& title, const QString& saveCaption) override;
    bool Confirm(const QString& text, const QString& title, const QString& action) override;
    QString GetFileName(const FileRequest& request) override;
    std::optional<QColor> ChooseColor(const QColor& initial) override;
    void Beep() override;
    void ShowModal(QDialog& form) override;

    // "A (*.a)|*.a|B|*.b" as Qt's name filters: "A (*.a)", "B (*.b)".
    static QStringList NameFilters(const QString& filter);
    // A message box style as Qt's icon and buttons: 48 the exclamation icon,
    // 16 the critical one, 1 OK and Cancel, so 49 is both.
    static QMessageBox::Icon IconOf(int style);
    static QMessageBox::StandardButtons ButtonsOf(int style);
    // "*.TRT" as the suffix a saved name gets: "trt".
    static QString DefaultSuffix(const QString& defaultExt);
    // text with a zero-width space after each path separator and within any
    // run of characters too long for a line, where a message box may wrap
    // it: a long path never pushes the box past the screen's edge.
    static QString Wrappable(const QString& text);

private:
    QWidget* m_parent;
};
