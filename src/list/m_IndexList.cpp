#include "list/m_IndexList.h"

#include "list/rows/ListViewModel.h"
#include "common/NumberText.h"

#include <vector>

namespace m_IndexList {

namespace {

// A list with "None" and "All" is a draw checklist: it starts with every row
// ticked, so a Draw right after filling shows everything.
Qt::CheckState TickOf(bool withNoneAll)
{
    return withNoneAll ? Qt::Checked : Qt::Unchecked;
}

void AppendNumberedRows(qint64 from, qint64 to, ListViewModel& listView, const QString& prefix, bool withNoneAll,
                        std::vector<ListViewModel::Row>&& rows)
{
    rows.reserve(rows.size() + size_t(qMax<qint64>(0, to - from + 1)));
    for (qint64 i = from; i <= to; ++i) {
        const QString number = NumberText::of(i);
        rows.push_back({prefix + number, number, {}, TickOf(withNoneAll)});
    }
    listView.appendRows(std::move(rows));
}

} // namespace

void FillIndexList(qint64 count, ListViewModel& listView, const QString& prefix, bool withNoneAll)
{
    listView.clear();
    std::vector<ListViewModel::Row> rows;
    if (withNoneAll) {
        for (const QString& fixed : {QStringLiteral("None"), QStringLiteral("All")})
            rows.push_back({fixed, fixed, {}, TickOf(withNoneAll)});
    }
    AppendNumberedRows(1, count, listView, prefix, withNoneAll, std::move(rows));
}

void ResizeIndexList(qint64 count, ListViewModel& listView, const QString& prefix, bool withNoneAll)
{
    const int fixedRows = withNoneAll ? 2 : 0;
    if (listView.count() < fixedRows || (listView.count() == 0 && count > 0)) {
        FillIndexList(count, listView, prefix, withNoneAll);
        return;
    }
    const qint64 wanted = qMax<qint64>(0, count);
    qint64 numbered = listView.count() - fixedRows;
    while (numbered > wanted)
        listView.removeAt(fixedRows + int(--numbered));
    if (numbered < wanted)
        AppendNumberedRows(numbered + 1, wanted, listView, prefix, withNoneAll, {});
}

} // namespace m_IndexList
