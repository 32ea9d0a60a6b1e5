#include "list/m_IndexList.h"

#include "list/rows/IndexRows.h"

namespace m_IndexList {

void FillIndexList(qint64 count, IndexRows& listView, const QString& prefix, bool withNoneAll)
{
    listView.fill(count, prefix.isEmpty() ? QChar() : prefix.front(), withNoneAll);
}

void ResizeIndexList(qint64 count, IndexRows& listView, const QString& prefix, bool withNoneAll)
{
    listView.resize(count, prefix.isEmpty() ? QChar() : prefix.front(), withNoneAll);
}

} // namespace m_IndexList
