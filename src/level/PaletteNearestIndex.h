#pragma once

#include <QByteArray>
#include <QList>
#include <QRgb>

#include <array>

// The nearest opaque colour of a level's 8-bit palette: 256 entries of three
// 6-bit channels, each shown at four times its value; entry 0 is the
// see-through index and never the answer. Nearest is the least squared
// distance in red, green and blue; of equally near entries the lowest index.
//
// The colour cube is cut into 16 x 16 x 16 cells, and each cell keeps only
// the entries that can be nearest to some colour inside it, so a search
// looks at a few entries instead of 255. A cell is worked out when a colour
// inside it is first asked for: a bitmap that changes nothing asks for none.
// The last answer is remembered: painted areas repeat their colours.
class PaletteNearestIndex
{
public:
    static constexpr int PaletteSize = 768;

    // palette holds PaletteSize bytes; a shorter one is taken as zeros beyond
    // its end.
    explicit PaletteNearestIndex(const QByteArray& palette);

    // False when every opaque entry is black: the palette has no colours to
    // choose from.
    bool hasColours() const { return m_hasColours; }

    quint8 nearest(QRgb colour);

    // The colour entry index stands for.
    QRgb colourOf(int index) const { return m_colours[size_t(index)]; }

private:
    static constexpr int CellBits = 4;
    static constexpr int CellsPerSide = 1 << CellBits;
    static constexpr int CellSide = 256 / CellsPerSide;

    void fillCell(size_t cell);
    static int distance(QRgb a, QRgb b);

    std::array<QRgb, 256> m_colours{};
    static constexpr size_t Cells = CellsPerSide * CellsPerSide * CellsPerSide;
    std::array<QList<quint8>, Cells> m_cells;
    std::array<bool, Cells> m_filled{};
    bool m_hasColours = false;
    QRgb m_lastColour = 0;
    quint8 m_lastIndex = 0;
};
