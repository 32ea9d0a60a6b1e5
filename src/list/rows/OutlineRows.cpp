#include "list/rows/OutlineRows.h"

#include "common/NumberText.h"

OutlineRows::OutlineRows(const QStringList& columns, QObject* parent)
    : ListRows(columns, parent)
{
}

void OutlineRows::clear()
{
    beginResetModel();
    m_outlines.clear();
    forgetSelection();
    endResetModel();
}

QString OutlineRows::key(int /*index*/) const
{
    return {};
}

QString OutlineRows::cellText(int index, int column) const
{
    if (!isValidRow(index) || column < 0)
        return {};
    const Outline& outline = m_outlines[size_t(index)];
    if (column == 0)
        return NumberText::padded(outline.number, outline.width);
    if (column > outline.columns.size())
        return {};
    return NumberText::of(outline.columns.begin()[column - 1]);
}

qint64 OutlineRows::subItemNumber(int index, int subItem) const
{
    if (!isValidRow(index) || subItem < 1 || subItem > m_outlines[size_t(index)].columns.size())
        return 0;
    return m_outlines[size_t(index)].columns.begin()[subItem - 1];
}

ListRows::Row OutlineRows::row(int index) const
{
    if (!isValidRow(index))
        return {};
    Row row{{}, text(index), {}, Qt::Unchecked};
    const OutlineColumns& columns = m_outlines[size_t(index)].columns;
    row.subItems.reserve(columns.size());
    for (const int value : columns)
        row.subItems.append(NumberText::of(value));
    return row;
}

int OutlineRows::findKey(const QString& /*key*/) const
{
    return -1;
}
