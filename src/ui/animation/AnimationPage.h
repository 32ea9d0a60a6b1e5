#pragma once

#include "ui/common/EditorPage.h"
#include "list/rows/ListViewModel.h"
#include "list/PreviewFrameList.h"
#include "list/rows/PlannedRange.h"

#include <memory>
#include <optional>

class PreviewPlayer;
class QPushButton;
class QTimer;
class ucAnimTexture;
namespace Ui {
class AnimationPage;
}

// The "...and Animations" page: the animated texture ranges of the list
// (lsvAnims, one row per animation, and lsvAnimDetails, one row per texture
// of every animation), the animation being built from the available object
// textures (lsvNextAnim), and the chosen animation's textures with their
// bitmap rectangles (lsvOneAnim), which the preview plays.
//
// An animation numbered NN (at least two digits) owns the lsvAnims row with
// text NN and key "A"NN, and the detail rows with texts "NN-i" and keys
// "A"NN"i". Its rows are found by prefix: texts or keys starting with NN,
// so animation 10 also reaches the rows of animations 100 to 109.
class AnimationPage : public EditorPage
{
    Q_OBJECT

public:
    explicit AnimationPage(EditorState& state, QWidget* parent = nullptr);
    ~AnimationPage() override;

    void ResetPage() override;
    void ClearPage() override;
    void ListLoaded() override;
    void BitmapLoaded(const QString& fileName) override;
    void BitmapRemoved() override;
    void DocumentRewound() override;

    // Enables the lists and buttons that build an animation; the two lists
    // take the window colour while enabled and the button face otherwise.
    void EnableAnimationEdit(bool enable);
    void EnableOrderButtons(bool enable);
    // The page's cancel: back to browsing with nothing being built.
    void ResetAnimationEdit();
    void SetAnimTotal(const QString& text);
    void ClearOneAnim();

    // Handlers of the page's controls.
    void cmdAddAnim_Click();
    void cmdEditAnim_Click();
    void cmdDelAnim_Click();
    void cmdCancelAnim_Click();
    void cmdAddText_Click();
    void cmdDelText_Click();
    void cmdUp_Click();
    void cmdDown_Click();
    void lsvAnims_ItemClick(int row);
    void lsvAvailTextures_ItemClick(int row);
    void lsvNextAnim_ItemClick(int row);
    void cmdAnim_Click();
    void cmdDrawAnim_Click();
    // One tick of Timer1.
    void StepPreview();

    ucAnimTexture* Preview() const;
    QTimer& Timer1() const { return *m_timer1; }
    PreviewFrameList& lsvOneAnim() { return m_lsvOneAnim; }
    PlannedRange& lsvNextAnim() { return m_lsvNextAnim; }
    Ui::AnimationPage& ui() const { return *m_ui; }

private:
    void ConnectControls();
    void ResetEditor();
    // The number the animation being built, edited or chosen has: the
    // caption of lblNextAnim, at least two digits.
    // The number lblNextAnim shows: the range chosen or being added; -1 for none.
    qint32 CurrentAnimationNumber() const;
    void ShowRangeNumber(std::optional<qint32> number);
    // The row count, or the next number after it that no animation holds
    // (deletions leave gaps, so the count may be taken).
    qint32 NextFreeAnimationNumber() const;
    // Warns when lsvNextAnim holds fewer than two textures.
    bool HasEnoughTextures();
    // The textures of lsvNextAnim in their order: the range to build.
    QList<quint16> PlannedTextures() const;
    // lblAnimTotal follows the ranges while a list is open.
    void ShowAnimTotal();
    // The shown range's textures follow an edit of the ranges or textures.
    void FollowChosenRange();
    // An edit leaves the range's "Number" and "First" as they were while
    // other ranges exist; the status bar says what the range now saves.
    void TellOfKeptSummary(qint32 number, const QList<quint16>& textures);
    void FinishAnimationEdit(QPushButton& button, const QString& caption);
    // Moves the chosen row of lsvNextAnim by step places (-1 up, +1 down).
    void MoveChosenTexture(int step);
    // Fills lsvOneAnim and lsvNextAnim with the textures of the range at row.
    void ShowAnimationTextures(int range);

    std::unique_ptr<Ui::AnimationPage> m_ui;
    PreviewFrameList m_lsvOneAnim;
    PlannedRange m_lsvNextAnim;
    ListViewModel m_lsvAnimsDel;
    ListViewModel m_lsvAnimDetailsDel;
    std::optional<qint32> m_shownRange;
    QTimer* m_timer1 = nullptr;
    PreviewPlayer* m_player = nullptr;
};
