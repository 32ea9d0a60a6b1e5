#include "ui/main/SaveQuestion.h"

#include "list/ListDocument.h"
#include "ui/common/IPromptService.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <utility>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("SaveQuestion", text);
}

} // namespace

SaveQuestion::SaveQuestion(IPromptService& prompts, const ListDocument& document, SaveList save, Status status)
    : m_prompts(prompts)
    , m_document(document)
    , m_save(std::move(save))
    , m_status(std::move(status))
{
}

QString SaveQuestion::Text(Before action, const QString& listFileName)
{
    const char* text = "";
    switch (action) {
    case Before::OpeningAnother: text = "Save the changes to %1 before opening another list?"; break;
    case Before::MakingNew: text = "Save the changes to %1 before making a new list?"; break;
    case Before::Closing: text = "Save the changes to %1 before closing it?"; break;
    case Before::Quitting: text = "Save the changes to %1 before quitting?"; break;
    case Before::Inserting: text = "Save the changes to %1 before inserting it into a level?"; break;
    }
    return tr(text).arg(QFileInfo(listFileName).fileName());
}

QString SaveQuestion::Title()
{
    return QStringLiteral("Save List Changes?");
}

bool SaveQuestion::Ask(Before action) const
{
    if (!m_document.isModified())
        return true;
    const QString text = Text(action, m_document.ListFileName());
    // The insertion reads the list's file: only a saved list is what the
    // window shows, so there is nothing to discard.
    const IPromptService::SaveAnswer answer = action == Before::Inserting
                                                  ? m_prompts.AskToSaveFirst(text, Title(), tr("Save and Insert"))
                                                  : m_prompts.AskToSave(text, Title());
    switch (answer) {
    case IPromptService::SaveAnswer::Save:
        return m_save();
    case IPromptService::SaveAnswer::Discard:
        return true;
    case IPromptService::SaveAnswer::Cancel:
        break;
    }
    m_status(action == Before::Inserting ? tr("Nothing was inserted: the list was kept open with its changes.")
                                         : tr("The list was kept open with its changes."));
    return false;
}
