#include "list/tables/RangeRowFormat.h"

#include "common/NumberText.h"

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
    if (key.size() < 3 || key.front() != QLatin1Char('A'))
        return -1;
    bool ok = false;
    const qint64 number = QStringView(key).mid(1).toLongLong(&ok);
    if (!ok || number < 0 || number > std::numeric_limits<qint32>::max() || Key(number) != key)
        return -1;
    return table.rowOfNumber(qint32(number));
}

bool RangeRowFormat::Reaches(qint64 asked, qint64 other)
{
    return other == asked || NumberText(other).startsWith(NumberText(asked));
}
