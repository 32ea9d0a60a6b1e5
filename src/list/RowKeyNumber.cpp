#include "list/RowKeyNumber.h"

#include "common/NumberText.h"

qint16 RowKeyNumber::Width(qint64 number, qint64 count)
{
    return qint16(qMax(NumberText::of(number).size(), NumberText::of(count).size()));
}

QString RowKeyNumber::RowText(qint64 number, qint64 count)
{
    return NumberText::padded(number, Width(number, count));
}
