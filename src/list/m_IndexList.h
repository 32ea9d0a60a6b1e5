#pragma once

#include <QString>

class IndexRows;

// The index lists the drawing and animation pages pick from: one row per
// texture, numbered from 1, optionally after the rows "None" and "All".
namespace m_IndexList {

// Empties listView, then gives it "None" and "All" (keys as texts) when
// asked, then rows 1 to count with key prefix and the number (T1, T2, ...)
// and the number as text. A count of 0 or less gives no numbered rows. A
// list with "None" and "All" is a checklist and comes with every row ticked.
void FillIndexList(qint64 count, IndexRows& listView, const QString& prefix, bool withNoneAll);

// Brings a list filled by FillIndexList to count numbered rows by adding or
// removing rows at its end, so the rows kept keep their ticks; an empty list
// is filled. One texture more or less costs one row, not a refill.
void ResizeIndexList(qint64 count, IndexRows& listView, const QString& prefix, bool withNoneAll);

} // namespace m_IndexList
