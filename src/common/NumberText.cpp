#include "common/NumberText.h"

#include <array>
#include <memory>

namespace {

constexpr int CachedCount = 4096;

const std::array<QString, CachedCount>& cache()
{
    static const std::unique_ptr<std::array<QString, CachedCount>> texts = [] {
        auto made = std::make_unique<std::array<QString, CachedCount>>();
        for (int i = 0; i < CachedCount; ++i)
            (*made)[size_t(i)] = QString::number(i);
        return made;
    }();
    return *texts;
}

} // namespace

QString NumberText::of(qint64 value)
{
    if (value >= 0 && value < CachedCount)
        return cache()[size_t(value)];
    return QString::number(value);
}

QString NumberText::padded(qint64 value, int width)
{
    const QString digits = of(value);
    if (digits.size() >= width)
        return digits;
    return QString(width - digits.size(), QLatin1Char('0')) + digits;
}

qint64 NumberText::valueOf(QStringView text)
{
    text = text.trimmed();
    qsizetype i = 0;
    bool negative = false;
    if (i < text.size() && (text[i] == QLatin1Char('-') || text[i] == QLatin1Char('+')))
        negative = text[i++] == QLatin1Char('-');
    qint64 value = 0;
    for (; i < text.size() && text[i].isDigit() && text[i].unicode() < 128; ++i) {
        value = value * 10 + (text[i].unicode() - '0');
        if (value > (qint64(1) << 40))
            break;
    }
    return negative ? -value : value;
}
