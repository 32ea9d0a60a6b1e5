#include "ui/textures/CornerBoxes.h"

#include "ui/textures/CornerBoxInput.h"
#include "ui/common/EditBoxLook.h"

#include <QLineEdit>

namespace {

const QString Lo = QStringLiteral("Lo");
const QString Hi = QStringLiteral("Hi");

// The row that copies a changed row's X (or Y) to keep the rectangle
// closed, for markers on rows 0 and 2 or on rows 1 and 3; -1 for none.
int FollowerOf(int changedRow, bool isX, bool markersOnEvenRows)
{
    if (markersOnEvenRows) {
        switch (changedRow) {
        case 0: return isX ? 3 : 1;
        case 2: return isX ? 1 : 3;
        default: return -1;
        }
    }
    switch (changedRow) {
    case 1: return isX ? 2 : 0;
    case 3: return isX ? 0 : 2;
    default: return -1;
    }
}

} // namespace

CornerBoxes::Hold::Hold(CornerBoxes& boxes)
    : m_boxes(boxes)
    , m_wasHeld(boxes.m_held)
{
    boxes.m_held = true;
}

CornerBoxes::Hold::~Hold()
{
    m_boxes.m_held = m_wasHeld;
}

CornerBoxes::CornerBoxes(const std::array<Row, 4>& rows, std::function<int()> bitmapHeight, QObject* parent)
    : QObject(parent)
    , m_rows(rows)
{
    const auto lastTilePixel = [] { return TextureGeometry::TileSize - 1; };
    for (int i = 0; i < 4; ++i) {
        const Row& row = m_rows[size_t(i)];
        for (CornerBoxInput* input : {CornerBoxInput::Attach(*row.x, CornerBoxInput::Axis::X, lastTilePixel),
                                      CornerBoxInput::Attach(*row.y, CornerBoxInput::Axis::Y, bitmapHeight)})
            connect(input, &CornerBoxInput::refused, this, &CornerBoxes::inputRefused);
        for (QLineEdit* shown : {row.corner, row.hiLo})
            EditBoxLook::Lock(*shown);
        connect(row.x, &QLineEdit::textChanged, this, [this, i] { Follow(i, true); });
        connect(row.y, &QLineEdit::textChanged, this, [this, i] { Follow(i, false); });
    }
}

int CornerBoxes::FindLoCorner() const
{
    for (int i = 0; i < 4; ++i) {
        if (m_rows[size_t(i)].hiLo->text() == Lo)
            return i;
    }
    return -1;
}

int CornerBoxes::FindHiCorner() const
{
    for (int i = 0; i < 4; ++i) {
        if (m_rows[size_t(i)].hiLo->text() == Hi)
            return i;
    }
    return -1;
}

void CornerBoxes::LockCornerBoxes(bool openLoHi, bool triangle)
{
    for (const Row& row : m_rows) {
        EditBoxLook::Lock(*row.x);
        EditBoxLook::Lock(*row.y);
    }
    if (openLoHi && m_free) {
        for (int i = 0; i < (triangle ? 3 : 4); ++i) {
            EditBoxLook::Unlock(*m_rows[size_t(i)].x);
            EditBoxLook::Unlock(*m_rows[size_t(i)].y);
        }
    } else if (openLoHi) {
        for (int i : {FindLoCorner(), FindHiCorner()}) {
            if (i < 0)
                continue;
            EditBoxLook::Unlock(*m_rows[size_t(i)].x);
            EditBoxLook::Unlock(*m_rows[size_t(i)].y);
        }
    }
    if (triangle)
        ShowFourthCornerInUse(false);
}

void CornerBoxes::ShowFourthCornerInUse(bool inUse)
{
    for (QLineEdit* box : {m_rows[3].x, m_rows[3].y}) {
        if (inUse)
            EditBoxLook::ShowLockedColours(*box);
        else
            EditBoxLook::ShowUnused(*box);
    }
}

void CornerBoxes::SetCornerLabels(TextureGeometry::Flips flips)
{
    const QStringList labels = TextureGeometry::CornerLabels(flips);
    for (int i = 0; i < 4; ++i)
        m_rows[size_t(i)].corner->setText(labels[i]);
}

void CornerBoxes::SetMarkers(const QStringList& markers)
{
    for (int i = 0; i < 4; ++i)
        m_rows[size_t(i)].hiLo->setText(markers.value(i));
}

void CornerBoxes::CompleteFourthCorner()
{
    m_rows[3].x->setText(m_rows[0].x->text());
    m_rows[3].y->setText(m_rows[2].y->text());
}

void CornerBoxes::ExchangeRows(int a, int b)
{
    Row& first = m_rows[size_t(a)];
    Row& second = m_rows[size_t(b)];
    for (auto box : {&Row::hiLo, &Row::x, &Row::y}) {
        const QString kept = (first.*box)->text();
        (first.*box)->setText((second.*box)->text());
        (second.*box)->setText(kept);
    }
}

void CornerBoxes::Clear()
{
    for (const Row& row : m_rows) {
        for (QLineEdit* box : {row.hiLo, row.x, row.y, row.corner})
            EditBoxLook::Empty(*box);
    }
}

std::optional<QPoint> CornerBoxes::Corner(int i) const
{
    const Row& row = m_rows[size_t(i)];
    if (row.x->text().isEmpty() || row.y->text().isEmpty())
        return std::nullopt;
    // The boxes hold what was typed within the bitmap, or what a loaded row held.
    return QPoint(row.x->text().toInt(), row.y->text().toInt());
}

void CornerBoxes::SetCorner(int i, QPoint at)
{
    m_rows[size_t(i)].x->setText(QString::number(at.x()));
    m_rows[size_t(i)].y->setText(QString::number(at.y()));
}

void CornerBoxes::Follow(int changedRow, bool isX)
{
    if (m_held || m_free)
        return;
    const int lo = FindLoCorner();
    const int hi = FindHiCorner();
    if (lo < 0 || hi < 0)
        return;
    const bool evenRows = (lo == 0 && hi == 2) || (lo == 2 && hi == 0);
    const bool oddRows = (lo == 1 && hi == 3) || (lo == 3 && hi == 1);
    if (!evenRows && !oddRows)
        return;
    const int follower = FollowerOf(changedRow, isX, evenRows);
    if (follower < 0)
        return;
    QLineEdit* source = isX ? m_rows[size_t(changedRow)].x : m_rows[size_t(changedRow)].y;
    QLineEdit* target = isX ? m_rows[size_t(follower)].x : m_rows[size_t(follower)].y;
    target->setText(source->text());
}
