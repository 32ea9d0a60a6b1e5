#pragma once

#include <QPoint>

#include <array>

// A draw list row's "NumSide" and the whole-bitmap corners it is outlined
// from, as numbers: the cells take them without a round trip through text.
class OutlineColumns
{
public:
    explicit OutlineColumns(int sides) { m_values[0] = sides; }

    void append(QPoint corner)
    {
        m_values[size_t(m_count++)] = corner.x();
        m_values[size_t(m_count++)] = corner.y();
    }

    const int* begin() const { return m_values.data(); }
    const int* end() const { return m_values.data() + m_count; }
    int size() const { return m_count; }

private:
    // The sides and at most three corners.
    std::array<int, 7> m_values{};
    int m_count = 1;
};
