#include "list/SubPixelConvention.h"

#include "list/rows/ListRows.h"
#include "list/ObjectTextureRow.h"

#include <algorithm>
#include <vector>

int SubPixelConvention::Byte(bool xAxis, bool highEdge) const
{
    if (xAxis)
        return highEdge ? xHigh : xLow;
    return highEdge ? yHigh : yLow;
}

std::optional<SubPixelConvention> SubPixelConvention::Of(const ObjectTextureRow& row)
{
    const int used = row.IsTriangle() ? 3 : 4;
    auto firstAt = [&](int (QPoint::*axis)() const, bool highest) {
        int found = 0;
        for (int i = 1; i < used; ++i) {
            const int value = (row.corners[size_t(i)].*axis)();
            const int best = (row.corners[size_t(found)].*axis)();
            if (highest ? value > best : value < best)
                found = i;
        }
        return found;
    };
    const int left = firstAt(&QPoint::x, false), right = firstAt(&QPoint::x, true);
    const int top = firstAt(&QPoint::y, false), bottom = firstAt(&QPoint::y, true);
    if (row.corners[size_t(left)].x() == row.corners[size_t(right)].x()
        || row.corners[size_t(top)].y() == row.corners[size_t(bottom)].y())
        return std::nullopt;
    return SubPixelConvention{row.subPixels[size_t(left)].x(), row.subPixels[size_t(right)].x(),
                              row.subPixels[size_t(top)].y(), row.subPixels[size_t(bottom)].y()};
}

SubPixelConvention SubPixelConvention::MostUsed(const RecordTable<TextureEntry>& textures)
{
    // A level uses a handful of conventions at most: a short list is enough.
    std::vector<std::pair<SubPixelConvention, int>> counts;
    for (const TextureEntry& texture : textures.rows()) {
        const std::optional<SubPixelConvention> used = Of(ObjectTextureRow::Of(texture));
        if (!used)
            continue;
        auto known = std::find_if(counts.begin(), counts.end(), [&](const auto& c) { return c.first == *used; });
        if (known == counts.end())
            counts.emplace_back(*used, 1);
        else
            ++known->second;
    }
    if (counts.empty())
        return {};
    // max_element keeps the first of equal counts: the convention met first.
    return std::max_element(counts.begin(), counts.end(),
                            [](const auto& a, const auto& b) { return a.second < b.second; })
        ->first;
}
