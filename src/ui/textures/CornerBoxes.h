#pragma once

#include "list/TextureGeometry.h"

#include <QObject>
#include <QPoint>
#include <QStringList>

#include <array>
#include <functional>
#include <optional>

class QLineEdit;

// The four corner rows of the texture edition frame: per row the corner's
// label (txtCorner), its X and Y boxes and its Lo/Hi marker (txtHiLo). Two
// rows on a diagonal carry the markers; only their X and Y are typed, and
// the other two rows follow them so the rectangle stays closed. While the
// rows are being rewritten as a whole (a load, a flip) they are held, and
// the boxes' changes then move nothing.
class CornerBoxes : public QObject
{
    Q_OBJECT

public:
    struct Row
    {
        QLineEdit* corner;
        QLineEdit* x;
        QLineEdit* y;
        QLineEdit* hiLo;
    };

    // Holds the rows for as long as it lives.
    class Hold
    {
    public:
        explicit Hold(CornerBoxes& boxes);
        ~Hold();
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

    private:
        CornerBoxes& m_boxes;
        bool m_wasHeld;
    };

    // bitmapHeight gives the highest whole-bitmap Y a box takes.
    CornerBoxes(const std::array<Row, 4>& rows, std::function<int()> bitmapHeight, QObject* parent = nullptr);

    const Row& row(int i) const { return m_rows[size_t(i)]; }

    // Row 0 to 3 whose marker reads "Lo" (or "Hi"); -1 when none does.
    int FindLoCorner() const;
    int FindHiCorner() const;

    // Locks the eight X and Y boxes; with openLoHi the Lo and Hi rows are
    // then opened for typing (with free corners, every row in use); a
    // triangle's fourth row is shown unused.
    void LockCornerBoxes(bool openLoHi, bool triangle);
    // Free corners are typed one by one: no row follows another.
    void SetFreeCorners(bool free) { m_free = free; }
    bool FreeCorners() const { return m_free; }
    // Row i's X and Y as numbers; nothing while either box is empty.
    std::optional<QPoint> Corner(int i) const;
    void SetCorner(int i, QPoint at);
    // The fourth row in use (a quad) or not (a triangle).
    void ShowFourthCornerInUse(bool inUse);

    void SetCornerLabels(TextureGeometry::Flips flips);
    void SetMarkers(const QStringList& markers);
    // Row 3 closes the rectangle: its X from row 0, its Y from row 2.
    void CompleteFourthCorner();
    // Swaps two rows' marker, X and Y (a flip moves whole rows).
    void ExchangeRows(int a, int b);
    // Empties marker, X, Y and label of every row.
    void Clear();

signals:
    // A typed value was not taken; why is one line for the status bar.
    void inputRefused(const QString& why);

private:
    void Follow(int changedRow, bool isX);

    std::array<Row, 4> m_rows;
    bool m_held = false;
    bool m_free = false;
};
