#include "list/tables/RangeRowFormat.h"

#include "common/NumberText.h"
#include "list/tables/KeyNumber.h"

QString RangeRowFormat::NumberText(qint64 number)
{
    return NumberText::padded(number, 2);
}

qint64 RangeRowFormat::Number(const Entry& e, int column)
{
    if (column == 1)
        return e.shownCount;
    return column == 2 && e.showsFirst ? e.shownFirst : 0;
}

QString RangeRowFormat::Cell(const Entry& e, int column)
{
    switch (column) {
    case 0:
        return NumberText(e.number);
    case 1:
        return QString::number(e.shownCount);
    case 2:
        return e.showsFirst ? QString::number(e.shownFirst) : QString();
    default:
        return {};
    }
}

int RangeRowFormat::Find(const RecordTable<Entry>& table, const QString& key)
{
    const qint32 number = KeyNumber(key, QLatin1Char('A'), [](qint64 n) { return Key(n); });
    return number < 0 ? -1 : table.rowOfNumber(number);
}

bool RangeRowFormat::Reaches(qint64 asked, qint64 other)
{
    return other == asked || NumberText(other).startsWith(NumberText(asked));
}
