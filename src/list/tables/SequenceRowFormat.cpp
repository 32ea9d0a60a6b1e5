#include "list/tables/SequenceRowFormat.h"

#include "common/NumberText.h"
#include "list/tables/KeyNumber.h"

QString SequenceRowFormat::NumberText(qint64 number)
{
    return NumberText::padded(number, 5);
}

qint64 SequenceRowFormat::Number(const Entry& e, int column)
{
    switch (column) {
    case 1:
        return e.record.number();
    case 2:
        return e.record.first;
    case 3:
        return e.record.objectId;
    default:
        return 0;
    }
}

QString SequenceRowFormat::Cell(const Entry& e, int column)
{
    if (column == 0)
        return NumberText(e.number);
    return column <= 3 ? QString::number(Number(e, column)) : QString();
}

int SequenceRowFormat::Find(const RecordTable<Entry>& table, const QString& key)
{
    const qint32 number = KeyNumber(key, QLatin1Char('S'), [](qint64 n) { return Key(n); });
    return number < 0 ? -1 : table.rowOfNumber(number);
}
