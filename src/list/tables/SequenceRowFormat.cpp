#include "list/tables/SequenceRowFormat.h"

#include "common/NumberText.h"

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
    if (key.size() < 2 || key.front() != QLatin1Char('S'))
        return -1;
    bool ok = false;
    const qint64 number = QStringView(key).mid(1).toLongLong(&ok);
    if (!ok || number < 0 || number > std::numeric_limits<qint32>::max() || Key(number) != key)
        return -1;
    return table.rowOfNumber(qint32(number));
}
