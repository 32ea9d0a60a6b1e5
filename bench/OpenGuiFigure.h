#pragma once

#include "BenchFigure.h"
#include "BenchList.h"

// open_gui_ms: File, Open List of the 20,000-texture list in a shown main
// window, from the menu to the filled views and index lists, its bitmap
// loaded; in milliseconds. open_gui_max_ms: the same with the largest list
// a level can address (BenchList::Max).
class OpenGuiFigure : public BenchFigure
{
public:
    enum class Size { Large, Max };

    explicit OpenGuiFigure(Size size = Size::Large) : m_size(size) {}

    QString name() const override
    {
        return m_size == Size::Max ? QStringLiteral("open_gui_max_ms") : QStringLiteral("open_gui_ms");
    }
    QString unit() const override { return QStringLiteral("ms"); }
    std::optional<double> measure() override;

private:
    static constexpr int Repetitions = 10;
    Size m_size;
};
