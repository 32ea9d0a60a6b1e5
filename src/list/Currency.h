#pragma once

#include <QMetaType>
#include <QtGlobal>

#include <compare>
#include <concepts>
#include <limits>
#include <utility>

// A fixed-point amount: a 64-bit integer counting ten-thousandths. The smart
// array keeps its item count in it and takes its indexes in it, so an index
// may carry a fraction; toWhole() says which item such an index names.
class Currency
{
public:
    static constexpr qint64 Scale = 10000;

    constexpr Currency() = default;

    // Whole numbers only: a floating-point index would be truncated silently.
    // Values beyond the range saturate rather than wrap.
    template <std::integral T>
        requires(!std::same_as<T, bool>)
    constexpr Currency(T whole)
        : m_scaled(scaleWhole(whole))
    {
    }

    static constexpr Currency fromScaled(qint64 scaled)
    {
        Currency amount;
        amount.m_scaled = scaled;
        return amount;
    }

    constexpr qint64 scaled() const { return m_scaled; }

    // The nearest whole number, a fraction of exactly one half going to the
    // even neighbour (2.5 -> 2, 3.5 -> 4, -2.5 -> -2).
    constexpr qint64 toWhole() const
    {
        const qint64 whole = m_scaled / Scale; // truncates towards zero
        const qint64 rest = m_scaled % Scale; // same sign as m_scaled
        const qint64 half = Scale / 2;
        if (rest > half || (rest == half && whole % 2 != 0))
            return whole + 1;
        if (rest < -half || (rest == -half && whole % 2 != 0))
            return whole - 1;
        return whole;
    }

    friend constexpr bool operator==(Currency, Currency) = default;
    friend constexpr std::strong_ordering operator<=>(Currency, Currency) = default;

private:
    template <std::integral T>
    static constexpr qint64 scaleWhole(T whole)
    {
        constexpr qint64 max = std::numeric_limits<qint64>::max();
        constexpr qint64 min = std::numeric_limits<qint64>::min();
        if (std::cmp_greater(whole, max / Scale))
            return max;
        if (std::cmp_less(whole, min / Scale))
            return min;
        return qint64(whole) * Scale;
    }

    qint64 m_scaled = 0;
};

Q_DECLARE_METATYPE(Currency)
