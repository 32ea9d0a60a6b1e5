#pragma once

#include <QString>

#include <functional>

class IPromptService;
class ListDocument;

// The question asked before a list with unsaved changes is set aside or
// used as its file stands: it names the list and what is about to happen,
// so the answer is given knowing both.
class SaveQuestion
{
public:
    enum class Before { OpeningAnother, MakingNew, Closing, Quitting, Inserting };

    using SaveList = std::function<bool()>;
    using Status = std::function<void(const QString&)>;

    SaveQuestion(IPromptService& prompts, const ListDocument& document, SaveList save, Status status);

    // True when the action may go on: nothing unsaved, changes saved, or
    // (except before an insertion, which writes the file as it stands)
    // discarded. False keeps the list open with its changes.
    bool Ask(Before action) const;

    // "Save the changes to LIST.trt before opening another list?"
    static QString Text(Before action, const QString& listFileName);
    static QString Title();

private:
    IPromptService& m_prompts;
    const ListDocument& m_document;
    SaveList m_save;
    Status m_status;
};
