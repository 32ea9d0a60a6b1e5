#pragma once

#include <QHashFunctions>
#include <QString>
#include <QStringView>

#include <array>
#include <bit>
#include <limits>
#include <utility>

// The text of one list view cell in eight bytes. Almost every cell of a list
// is a number: a record's field, a row number zero-padded to the table's
// width, a key of one letter and a number ("T120", "A0512"), a range and a
// texture of it ("05-3"). Such a text is kept as the digits it spells, with
// the letter, the sign and the one dash between digits it may have, and made
// into a QString only when asked for; any other text is kept as a QString of
// its own.
//
// Every text has exactly one form, so equal texts make equal cells and a cell
// can key a hash in place of its text.
class ListCell
{
public:
    // Room for a letter, a sign, a dash and the widest digits a number cell keeps.
    using Buffer = std::array<char16_t, 40>;

    ListCell() noexcept = default; // ""
    explicit ListCell(QStringView text);

    // value in decimal, its digits zero-padded on the left to width, after
    // letter when one is given: number(7, 3, u'A') is "A007".
    static ListCell number(qint64 value, int width = 0, QChar letter = {})
    {
        const quint64 magnitude = value < 0 ? 0 - quint64(value) : quint64(value);
        const int digits = qMax(width, digitCount(magnitude));
        if (magnitude <= MaxMagnitude && digits <= MaxDigits && (letter.isNull() || letter.isLetter()))
            return packed(value < 0, digits, letter.unicode(), quint32(magnitude));
        return spelt(value, digits, letter);
    }

    ListCell(const ListCell& other);
    ListCell(ListCell&& other) noexcept : m_bits(std::exchange(other.m_bits, 0)) {}
    ListCell& operator=(const ListCell& other);
    ListCell& operator=(ListCell&& other) noexcept
    {
        if (this != &other) {
            if (isText())
                deleteText();
            m_bits = std::exchange(other.m_bits, 0);
        }
        return *this;
    }
    ~ListCell()
    {
        if (isText())
            deleteText();
    }

    // Decimal digits of magnitude: 1 for 0.
    static constexpr int digitCount(quint64 magnitude)
    {
        // From the bit width: log10(2) is about 1233 / 4096.
        const quint64 odd = magnitude | 1; // 0 has one digit, as 1 has
        const int guess = (std::bit_width(odd) * 1233) >> 12;
        return guess + 1 - (odd < PowersOfTen[size_t(guess)] ? 1 : 0);
    }

    bool isEmpty() const { return m_bits == 0; }
    QString toString() const;
    // The text without making a QString: a number is spelt into buffer.
    QStringView view(Buffer& buffer) const;
    // The leading integer of the text, as NumberText::valueOf reads it.
    qint64 leadingInteger() const;
    // True when both cells are undashed numbers, whatever their letters, and
    // this one's value is the smaller: their texts differ.
    bool isNumberBelow(const ListCell& other) const
    {
        return isNumber() && other.isNumber() && dash() == 0 && other.dash() == 0
            && signedValue() < other.signedValue();
    }

    friend bool operator==(const ListCell& a, const ListCell& b)
    {
        return a.m_bits == b.m_bits || (a.isText() && b.isText() && *a.text() == *b.text());
    }
    friend size_t qHash(const ListCell& cell, size_t seed) noexcept
    {
        return cell.isText() ? qHash(*cell.text(), seed) : qHash(cell.m_bits, seed);
    }

private:
    // Bit 0 set: a number. Bit 1 its sign, bits 2-7 its digit count, bits
    // 8-23 its letter (0 for none), bits 24-29 how many digits precede its
    // dash (0 for none), bits 32-63 the magnitude of all its digits. Bit 0
    // clear: a QString owned by the cell, or no text at all when every bit is 0.
    static constexpr quint64 NumberTag = 1;
    static constexpr int MaxDigits = 31;
    static constexpr quint64 MaxMagnitude = std::numeric_limits<quint32>::max();

    static constexpr std::array<quint64, 20> PowersOfTen = [] {
        std::array<quint64, 20> powers{};
        quint64 power = 1;
        for (quint64& p : powers) {
            p = power;
            power *= 10;
        }
        return powers;
    }();

    bool isNumber() const { return (m_bits & NumberTag) != 0; }
    bool isText() const { return !isNumber() && !isEmpty(); }
    const QString* text() const { return reinterpret_cast<const QString*>(quintptr(m_bits)); }
    bool isNegative() const { return (m_bits >> 1) & 1; }
    int digits() const { return int((m_bits >> 2) & 0x3F); }
    char16_t letter() const { return char16_t((m_bits >> 8) & 0xFFFF); }
    int dash() const { return int((m_bits >> 24) & 0x3F); }
    quint32 magnitude() const { return quint32(m_bits >> 32); }
    qint64 signedValue() const { return isNegative() ? -qint64(magnitude()) : qint64(magnitude()); }

    static ListCell packed(bool negative, int digits, char16_t letter, quint32 magnitude, int dash = 0)
    {
        ListCell cell;
        cell.m_bits = NumberTag | quint64(negative) << 1 | quint64(digits) << 2 | quint64(letter) << 8
                    | quint64(dash) << 24 | quint64(magnitude) << 32;
        return cell;
    }
    static ListCell spelt(qint64 value, int digits, QChar letter);
    static ListCell ofText(QStringView text);
    void deleteText();

    quint64 m_bits = 0;
};
