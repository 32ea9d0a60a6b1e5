#include "list/tables/RangeTextureFormat.h"

#include "list/tables/RangeRowFormat.h"

QString RangeTextureFormat::Key(qint64 range, qint64 place)
{
    return QLatin1Char('A') + RangeRowFormat::NumberText(range) + QString::number(place);
}

QString RangeTextureFormat::Cell(const Entry& e, int column)
{
    if (column == 0)
        return RangeRowFormat::NumberText(e.range) + QLatin1Char('-') + QString::number(e.place);
    return column == 1 ? QString::number(e.texture) : QString();
}

int RangeTextureFormat::Find(const RecordTable<Entry>& table, const QString& key)
{
    if (key.isEmpty())
        return -1;
    for (int row = 0; row < table.count(); ++row) {
        if (table.at(row).keyed && Key(table.at(row)) == key)
            return row;
    }
    return -1;
}
