#include "ui/common/QtPromptService.h"

#include <QApplication>
#include <QColorDialog>
#include <QDialog>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

QMessageBox::Icon QtPromptService::IconOf(int style)
{
    switch (style & 0x70) {
    case IPromptService::vbCritical: return QMessageBox::Critical;
    case IPromptService::vbQuestion: return QMessageBox::Question;
    case IPromptService::vbExclamation: return QMessageBox::Warning;
    case IPromptService::vbInformation: return QMessageBox::Information;
    default: return QMessageBox::NoIcon;
    }
}

QMessageBox::StandardButtons QtPromptService::ButtonsOf(int style)
{
    switch (style & 0x7) {
    case IPromptService::vbOKCancel: return QMessageBox::Ok | QMessageBox::Cancel;
    case IPromptService::vbYesNoCancel: return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case IPromptService::vbYesNo: return QMessageBox::Yes | QMessageBox::No;
    default: return QMessageBox::Ok;
    }
}

namespace {

int AnswerOf(int button)
{
    switch (button) {
    case QMessageBox::Cancel: return IPromptService::vbCancel;
    case QMessageBox::Yes: return IPromptService::vbYes;
    case QMessageBox::No: return IPromptService::vbNo;
    default: return IPromptService::vbOK;
    }
}

} // namespace

int QtPromptService::MsgBox(const QString& text, int style, const QString& title)
{
    QMessageBox box(IconOf(style), title.isEmpty() ? QApplication::applicationName() : title, Wrappable(text),
                    ButtonsOf(style), m_parent);
    // Messages carry names read from files: shown as they are, never as markup.
    box.setTextFormat(Qt::PlainText);
    // A box that can be cancelled answers Cancel to Escape and to its close button.
    if (box.standardButtons() & QMessageBox::Cancel)
        box.setEscapeButton(QMessageBox::Cancel);
    return AnswerOf(box.exec());
}

QString QtPromptService::Wrappable(const QString& text)
{
    constexpr QChar ZeroWidthSpace(0x200B);
    constexpr int LongestUnbroken = 40;
    QString wrappable;
    wrappable.reserve(text.size() + text.size() / 8);
    int unbroken = 0;
    for (const QChar c : text) {
        wrappable.append(c);
        unbroken = c.isSpace() ? 0 : unbroken + 1;
        if (c == QLatin1Char('/') || c == QLatin1Char('\\') || unbroken == LongestUnbroken) {
            wrappable.append(ZeroWidthSpace);
            unbroken = 0;
        }
    }
    return wrappable;
}

IPromptService::SaveAnswer QtPromptService::AskToSave(const QString& text, const QString& title)
{
    QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel,
                    m_parent);
    box.setDefaultButton(QMessageBox::Save);
    box.setEscapeButton(QMessageBox::Cancel);
    switch (box.exec()) {
    case QMessageBox::Save: return SaveAnswer::Save;
    case QMessageBox::Discard: return SaveAnswer::Discard;
    default: return SaveAnswer::Cancel;
    }
}

IPromptService::SaveAnswer QtPromptService::AskToSaveFirst(const QString& text, const QString& title,
                                                           const QString& saveCaption)
{
    return Confirm(text, title, saveCaption) ? SaveAnswer::Save : SaveAnswer::Cancel;
}

bool QtPromptService::Confirm(const QString& text, const QString& title, const QString& action)
{
    QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::NoButton, m_parent);
    QPushButton* act = box.addButton(action, QMessageBox::AcceptRole);
    QPushButton* cancel = box.addButton(QMessageBox::Cancel);
    box.setDefaultButton(act);
    box.setEscapeButton(cancel);
    box.exec();
    return box.clickedButton() == act;
}

QStringList QtPromptService::NameFilters(const QString& filter)
{
    const QStringList parts = filter.split(QLatin1Char('|'));
    QStringList filters;
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        const QString& description = parts[i];
        const QString& pattern = parts[i + 1];
        QString filter = description.contains(pattern)
                             ? description
                             : description + QStringLiteral(" (") + pattern + QLatin1Char(')');
        // One filter of several patterns: ";" between them, as the filters
        // are written, is a space to the file dialog.
        filters << filter.replace(QLatin1Char(';'), QLatin1Char(' '));
    }
    return filters;
}

QString QtPromptService::DefaultSuffix(const QString& defaultExt)
{
    QString suffix = defaultExt;
    suffix.remove(QLatin1Char('*'));
    if (suffix.startsWith(QLatin1Char('.')))
        suffix.remove(0, 1);
    // Names are matched by case on most systems: the filters use lower case.
    return suffix.toLower();
}

QString QtPromptService::GetFileName(const FileRequest& request)
{
    QFileDialog dialog(m_parent, request.title, request.initDir);
    dialog.setAcceptMode(request.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    // An open dialog only ever takes a file that is there.
    dialog.setFileMode(request.save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    const QStringList filters = NameFilters(request.filter);
    dialog.setNameFilters(filters);
    if (request.filterIndex >= 1 && request.filterIndex <= filters.size())
        dialog.selectNameFilter(filters[request.filterIndex - 1]);
    dialog.setDefaultSuffix(DefaultSuffix(request.defaultExt));
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !(request.flags & OverwritePrompt));
    if (!request.fileName.isEmpty())
        dialog.selectFile(request.fileName);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return dialog.selectedFiles().constFirst();
}

std::optional<QColor> QtPromptService::ChooseColor(const QColor& initial)
{
    const QColor color = QColorDialog::getColor(initial, m_parent);
    if (!color.isValid())
        return std::nullopt;
    return color;
}

void QtPromptService::Beep()
{
    QApplication::beep();
}

void QtPromptService::ShowModal(QDialog& form)
{
    form.exec();
}
