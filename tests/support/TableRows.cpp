#include "support/TableRows.h"

namespace {

template <class Entry>
int Append(RecordTable<Entry>& table, qint32 number, const QStringList& cells)
{
    Entry entry{{}, number, qint16(QString::number(number).size())};
    for (int column = 1; column <= cells.size(); ++column) {
        if constexpr (requires { entry.setColumn(column, 0); })
            entry.setColumn(column, cells[column - 1].toInt()); // a corner keeps what its byte cannot
        else
            entry.record.setColumn(column, cells[column - 1].toInt());
    }
    table.insert(table.count(), entry);
    return table.count() - 1;
}

} // namespace

int TableRows::addTexture(ListTables& tables, qint32 number, const QStringList& cells)
{
    return Append(tables.textures, number, cells);
}

int TableRows::addSprite(ListTables& tables, qint32 number, const QStringList& cells)
{
    return Append(tables.sprites, number, cells);
}

int TableRows::addSequence(ListTables& tables, qint32 number, const SpriteSequence& record)
{
    tables.sequences.insert(tables.sequences.count(), {record, number});
    return tables.sequences.count() - 1;
}

qint32 TableRows::numberOf(const QString& key)
{
    bool ok = false;
    const qint32 number = key.mid(1).toInt(&ok);
    return ok ? number : -1;
}

QStringList TableRows::texturesOf(const ListTables& tables, qint32 range)
{
    QStringList textures;
    const int row = tables.ranges.rowOfNumber(range);
    if (row >= 0) {
        for (quint16 texture : tables.TexturesOfRange(row))
            textures << QString::number(texture);
    }
    return textures;
}
