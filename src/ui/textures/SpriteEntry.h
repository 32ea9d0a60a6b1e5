#pragma once

#include <QString>

#include <array>
#include <optional>

// The eight numbers typed into the sprite edition frame, checked in the
// order the frame reports them: blanks, then text that is no number, then
// numbers beyond a 16-bit integer, then negative corners, then each pair in
// the wrong order. The stretch offsets may be negative; the tile is not
// checked. The first fault found is the one reported, with the box it lies in.
class SpriteEntry
{
public:
    enum Box { X1, X2, Y1, Y2, Top, Bottom, Left, Right, BoxCount };
    enum class Fault { None, Blank, NotNumeric, OutOfRange, NegativeCorner, XOrder, YOrder, TopOrder, LeftOrder };

    struct Check
    {
        Fault fault = Fault::None;
        Box box = X1;
    };

    explicit SpriteEntry(const std::array<QString, BoxCount>& texts);

    // Reads and checks the boxes; the values are kept for Value.
    Check Validate();
    // The value of a box that passed Validate.
    int Value(Box box) const { return m_values[size_t(box)]; }

    // A number as the frame reads one: decimal, optionally signed, with a
    // fraction or exponent, rounded half to even; nothing for anything else.
    static std::optional<double> NumberOf(const QString& text);

private:
    Check FirstFault(Fault fault, bool (*faulty)(const QString&)) const;

    std::array<QString, BoxCount> m_texts;
    std::array<int, BoxCount> m_values{};
};
