#include "list/m_IndexList.h"

#include "common/ListViewModel.h"
#include "common/NumberText.h"

#include <vector>

namespace m_IndexList {

void FillIndexList(qint64 count, ListViewModel& listView, const QString& prefix, bool withNoneAll)
{
    listView.clear();
    std::vector<ListViewModel::Row> rows;
    rows.reserve(size_t(qMax<qint64>(0, count)) + 2);
    // A list with "None" and "All" is a draw checklist: it starts with
    // every row ticked, so a Draw right after filling shows everything.
    const Qt::CheckState tick = withNoneAll ? Qt::Checked : Qt::Unchecked;
    if (withNoneAll) {
        for (const QString& fixed : {QStringLiteral("None"), QStringLiteral("All")})
            rows.push_back({fixed, fixed, {}, tick});
    }
    for (qint64 i = 1; i <= count; ++i) {
        const QString number = NumberText::of(i);
        rows.push_back({prefix + number, number, {}, tick});
    }
    listView.appendRows(std::move(rows));
}

} // namespace m_IndexList
