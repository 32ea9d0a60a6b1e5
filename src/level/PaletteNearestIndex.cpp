#include "level/PaletteNearestIndex.h"

#include <limits>

namespace {

constexpr int Scale = 4;

// The squared distance along one channel from v to the nearest and to the
// farthest point of the cell span low..high.
int nearestSquare(int v, int low, int high)
{
    const int d = v < low ? low - v : (v > high ? v - high : 0);
    return d * d;
}

int farthestSquare(int v, int low, int high)
{
    const int d = qMax(v - low, high - v);
    return d * d;
}

} // namespace

PaletteNearestIndex::PaletteNearestIndex(const QByteArray& palette)
{
    for (int index = 0; index < 256; ++index) {
        const auto channel = [&](int c) {
            const qsizetype at = qsizetype(index) * 3 + c;
            return at < palette.size() ? (quint8(palette[at]) & 0x3F) * Scale : 0;
        };
        m_colours[size_t(index)] = qRgb(channel(0), channel(1), channel(2));
        if (index > 0 && (m_colours[size_t(index)] & 0xFFFFFF) != 0)
            m_hasColours = true;
    }
    // Entry 1 is its own nearest: only entry 0 comes before it.
    m_lastColour = m_colours[1];
    m_lastIndex = 1;
}

// An entry can be nearest to a colour of the cell only if its nearest point
// of the cell is no farther than the farthest point of the cell is from the
// entry that is nearest at its worst.
void PaletteNearestIndex::fillCell(size_t cellIndex)
{
    constexpr int Mask = CellsPerSide - 1;
    const int cell = int(cellIndex);
    const int low[3] = {(cell >> (2 * CellBits)) * CellSide, ((cell >> CellBits) & Mask) * CellSide,
                        (cell & Mask) * CellSide};
    const auto span = [&](int index, auto square) {
        const QRgb c = m_colours[size_t(index)];
        return square(qRed(c), low[0], low[0] + CellSide - 1) + square(qGreen(c), low[1], low[1] + CellSide - 1)
               + square(qBlue(c), low[2], low[2] + CellSide - 1);
    };
    int bound = std::numeric_limits<int>::max();
    for (int index = 1; index < 256; ++index)
        bound = qMin(bound, span(index, farthestSquare));
    QList<quint8>& candidates = m_cells[cellIndex];
    for (int index = 1; index < 256; ++index) {
        if (span(index, nearestSquare) <= bound)
            candidates.append(quint8(index));
    }
    m_filled[cellIndex] = true;
}

int PaletteNearestIndex::distance(QRgb a, QRgb b)
{
    const int r = qRed(a) - qRed(b);
    const int g = qGreen(a) - qGreen(b);
    const int bl = qBlue(a) - qBlue(b);
    return r * r + g * g + bl * bl;
}

quint8 PaletteNearestIndex::nearest(QRgb colour)
{
    colour |= 0xFF000000;
    if (colour == m_lastColour)
        return m_lastIndex;
    const int cellShift = 8 - CellBits;
    const size_t cellIndex = size_t((qRed(colour) >> cellShift) << (2 * CellBits)
                                    | (qGreen(colour) >> cellShift) << CellBits | (qBlue(colour) >> cellShift));
    if (!m_filled[cellIndex])
        fillCell(cellIndex);
    int best = std::numeric_limits<int>::max();
    quint8 bestIndex = 1;
    // The candidates are in index order: a later one wins only when nearer.
    for (quint8 index : m_cells[cellIndex]) {
        const int d = distance(colour, m_colours[index]);
        if (d < best) {
            best = d;
            bestIndex = index;
        }
    }
    m_lastColour = colour;
    m_lastIndex = bestIndex;
    return bestIndex;
}
