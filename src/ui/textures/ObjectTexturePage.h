#pragma once

#include "EditorPage.h"

#include <memory>

namespace Ui {
class ObjectTexturePage;
}

// The "Object Textures" page: the checklist of textures to outline, the
// complete texture list and the texture being edited.
class ObjectTexturePage : public EditorPage
{
    Q_OBJECT

public:
    explicit ObjectTexturePage(EditorState& state, QWidget* parent = nullptr);
    ~ObjectTexturePage() override;

    void ResetPage() override;
    void ClearPage() override;

    // The counters beside the edition frame: textures of the list, tiles of the bitmap.
    void SetTextureQty(const QString& text);
    void SetTileQty(const QString& text);

    Ui::ObjectTexturePage& ui() const { return *m_ui; }

private:
    std::unique_ptr<Ui::ObjectTexturePage> m_ui;
};
