#include "ui/textures/SpriteEntry.h"

#include <QLocale>

#include <cmath>

namespace {

bool IsBlank(const QString& text)
{
    return text.isEmpty();
}

bool IsNotNumeric(const QString& text)
{
    return !SpriteEntry::NumberOf(text).has_value();
}

bool IsBeyondSixteenBits(const QString& text)
{
    const double rounded = std::nearbyint(*SpriteEntry::NumberOf(text));
    return rounded < -32768.0 || rounded > 32767.0;
}

} // namespace

SpriteEntry::SpriteEntry(const std::array<QString, BoxCount>& texts)
    : m_texts(texts)
{
}

std::optional<double> SpriteEntry::NumberOf(const QString& text)
{
    bool ok = false;
    const double value = QLocale::c().toDouble(text.trimmed(), &ok);
    if (!ok || !std::isfinite(value))
        return std::nullopt;
    return value;
}

SpriteEntry::Check SpriteEntry::FirstFault(Fault fault, bool (*faulty)(const QString&)) const
{
    for (int box = 0; box < BoxCount; ++box) {
        if (faulty(m_texts[size_t(box)]))
            return {fault, Box(box)};
    }
    return {};
}

SpriteEntry::Check SpriteEntry::Validate()
{
    for (const auto& [fault, faulty] : {std::pair{Fault::Blank, &IsBlank}, std::pair{Fault::NotNumeric, &IsNotNumeric},
                                        std::pair{Fault::OutOfRange, &IsBeyondSixteenBits}}) {
        const Check found = FirstFault(fault, faulty);
        if (found.fault != Fault::None)
            return found;
    }
    for (int box = 0; box < BoxCount; ++box)
        m_values[size_t(box)] = int(std::nearbyint(*NumberOf(m_texts[size_t(box)])));

    for (Box corner : {X1, X2, Y1, Y2}) {
        if (Value(corner) < 0)
            return {Fault::NegativeCorner, corner};
    }
    if (Value(X1) >= Value(X2))
        return {Fault::XOrder, X1};
    if (Value(Y1) >= Value(Y2))
        return {Fault::YOrder, Y1};
    if (Value(Top) >= Value(Bottom))
        return {Fault::TopOrder, Top};
    if (Value(Left) >= Value(Right))
        return {Fault::LeftOrder, Left};
    return {};
}
