#pragma once

#include "ui/common/EditorPage.h"
#include "list/RecordBuilder.h"
#include "list/tables/TextureEntry.h"
#include "list/EditedTexture.h"
#include "list/TextureGeometry.h"

#include <QColor>
#include <QPolygon>

#include <memory>
#include <optional>

class CornerBoxes;
class DrawChecklist;
class TextureDrag;
namespace Ui {
class ObjectTexturePage;
}

// The "Object Textures" page: the checklist of textures to outline, the
// complete texture list and the "Texture Edition" frame, where one texture
// is added or changed by typing the two diagonal corners of its rectangle.
// The frame is viewing (Add and Edit, corners locked), adding (Add reads
// "Accept") or editing (Edit reads "Accept"); Accept stores the frame into
// the complete list and returns to viewing, or says in the status bar why
// it cannot and stays. A rectangle is typed by its Lo and Hi corners or
// dragged on the bitmap; a triangle, or any quad with free corners, is typed
// corner by corner, or its corners dragged one by one. While adding or
// editing, the texture is outlined on the bitmap in a colour of its own.
class ObjectTexturePage : public EditorPage
{
    Q_OBJECT

public:
    explicit ObjectTexturePage(EditorState& state, QWidget* parent = nullptr);
    ~ObjectTexturePage() override;

    void ResetPage() override;
    void ClearPage() override;
    void ListLoaded() override;
    void ListClosed() override;
    void DocumentRewound() override;

    // The counters beside the edition frame: textures of the list, tiles of the bitmap.
    void SetTextureQty(const QString& text);
    void SetTileQty(const QString& text);

    // A rectangle picked on the bitmap, in whole-bitmap pixels, with the
    // tile it starts in: the tile and the corners that differ go into the
    // boxes. True when both X and Y differ; otherwise the markers and the
    // two typed corners are emptied and the corners locked. A texture being
    // added or edited is left as it is.
    bool TakeSelection(int tile, int x1, int y1, int x2, int y2);

    // Locks the corner boxes; with openLoHi the Lo and Hi corners are then
    // open for typing. A triangle's fourth corner is shown unused.
    void LockCornerBoxes(bool openLoHi);

    // Adding or editing: Add or Edit reads "Accept".
    bool IsEditingFrame() const;
    // The colour the edited texture is outlined in: never the outline colour.
    QColor EditOutlineColor() const;

    int Sides() const { return m_sides; }
    int Attribute() const { return m_attribute; }
    TextureGeometry::Flips Flips() const { return m_flips; }

    Ui::ObjectTexturePage& ui() const { return *m_ui; }

private:
    void ConnectControls();
    CornerBoxes& Corners() const { return *m_corners; }

    void cmdAdd_Click();
    void cmdEdit_Click();
    void cmdDel_Click();
    void cmdCancel_Click();
    void cmdAttrib_Click();
    void cmdSides_Click();
    void cmdFlipHor_Click();
    void cmdFlipVert_Click();
    void cmdDraw_Click();
    void lsvTextures_ItemClick(int row);
    void chkFreeCorners_Click(bool checked);

    void BeginAdding();
    void AcceptAdding();
    void AcceptEditing();
    void ShowViewing();
    // Back to viewing with the frame emptied, as no texture had been shown.
    void ForgetEditedTexture();
    void ShowTextureNumber();

    // The frame's texture written into the complete list through the
    // document: a new row without a number, else the row with that number.
    // False when nothing was stored.
    bool StoreEditedTexture(std::optional<qint32> number);
    EditedTexture::Frame ReadFrame() const;
    // The entry a new texture gets: the number asked for, or the first free after it.
    TextureEntry NewEntry(const TextureEntry& record);
    void ReportStored(const QString& number, const EditedTexture::Stored& stored,
                      const std::optional<ObjectTextureRow>& original);
    void FocusCorner(int row);

    void LoadTextureRow(int row);
    void ShowAttribute(int value);
    void ShowSides(int sides);
    void SetFlipState(int loRow);
    void SetFlipCaptions();
    void SetCornerLabels();
    void CompleteFourthCorner();
    void ClearTextureEdition();
    void ResetTextureEdition(bool enabled);
    void EnableFlips(bool enabled);
    void EnableTileBox(bool enabled);
    void Flip(bool horizontal);
    bool SetCornersFromSelection(int x1, int y1, int x2, int y2);

    void SetFreeCorners(bool free);
    void EnableFreeCorners(bool editing);
    std::optional<TextureGeometry::LoHi> BoxesFormRectangle() const;
    void TakeRectangleMarkers(TextureGeometry::LoHi loHi);

    void ConnectDrag();
    void DragRectangle(int tile, QPoint lo, QPoint hi);
    void DragCorner(int row, QPoint at);
    QList<QPoint> EditedCorners() const;
    void ShowEditOutline();

    std::unique_ptr<Ui::ObjectTexturePage> m_ui;
    std::unique_ptr<CornerBoxes> m_corners;
    DrawChecklist* m_checklist = nullptr;
    TextureDrag* m_drag = nullptr;
    int m_sides = 4;
    int m_attribute = 0;
    // The attribute button was pressed since the row was loaded.
    bool m_attributeChosen = false;
    TextureGeometry::Flips m_flips;
};
