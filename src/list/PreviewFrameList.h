#pragma once

#include "list/rows/IndexRows.h"
#include "list/rows/ListViewModel.h"
#include "list/tables/RecordTable.h"
#include "list/tables/TextureEntry.h"

#include <functional>
#include <optional>

// The frames a preview plays, one row each: lsvOneAnim on the animation page,
// lsvOneSequence on the sequence page. Columns "Texture #", "X", "Y", "Xwid",
// "YHi" and "IsTriad": the texture's number, the top-left pixel of its
// rectangle on the whole bitmap, the extent the preview shows, and "Triad"
// for a three-cornered object texture. The last three columns are never
// shown. A texture that cannot be found keeps its number and empty cells.
class PreviewFrameList : public ListViewModel
{
    Q_OBJECT

public:
    explicit PreviewFrameList(QObject* parent = nullptr);

    // The columns the views hide: "Xwid", "YHi" and "IsTriad".
    static QList<int> HiddenColumns() { return {3, 4, 5}; }
    // Pixels for the narrow columns "X" and "Y", which hold at most 5 digits.
    static constexpr int NarrowestColumn = 40;

    // Appends a frame with these cells, as given.
    void AddFrame(const QString& number, const QString& x, const QString& y, const QString& xwid,
                  const QString& yhi, const QString& isTriad = {});
    // Appends the object texture at place texture of the list's textures
    // (what the level numbers it), with the rectangle it covers; a texture
    // past the list keeps its number and empty cells.
    void AddObjectTexture(const RecordTable<TextureEntry>& textures, qint64 texture);

    bool IsTriad(int row) const;

    // What a preview control is handed for one frame, in bitmap pixels.
    struct Frame
    {
        qint32 x = 0;
        qint32 y = 0;
        qint32 width = 0;
        qint32 height = 0;
    };

    // The rectangle of row (from 0); nothing when the row is missing or one
    // of its four geometry cells is empty.
    std::optional<Frame> FrameAt(int row) const;

    // Ticks, in checklist, the row keyed keyPrefix and the number of every
    // frame. False when there are no frames (nothing is ticked then).
    bool CheckFramesIn(IndexRows& checklist, QChar keyPrefix) const;
    // Ticks, in checklist, the row keyed as the row of rows at each frame's
    // place, so a list whose keys no longer follow its places (a texture was
    // deleted) ticks the rows the frames show. False when there are no frames.
    bool CheckPlacesIn(IndexRows& checklist, const ListRows& rows) const;

private:
    static qint32 WholeNumber(const QString& cell);
    // The cell's number; nothing when it holds none.
    static std::optional<qint64> NumberIn(const QString& cell);
    // Ticks the checklist row keyed keyOf(frame) for every frame ("" ticks none).
    bool TickFrames(IndexRows& checklist, const std::function<QString(int)>& keyOf) const;
};
