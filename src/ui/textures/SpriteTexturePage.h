#pragma once

#include "EditorPage.h"

#include <memory>

namespace Ui {
class SpriteTexturePage;
}

// The "Sprites Textures" page: the sprite checklist, the complete sprite list
// and the sprite being edited.
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

    Ui::SpriteTexturePage& ui() const { return *m_ui; }

private:
    std::unique_ptr<Ui::SpriteTexturePage> m_ui;
};
