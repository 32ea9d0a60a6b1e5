#pragma once

#include "ui/common/EditorPage.h"
#include "list/PreviewFrameList.h"
#include "list/SequenceCheck.h"

#include <memory>
#include <optional>

class PreviewPlayer;
class QLineEdit;
class QTimer;
class ucAnimTexture;
namespace Ui {
class SequencePage;
}

// The "... and Sequences" page: the sprite sequences of the list, one row
// each in lsvSequences (text the 0-based number in five digits, key "S" and
// that text, "Number", "First", "ObjectID"), the sprites of the chosen one
// with their bitmap rectangles (lsvOneSequence), which the preview plays,
// and the three boxes a sequence is typed into.
class SequencePage : public EditorPage
{
    Q_OBJECT

public:
    explicit SequencePage(EditorState& state, QWidget* parent = nullptr);
    ~SequencePage() override;

    void ResetPage() override;
    void ClearPage() override;
    void ListLoaded() override;
    void ListClosed() override;
    void DocumentRewound() override;
    void BitmapLoaded(const QString& fileName) override;
    void BitmapRemoved() override;

    // True when the typed sequence may be stored; otherwise shows the first
    // rule it breaks and puts the caret where that rule says.
    bool ValidateSequence(bool isNew);
    void StoreSequence(bool isNew);
    void SetSequenceButtons(bool enable);
    void ClearSequenceBoxes();
    void EnableSequenceBoxes(bool enable);
    void ResetSequenceEdit();
    // Appends sprite texture number's rectangle on the bitmap to lsvOneSequence.
    void AddSequenceTextureRow(qint64 sprite);
    // lsvOneSequence made anew for row of lsvSequences.
    void FillOneSequence(int row);
    // The shown sequence's sprites follow an edit of the sequences or sprites.
    void FollowChosenSequence();
    // Leaves any pending add or edit and empties the edition boxes.
    void CancelSequenceEdition();
    void ClearOneSequence();

    // Handlers of the page's controls.
    void cmdSeqAdd_Click();
    void cmdSeqEdit_Click();
    void cmdSeqDelete_Click();
    void cmdSeqCancel_Click();
    void lsvSequences_ItemClick(int row);
    void cmdSequnce_Click();
    void cmdDrawSeq_Click();
    // One tick of Timer2.
    void StepPreview();

    ucAnimTexture* Preview() const;
    QTimer& Timer2() const { return *m_timer2; }
    PreviewFrameList& lsvOneSequence() { return m_lsvOneSequence; }
    Ui::SequencePage& ui() const { return *m_ui; }

private:
    void ConnectControls();
    void ShowAvailableSprites();
    void AcceptSequence(bool isNew);
    qint64 AvailableSprites() const;
    // The run of row (from 0) of lsvSequences, nothing past either end.
    std::optional<SequenceCheck::Run> RunOfRow(int row) const;
    QLineEdit* BoxOf(SequenceCheck::Box box) const;
    // Five digits of the row count, or of the next number after it that no
    // row holds (a deleted middle row leaves the count taken).
    qint32 NextFreeSequenceNumber() const;
    bool ConfirmMiddleDeletion();

    std::unique_ptr<Ui::SequencePage> m_ui;
    PreviewFrameList m_lsvOneSequence;
    // The sequence shown for editing (its key in lblSeqKey), and the sprite
    // count lblAvailSTextures shows, which new runs are checked against.
    std::optional<qint32> m_shownNumber;
    qint64 m_availableSprites = 0;
    QTimer* m_timer2 = nullptr;
    PreviewPlayer* m_player = nullptr;
};
