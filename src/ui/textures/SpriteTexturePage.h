#pragma once

#include "ui/common/EditorPage.h"
#include "list/tables/SpriteTextureEntry.h"
#include "ui/textures/SpriteEntry.h"

#include <memory>
#include <optional>

class DrawChecklist;
class QLineEdit;
namespace Ui {
class SpriteTexturePage;
}

// The "Sprites Textures" page: the sprite checklist, the complete sprite
// list and the "Sprite Edition" frame, where one sprite is added or changed
// by its two corners (whole-bitmap pixels) and its four stretch offsets.
// Viewing (boxes disabled), adding (Add reads "Accept") or editing (Edit
// reads "Accept"); a valid Accept stores and returns to viewing, an invalid
// one says why and stays.
class SpriteTexturePage : public EditorPage
{
    Q_OBJECT

public:
    explicit SpriteTexturePage(EditorState& state, QWidget* parent = nullptr);
    ~SpriteTexturePage() override;

    void ResetPage() override;
    void ClearPage() override;
    void ListLoaded() override;
    void ListClosed() override;

    // Leaves any pending add or edit and empties the edition frame.
    void CancelSpriteEdition();
    // Empties the nine input boxes and the sprite's number.
    void ClearSpriteEdition();

    // A rectangle picked on the bitmap (whole-bitmap pixels, in the given
    // tile): the frame is emptied and, when the rectangle has an area,
    // takes its corners and tile.
    void TakeSelection(bool made, int tile, int x1, int y1, int x2, int y2);

    Ui::SpriteTexturePage& ui() const { return *m_ui; }

private:
    void ConnectControls();
    QLineEdit* Box(SpriteEntry::Box box) const;
    QList<QLineEdit*> InputBoxes() const;

    void cmdSpriteAdd_Click();
    void cmdSpriteEdit_Click();
    void cmdSpriteDelete_Click();
    void cmdDrawSprite_Click();
    void lsvSprites_ItemClick(int row);

    void AcceptAdding();
    void AcceptEditing();
    bool ConfirmDeletion();

    bool ValidateSpriteEdition();
    void ReportFault(const SpriteEntry::Check& check);
    // The frame written into the complete list; false when nothing was stored.
    bool StoreEditedSprite(bool isNew, const SpriteEntry& entry);
    // The row to store: the one being edited as it is, or a new one.
    // The entry a new sprite gets: the first free number from the count on.
    SpriteTextureEntry NewEntry(const SpriteTexture& record);
    // txtNum follows the sprite rows while a list is open.
    void ShowSpriteCount();
    void LoadSprite(const SpriteTextureEntry& entry);
    void EnableSpriteBoxes(bool enabled);
    void ResetSpriteEdition(bool enabled);

    std::unique_ptr<Ui::SpriteTexturePage> m_ui;
    DrawChecklist* m_checklist = nullptr;
    std::optional<SpriteEntry> m_entry;
    // The number of the sprite shown for editing (its key in lblKey).
    std::optional<qint32> m_shownNumber;
};
