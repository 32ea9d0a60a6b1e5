#pragma once

#include "EditorPage.h"
#include "ListViewModel.h"

#include <memory>

class ucAnimTexture;
namespace Ui {
class SequencePage;
}

// The "... and Sequences" page: the sprite sequences, the sprites of the
// chosen one with its preview, and the sequence being edited.
class SequencePage : public EditorPage
{
    Q_OBJECT

public:
    explicit SequencePage(EditorState& state, QWidget* parent = nullptr);
    ~SequencePage() override;

    void ClearPage() override;
    void ListLoaded() override;
    void ListClosed() override;
    void BitmapLoaded(const QString& fileName) override;
    void BitmapRemoved() override;

    // Leaves any pending add or edit and empties the edition boxes.
    void CancelSequenceEdition();
    void ClearOneSequence();

    ucAnimTexture* Preview() const;
    ListViewModel& lsvOneSequence() { return m_lsvOneSequence; }
    Ui::SequencePage& ui() const { return *m_ui; }

private:
    std::unique_ptr<Ui::SequencePage> m_ui;
    ListViewModel m_lsvOneSequence;
};
